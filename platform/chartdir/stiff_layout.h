// SPDX-License-Identifier: MIT
#pragma once

/// Where the figures of a Stiff chart and their texts stand. Internal to the library.

#include "chartdir/chart_head.h"
#include "chartdir/stiff_chart.h"
#include "chartdir/text.h"

#include <optional>
#include <vector>

namespace chartdir {

class StiffLayout
{
public:
    /// The chart outlives the layout.
    explicit StiffLayout(const StiffChart& chart);

    std::size_t GetShownCount() const { return m_shown; }
    /// Where the values of a figure stand, between its row names.
    Rect PlotOf(std::size_t figure) const;
    /// Height of a row in a plot.
    double RowY(const Rect& plot, std::size_t row) const;
    /// Place of a value to the right of the centre line, below 0 to the left.
    double ValueX(const Rect& plot, double value) const;
    std::vector<Point> PolygonOf(std::size_t figure) const;
    /// The half of a row on one side of the centre line, where its value is told.
    Rect HalfRow(std::size_t figure, std::size_t row, bool isLeft) const;

    void DrawFigure(cairo_t* canvas, std::size_t figure) const;
    /// Title, unit, and what had no room.
    void DrawAround(cairo_t* canvas) const;

private:
    Text MakeText(const std::string& markup, Colour colour) const;
    void SetTicks();
    void PlaceCells(double width, double height);
    Rect CellOf(std::size_t figure) const;
    void DrawAxis(cairo_t* canvas, const Rect& plot) const;

    const StiffChart& m_chart;
    const Theme& m_theme;
    TextContext m_context;
    ChartHead m_head;
    Scale m_scale;
    std::vector<Text> m_leftNames;
    std::vector<Text> m_rightNames;
    std::vector<std::pair<double, Text>> m_ticks;  ///< value and number
    std::optional<Text> m_axisTitle;
    std::optional<Text> m_more;
    double m_left = 0.0;   ///< of the row names, in a cell
    double m_right = 0.0;  ///< the same at the other side
    double m_line = 0.0;   ///< height of a line of text
    double m_top = 0.0;
    double m_cellWidth = 0.0;
    double m_cellHeight = 0.0;
    std::size_t m_columns = 1;
    std::size_t m_shown = 0;
};

}  // namespace chartdir
