// SPDX-License-Identifier: MIT
#pragma once

/// Where the parts of a chart with two axes stand. Internal to the library.

#include "chartdir/chart_head.h"
#include "chartdir/text.h"
#include "chartdir/xy_chart.h"

#include <vector>

namespace chartdir {

struct TickLabel
{
    double pixel = 0.0;  ///< along its axis
    int row = 0;         ///< below it, counted from 0
    Text text;
};

/// All texts are set once, for measuring and for drawing.
class XYLayout
{
public:
    /// `xScale` and `yScale` are what is in view. The chart outlives the layout.
    XYLayout(const XYChart& chart, const Scale& xScale, const Scale& yScale, bool hasLegend,
             const std::optional<Rect>& plotArea);

    const Mapping& GetMapping() const { return m_mapping; }
    void DrawGrid(cairo_t* canvas) const;
    /// Axes, numbers, titles and legend.
    void DrawAround(cairo_t* canvas) const;
    void DrawInMiddle(cairo_t* canvas, const std::string& markup) const;

private:
    void AddLegend();
    void SetTicks(const Axis& axis, const Scale& scale, double length, double room,
                  std::vector<TickLabel>& labels);
    void SetNames(const Axis& axis, const Scale& scale, double length, std::vector<TickLabel>& labels);
    /// Ticks, numbers or names, and the title of the abscissa.
    void DrawBelow(cairo_t* canvas) const;
    /// Rows that the names below the abscissa take.
    int RowsOfNames() const;
    void PlaceTicks();
    Text MakeText(const std::string& markup, const TextStyle& style) const
    {
        return {m_context, markup, style};
    }

    const XYChart& m_chart;
    const Theme& m_theme;
    TextContext m_context;
    ChartHead m_head;
    Mapping m_mapping;
    std::optional<Text> m_xTitle;
    std::optional<Text> m_yTitle;
    int m_nameRows = 1;
    double m_lineHeight = 0.0;
    std::vector<TickLabel> m_xLabels;
    std::vector<TickLabel> m_yLabels;
};

}  // namespace chartdir
