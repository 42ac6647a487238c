// SPDX-License-Identifier: MIT
#include "chartdir/stiff_layout.h"

#include "chartdir/strokes.h"
#include "chartdir/tick_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace chartdir {

namespace {

constexpr double kGap = 4.0;
// What a figure needs beside its names and numbers.
constexpr double kLeastPlotWidth = 60.0;
constexpr double kLeastRow = 14.0;
// How wide a figure looks best for its height.
constexpr double kShape = 1.8;
constexpr double kTickDistance = 30.0;
constexpr int kMostTicks = 5;  // from 0 to the end of one side

}  // namespace

StiffLayout::StiffLayout(const StiffChart& chart)
    : m_chart(chart), m_theme(chart.getTheme()), m_head(m_context, chart), m_scale(chart.getScale())
{
    for (const StiffChart::RowNames& names : chart.getRows()) {
        m_leftNames.push_back(MakeText(names.left, m_theme.ink));
        m_rightNames.push_back(MakeText(names.right, m_theme.ink));
        m_left = std::max(m_left, m_leftNames.back().Width() + kGap);
        m_right = std::max(m_right, m_rightNames.back().Width() + kGap);
    }
    m_line = MakeText("0", m_theme.ink).Height();
    m_top = chart.getTitle().empty() ? m_head.Margin() : m_head.Bottom();
    double bottom = m_head.Margin();
    if (!chart.getAxisTitle().empty()) {
        m_axisTitle = MakeText(chart.getAxisTitle(), m_theme.ink);
        bottom += m_axisTitle->Height();
    }
    PlaceCells(chart.getWidth() - 2.0 * m_head.Margin(), chart.getHeight() - m_top - bottom);
    SetTicks();
    if (m_shown < chart.getFigures().size())
        m_more = MakeText(fmt::format("\u2026 +{}", chart.getFigures().size() - m_shown), m_theme.ink);
}

void StiffLayout::SetTicks()
{
    const double half = (m_cellWidth - m_left - m_right) / 2.0 - kGap;
    Ticks ticks = TicksOf(m_scale, std::clamp(static_cast<int>(half / kTickDistance) + 1, 2, kMostTicks));
    if (ticks.values.size() < 2)
        // No round step has room: where it ends.
        ticks = {{m_scale.lower, m_scale.upper}, TicksOf(m_scale, kMostTicks).step};
    for (const double value : ticks.values) {
        const std::string number = TickText(value, ticks, m_chart.getSeparators());
        m_ticks.emplace_back(value, MakeText(number, m_theme.muted));
        if (value > 0.0)
            m_ticks.emplace_back(-value, MakeText(number, m_theme.muted));
    }
    std::ranges::sort(m_ticks, {}, [](const auto& tick) { return tick.first; });
}

Text StiffLayout::MakeText(const std::string& markup, Colour colour) const
{
    return {m_context, markup, {.size = m_head.TextSize(), .colour = colour}};
}

void StiffLayout::PlaceCells(double width, double height)
{
    const std::size_t count = std::max<std::size_t>(m_chart.getFigures().size(), 1);
    const auto rows = static_cast<double>(std::max<std::size_t>(m_chart.getRows().size(), 1));
    const double leastWidth = m_left + m_right + kLeastPlotWidth + 2.0 * kGap;
    const double leastHeight = 2.0 * (m_line + kGap) + kGap + rows * std::max(kLeastRow, m_line);
    const auto room = [](double length, double least) {
        return static_cast<std::size_t>(std::max(std::floor(length / least), 1.0));
    };
    const std::size_t mostColumns = std::min(room(width, leastWidth), count);
    const std::size_t mostRows = room(height, leastHeight);
    m_shown = std::min(m_chart.getFigures().size(), mostColumns * mostRows);
    const std::size_t shown = std::max<std::size_t>(m_shown, 1);
    double best = 0.0;
    for (std::size_t columns = 1; columns <= mostColumns; ++columns) {
        const std::size_t lines = (shown + columns - 1) / columns;
        const double cellWidth = width / static_cast<double>(columns);
        const double cellHeight = height / static_cast<double>(lines);
        const double size = std::min(cellWidth / kShape, cellHeight);
        if (lines > mostRows || size <= best)
            continue;
        best = size;
        m_columns = columns;
        m_cellWidth = cellWidth;
        m_cellHeight = cellHeight;
    }
}

