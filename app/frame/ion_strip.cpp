// SPDX-License-Identifier: MIT
#include "app/frame/ion_strip.h"

#include "gui_base/report/water_diagram.h"

#include <wx/image.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace app {
namespace {

double SumOf(const std::vector<water_diagram::BarPiece>& pieces)
{
    double sum = 0.0;
    for (const water_diagram::BarPiece& piece : pieces)
        sum += piece.meq;
    return sum;
}

/// Fills the rows from `top` to `bottom`; the longest of both bars is as wide as the picture.
void DrawBar(wxImage& picture, const std::vector<water_diagram::BarPiece>& pieces, double longest, int top,
             int bottom)
{
    double begun = 0.0;
    for (const water_diagram::BarPiece& piece : pieces) {
        const auto at = [&](double meq) {
            return static_cast<int>(std::lround(meq / longest * picture.GetWidth()));
        };
        const int left = at(begun);
        begun += piece.meq;
        const wxRect rect(left, top, at(begun) - left, bottom - top);
        if (rect.width <= 0)
            continue;
        picture.SetRGB(rect, piece.colour.red, piece.colour.green, piece.colour.blue);
        for (int y = rect.y; y <= rect.GetBottom(); ++y)
            std::fill_n(picture.GetAlpha() + y * picture.GetWidth() + rect.x, rect.width,
                        wxIMAGE_ALPHA_OPAQUE);
    }
}

}  // namespace

wxBitmap IonStrip(const DetailList& water, const wxSize& size)
{
    wxImage picture(size);
    picture.InitAlpha();
    std::fill_n(picture.GetAlpha(), size.x * size.y, wxIMAGE_ALPHA_TRANSPARENT);
    const water_diagram::BarPieces pieces = water_diagram::PiecesOf(diagrams::IonsOf(water));
    const double longest = std::max(SumOf(pieces.cations), SumOf(pieces.anions));
    if (longest > 0.0 && std::isfinite(longest)) {
        const int margin = size.y / 8;
        const int middle = size.y / 2;
        DrawBar(picture, pieces.cations, longest, margin, middle - 1);
        DrawBar(picture, pieces.anions, longest, middle + 1, size.y - margin);
    }
    return {picture};
}

}  // namespace app
