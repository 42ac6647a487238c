// SPDX-License-Identifier: MIT
// A plant graphic from its bytes to its picture: whatever was loaded is parsed, rasterised in a small size
// and drawn. Needs a display for fonts and bitmaps.
#include "gui_base/graphics/svg/svg_parser.h"
#include "gui_base/graphics/svg/svg_renderer.h"

#include <wx/app.h>
#include <wx/dcmemory.h>
#include <wx/log.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

/// Values in place of some texts of the corpus.
class Value : public TextReplaceMapping
{
public:
    wxString GetId() const override { return "feed.q"; }
    wxString GetText(const wxString&) const override { return "12.5 m3/h"; }
};

void Start()
{
    static const bool started = [] {
        wxApp::SetInstance(new wxApp);
        int count = 0;
        wxEntryStart(count, static_cast<wxChar**>(nullptr));
        // Assertions are faults, too.
        wxSetAssertHandler(
            [](const wxString&, int, const wxString&, const wxString&, const wxString&) { std::abort(); });
        // The parser traces what it does.
        return std::freopen("/dev/null", "w", stdout) != nullptr;
    }();
    if (!started)
        std::abort();
}

void Draw(const SvgGraphicInfo<ArchiveLoadPolicy>& info)
{
    const std::unique_ptr<SvgParserBase> parser = std::make_unique<SvgParser>();
    SvgRenderer<ArchiveLoadPolicy> renderer(info, parser);
    wxBitmap bitmap(64, 48);
    wxMemoryDC dc(bitmap);
    const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(dc));
    renderer.DrawOnContext(context.get());
    renderer.SetSize(64, 48);
    renderer.DrawOnContext(context.get());
    renderer.UpdateValues();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Start();
    try {
        const std::string bytes(reinterpret_cast<const char*>(data), size);
        Draw({nullptr, ParseSvgDocument(bytes, "graphic"), "iso", {std::make_shared<Value>(), nullptr}});
    } catch (const SvgLoadError&) {
        // Said what is wrong with it.
    } catch (const std::out_of_range&) {
        // A word or unit that there is not.
    }
    return 0;
}
