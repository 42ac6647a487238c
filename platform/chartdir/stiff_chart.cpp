// SPDX-License-Identifier: MIT
#include "chartdir/stiff_chart.h"

#include "chartdir/stiff_layout.h"
#include "chartdir/strokes.h"

#include <algorithm>

namespace chartdir {

namespace {

DataRange RangeOf(const std::vector<StiffChart::Figure>& figures)
{
    DataRange range;
    for (const StiffChart::Figure& figure : figures) {
        for (const StiffChart::RowValues& row : figure.rows) {
            range.Add(row.left);
            range.Add(row.right);
        }
    }
    return range;
}

}  // namespace

bool StiffChart::hasData() const
{
    const DataRange range = RangeOf(m_figures);
    return !range.IsEmpty() && range.greatest > 0.0;
}

Scale StiffChart::getScale() const
{
    if (!hasData())
        return {};
    DataRange range = RangeOf(m_figures);
    range.Add(0.0);
    return {0.0, ScaleAround(range, false).upper, false};
}

std::size_t StiffChart::getShownCount() const
{
    return StiffLayout(*this).GetShownCount();
}

std::vector<Point> StiffChart::getPolygon(std::size_t figure) const
{
    return StiffLayout(*this).PolygonOf(figure);
}

void StiffChart::DoDraw(cairo_t* canvas) const
{
    constexpr double kOpacity = 0.3;
    constexpr double kLineWidth = 1.8;
    const StiffLayout layout(*this);
    for (std::size_t i = 0; i < layout.GetShownCount(); ++i) {
        layout.DrawFigure(canvas, i);
        cairo_new_path(canvas);
        for (const Point& point : layout.PolygonOf(i))
            cairo_line_to(canvas, point.x, point.y);
        cairo_close_path(canvas);
        SetColour(canvas, m_figures[i].style.colour.WithAlpha(kOpacity));
        cairo_fill_preserve(canvas);
        StrokeWith(canvas, {.colour = m_figures[i].style.colour}, kLineWidth);
    }
    layout.DrawAround(canvas);
    if (m_noDataText.empty() || hasData())
        return;
    const TextContext context;
    Text text(context, m_noDataText, {.size = 12.0, .colour = getTheme().muted});
    text.DrawWithin(canvas, {0.0, 0.0, static_cast<double>(getWidth()), static_cast<double>(getHeight())});
}

ImageMap StiffChart::getImageMap() const
{
    ImageMap map{.mapping = {}, .separators = getSeparators()};
    const StiffLayout layout(*this);
    for (std::size_t i = 0; i < layout.GetShownCount(); ++i) {
        map.series.push_back(m_figures[i].name);
        const std::size_t count = std::min(m_figures[i].rows.size(), m_rows.size());
        for (std::size_t row = 0; row < count; ++row) {
            for (const bool isLeft : {true, false}) {
                const StiffChart::RowValues& values = m_figures[i].rows[row];
                const Rect half = layout.HalfRow(i, row, isLeft);
                map.spots.push_back({.shape = HotSpot::Shape::Bar,
                                     .series = i,
                                     .from = {half.x, half.y},
                                     .to = {half.Right(), half.Bottom()},
                                     .value = isLeft ? values.left : values.right,
                                     .text = isLeft ? values.leftTip : values.rightTip});
            }
        }
    }
    return map;
}

}  // namespace chartdir