Rect StiffLayout::CellOf(std::size_t figure) const
{
    if (figure >= m_shown)
        throw std::out_of_range("StiffLayout::CellOf: the figure has no room");
    const std::size_t line = figure / m_columns;
    return {m_head.Margin() + static_cast<double>(figure % m_columns) * m_cellWidth,
            m_top + static_cast<double>(line) * m_cellHeight, m_cellWidth, m_cellHeight};
}

Rect StiffLayout::PlotOf(std::size_t figure) const
{
    const Rect cell = CellOf(figure);
    const double head = m_line + kGap;
    // The numbers stand below.
    return {cell.x + kGap + m_left, cell.y + head, std::max(cell.width - m_left - m_right - 2.0 * kGap, 1.0),
            std::max(cell.height - 2.0 * head - kGap, 1.0)};
}

double StiffLayout::RowY(const Rect& plot, std::size_t row) const
{
    const auto rows = static_cast<double>(std::max<std::size_t>(m_chart.getRows().size(), 1));
    return plot.y + (static_cast<double>(row) + 0.5) * plot.height / rows;
}

double StiffLayout::ValueX(const Rect& plot, double value) const
{
    return plot.x + plot.width / 2.0 * (1.0 + value / m_scale.upper);
}

std::vector<Point> StiffLayout::PolygonOf(std::size_t figure) const
{
    const Rect plot = PlotOf(figure);
    const auto& rows = m_chart.getFigures()[figure].rows;
    const std::size_t count = std::min(rows.size(), m_chart.getRows().size());
    std::vector<Point> points;
    for (std::size_t row = count; row-- > 0;)
        points.push_back({ValueX(plot, -rows[row].left), RowY(plot, row)});
    for (std::size_t row = 0; row < count; ++row)
        points.push_back({ValueX(plot, rows[row].right), RowY(plot, row)});
    return points;
}

Rect StiffLayout::HalfRow(std::size_t figure, std::size_t row, bool isLeft) const
{
    const Rect plot = PlotOf(figure);
    const double height =
        m_chart.getRows().empty() ? plot.height : plot.height / static_cast<double>(m_chart.getRows().size());
    const double middle = plot.x + plot.width / 2.0;
    return {isLeft ? plot.x : middle, RowY(plot, row) - height / 2.0, plot.width / 2.0, height};
}

void StiffLayout::DrawAxis(cairo_t* canvas, const Rect& plot) const
{
    double drawnTo = -1e9;
    const Rect room{plot.x - m_left, plot.y, plot.width + m_left + m_right, plot.height};
    for (const auto& [value, number] : m_ticks) {
        const double x = ValueX(plot, value);
        DrawHairline(canvas, {x, plot.y}, {x, plot.Bottom()}, value == 0.0 ? m_theme.ink : m_theme.grid);
        const double width = number.Width();
        const double left = std::clamp(x - width / 2.0, room.x, std::max(room.Right() - width, room.x));
        if (left < drawnTo + kGap)
            continue;
        drawnTo = left + width;
        number.Draw(canvas, {left, plot.Bottom() + kGap / 2.0});
    }
}

void StiffLayout::DrawFigure(cairo_t* canvas, std::size_t figure) const
{
    const Rect cell = CellOf(figure);
    const Rect plot = PlotOf(figure);
    DrawAxis(canvas, plot);
    for (std::size_t row = 0; row < m_leftNames.size(); ++row) {
        const double y = RowY(plot, row) - m_line / 2.0;
        const Text& left = m_leftNames[row];
        left.Draw(canvas, {plot.x - kGap - left.Width(), y});
        m_rightNames[row].Draw(canvas, {plot.Right() + kGap, y});
    }
    Text name = MakeText(m_chart.getFigures()[figure].name, m_theme.ink);
    name.Shorten(cell.width - 2.0 * kGap);
    name.Draw(canvas, {cell.x + (cell.width - name.Width()) / 2.0, cell.y});
}

void StiffLayout::DrawAround(cairo_t* canvas) const
{
    m_head.Draw(canvas);
    const double width = m_chart.getWidth();
    const double y = m_chart.getHeight() - m_head.Margin() - m_line;
    if (m_axisTitle)
        m_axisTitle->Draw(canvas, {(width - m_axisTitle->Width()) / 2.0, y});
    if (m_more)
        m_more->Draw(canvas, {width - m_head.Margin() - m_more->Width(), y});
}

}  // namespace chartdir
