// SPDX-License-Identifier: MIT
// Plant graphics: parsing beside loading as XML, rasterising beside another program, and drawing a value
// anew.
#include "gui_base/graphics/svg/svg_parser.h"
#include "gui_base/graphics/svg/svg_raster.h"
#include "gui_base/graphics/svg/svg_renderer.h"

#include <benchmark/benchmark.h>
#include <wx/dcmemory.h>
#include <wx/filename.h>
#include <wx/mstream.h>
#include <wx/stopwatch.h>

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <unistd.h>

namespace {

/// What the parser traces does not go among the figures.
class NoTrace
{
public:
    NoTrace() : m_out(dup(STDOUT_FILENO))
    {
        std::fflush(stdout);
        const int null = open("/dev/null", O_WRONLY);
        dup2(null, STDOUT_FILENO);
        close(null);
    }
    ~NoTrace()
    {
        std::fflush(stdout);
        dup2(m_out, STDOUT_FILENO);
        close(m_out);
    }
    NoTrace(const NoTrace&) = delete;
    NoTrace& operator=(const NoTrace&) = delete;

private:
    int m_out;
};

constexpr const char* kHead =
    "<style>\n.caption {font-family:sans-serif;font-size:11px;fill:#546e7a;}\n"
    ".value {font-family:sans-serif;font-size:13px;font-weight:bold;fill:#0d47a1;}\n</style>";

/// A drawing with as many values as told, each beside a caption and a vessel, in rows.
std::string Graphic(const std::string& root, int values)
{
    std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" " + root + ">" + kHead;
    for (int i = 0; i < values; ++i) {
        const std::string x = std::to_string(10 + 78 * (i % 20));
        const std::string y = std::to_string(8 + 88 * (i / 20));
        svg += "<path d=\"M" + x + "," + y +
               " c0,-6 50,-6 50,22 v40 c0,20 -50,20 -50,0 Z\" fill=\"#f3cf94\" "
               "stroke=\"#37474f\" stroke-width=\"2\"/>";
        svg += "<text class=\"caption\" x=\"" + x + "\" y=\"" + y + "\">Flow</text>";
        svg += "<text class=\"value\" id=\"v" + std::to_string(i) + "\" x=\"" + x + "\" y=\"" + y +
               "\">-</text>\n";
    }
    return svg + "</svg>";
}

std::string Of64KiB()
{
    int values = 1;
    while (Graphic("", values).size() < 65536)
        ++values;
    return Graphic("", values);
}

void BM_LoadAsXml(benchmark::State& state)
{
    const std::string svg = Of64KiB();
    for (auto _ : state) {
        wxMemoryInputStream stream(svg.data(), svg.size());
        wxXmlDocument document;
        benchmark::DoNotOptimize(document.Load(stream));
    }
}
BENCHMARK(BM_LoadAsXml)->Unit(benchmark::kMillisecond);

/// Without a size there is nothing to rasterise.
void BM_ParseGraphic(benchmark::State& state)
{
    const NoTrace quiet;
    wxXmlDocument document = ParseSvgDocument(Of64KiB(), "bench");
    SvgParser parser;
    for (auto _ : state)
        benchmark::DoNotOptimize(parser.ParseXml(&document));
}
BENCHMARK(BM_ParseGraphic)->Unit(benchmark::kMillisecond);

/// The counter is how many times as long another program takes, its start and the writing of a file included.
void BM_Rasterise(benchmark::State& state)
{
    const wxSize size(1600, 900);
    const std::string svg = Graphic("width=\"1600\" height=\"900\" viewBox=\"0 0 1600 900\"", 200);
    const wxXmlDocument document = ParseSvgDocument(svg, "bench");
    const std::string path = wxFileName::CreateTempFileName("bench").utf8_string();
    std::ofstream(path) << svg;
    wxStopWatch watch;
    long rounds = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(svg::RasteriseIn(svg::ShapesOf(document), size));
        ++rounds;
    }
    const double own = static_cast<double>(watch.TimeInMicro().GetValue()) / static_cast<double>(rounds);
    constexpr int kRuns = 10;
    watch.Start();
    for (int i = 0; i < kRuns; ++i) {
        if (std::system(("rsvg-convert -w 1600 -h 900 " + path + " -o " + path + ".png").c_str()) != 0)
            state.SkipWithError("rsvg-convert failed");
    }
    state.counters["other/own"] = static_cast<double>(watch.TimeInMicro().GetValue()) / kRuns / own;
    std::remove(path.c_str());
    std::remove((path + ".png").c_str());
}
BENCHMARK(BM_Rasterise)->Unit(benchmark::kMillisecond);

class Counting : public TextReplaceMapping
{
public:
    explicit Counting(int place) : m_id(wxString::Format("v%d", place)) {}
    wxString GetId() const override { return m_id; }
    wxString GetText(const wxString&) const override { return wxString::Format("%.1f m3/h", value); }
    double value = 10.0;

private:
    wxString m_id;
};

/// A drawing with 200 values as a window holds it.
class Shown
{
public:
    Shown()
    {
        for (int i = 0; i < 200; ++i)
            m_mappings.push_back(std::make_shared<Counting>(i));
        const std::string svg = Graphic("width=\"1600\" height=\"900\" viewBox=\"0 0 1600 900\"", 200);
        m_renderer = std::make_unique<SvgRenderer<ArchiveLoadPolicy>>(
            SvgGraphicInfo<ArchiveLoadPolicy>{nullptr, ParseSvgDocument(svg, "bench"), "iso", m_mappings},
            m_parser);
        Draw(nullptr);
    }
    Counting& At(std::size_t place) { return dynamic_cast<Counting&>(*m_mappings[place]); }
    SvgRenderer<ArchiveLoadPolicy>& Renderer() { return *m_renderer; }
    void Draw(const wxRect2DDouble* part)
    {
        wxMemoryDC dc(m_bitmap);
        const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(dc));
        if (part != nullptr)
            context->Clip(part->m_x, part->m_y, part->m_width, part->m_height);
        m_renderer->DrawOnContext(context.get());
    }

private:
    const NoTrace m_quiet;
    wxBitmap m_bitmap{1600, 900};
    std::vector<std::shared_ptr<TextReplaceMapping>> m_mappings;
    std::unique_ptr<SvgParserBase> m_parser = std::make_unique<SvgParser>();
    std::unique_ptr<SvgRenderer<ArchiveLoadPolicy>> m_renderer;
};

/// From the changed value to what is drawn of it.
void BM_RepaintAfterAChange(benchmark::State& state)
{
    Shown shown;
    for (auto _ : state) {
        shown.At(77).value += 0.1;
        for (const wxRect2DDouble& part : shown.Renderer().UpdateValues())
            shown.Draw(&part);
    }
}
BENCHMARK(BM_RepaintAfterAChange)->Unit(benchmark::kMillisecond);

/// All of it, as when a window comes into view.
void BM_DrawWhole(benchmark::State& state)
{
    Shown shown;
    for (auto _ : state)
        shown.Draw(nullptr);
}
BENCHMARK(BM_DrawWhole)->Unit(benchmark::kMillisecond);

}  // namespace
