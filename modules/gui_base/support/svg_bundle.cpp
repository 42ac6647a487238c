// SPDX-License-Identifier: MIT
#include "gui_base/support/svg_bundle.h"

#include <wx/image.h>

#include <algorithm>

namespace svg_bundle {
namespace {

constexpr int kOpaque = 255;

/// Whether the toolkit multiplies colours by their opacity though pictures hold them as they are, which some
/// of its versions do: half-transparent white comes out grey, and all edges have a dark seam.
bool DimsColours()
{
    static const bool dims = [] {
        constexpr int kBetween = 200;
        const wxImage image = wxBitmapBundle::FromSVG(
                                  "<svg width='1' height='1'>"
                                  "<rect width='1' height='1' fill='#ffffff' fill-opacity='0.5'/></svg>",
                                  wxSize(1, 1))
                                  .GetBitmap(wxSize(1, 1))
                                  .ConvertToImage();
        return image.IsOk() && image.GetRed(0, 0) < kBetween;
    }();
    return dims;
}

wxBitmap Undimmed(const wxBitmap& picture)
{
    wxImage image = picture.ConvertToImage();
    if (!image.IsOk() || !image.HasAlpha())
        return picture;
    const int pixels = image.GetWidth() * image.GetHeight();
    unsigned char* part = image.GetData();
    for (const unsigned char* alpha = image.GetAlpha(); alpha != image.GetAlpha() + pixels; ++alpha) {
        for (int i = 0; i < 3; ++i, ++part) {
            if (*alpha != 0)
                *part = static_cast<unsigned char>(std::min(kOpaque, *part * kOpaque / *alpha));
        }
    }
    return image;
}

class Pictures : public wxBitmapBundleImpl
{
public:
    explicit Pictures(const wxBitmapBundle& drawing) : m_drawing(drawing) {}
    wxSize GetDefaultSize() const override { return m_drawing.GetDefaultSize(); }
    wxSize GetPreferredBitmapSizeAtScale(double scale) const override
    {
        return m_drawing.GetPreferredBitmapSizeAtScale(scale);
    }
    wxBitmap GetBitmap(const wxSize& size) override
    {
        if (!m_last.IsOk() || m_last.GetSize() != size)
            m_last = Undimmed(m_drawing.GetBitmap(size));
        return m_last;
    }

private:
    wxBitmapBundle m_drawing;
    wxBitmap m_last;
};

}  // namespace

wxBitmapBundle Make(const char* svg, const wxSize& size)
{
    const wxBitmapBundle drawing = wxBitmapBundle::FromSVG(svg, size);
    if (!drawing.IsOk() || !DimsColours())
        return drawing;
    auto* const pictures = new Pictures(drawing);
    // The bundle owns it, which the analysis does not see.
    return wxBitmapBundle::FromImpl(pictures);  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)
}

}  // namespace svg_bundle
