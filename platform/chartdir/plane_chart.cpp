// SPDX-License-Identifier: MIT
#include "chartdir/plane_chart.h"

#include "chartdir/plane_layout.h"
#include "chartdir/strokes.h"

#include <algorithm>

namespace chartdir {

bool PlaneChart::hasData() const
{
    return std::ranges::any_of(m_series, [](const Series& series) { return !series.spots.empty(); });
}

Point PlaneChart::toPixel(Point place) const
{
    return PlaneLayout(*this).ToPixel(place);
}

void PlaneChart::DoDraw(cairo_t* canvas) const
{
    const PlaneLayout layout(*this);
    const auto moveTo = [&](Point place) {
        const Point at = layout.ToPixel(place);
        cairo_move_to(canvas, at.x, at.y);
    };
    const auto lineTo = [&](Point place) {
        const Point at = layout.ToPixel(place);
        cairo_line_to(canvas, at.x, at.y);
    };
    cairo_set_line_width(canvas, 1.0);
    for (const Line& line : m_grid) {
        moveTo(line.from);
        lineTo(line.to);
    }
    SetColour(canvas, getTheme().grid);
    cairo_stroke(canvas);
    for (const auto& frame : m_frames) {
        for (std::size_t i = 0; i < frame.size(); ++i)
            i == 0 ? moveTo(frame[i]) : lineTo(frame[i]);
        cairo_close_path(canvas);
    }
    SetColour(canvas, getTheme().ink);
    cairo_stroke(canvas);
    layout.DrawTexts(canvas);
    for (const Series& series : m_series) {
        for (const Spot& spot : series.spots)
            DrawMarker(canvas, series.style.marker, layout.ToPixel(spot.at), spot.size, series.style.colour);
    }
    if (!m_noDataText.empty() && !hasData())
        layout.DrawInMiddle(canvas, m_noDataText);
}

ImageMap PlaneChart::getImageMap() const
{
    ImageMap map{.mapping = {}, .separators = getSeparators()};
    const PlaneLayout layout(*this);
    for (const Series& series : m_series) {
        map.series.push_back(series.name);
        for (const Spot& spot : series.spots) {
            const Point at = layout.ToPixel(spot.at);
            map.spots.push_back({.series = map.series.size() - 1, .from = at, .to = at, .text = spot.tip});
        }
    }
    return map;
}

}  // namespace chartdir
