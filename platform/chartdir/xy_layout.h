// SPDX-License-Identifier: MIT
#pragma once

/// Where the parts of a chart with two axes stand. Internal to the library.

#include "chartdir/text.h"
#include "chartdir/xy_chart.h"

#include <vector>

namespace chartdir {

struct TickLabel
{
    double pixel = 0.0;  ///< along its axis
    Text text;
};

struct LegendEntry
{
    const Layer* layer;
    const DataSet* set;
    Point place;
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
    /// Heights above the plot area: title and legend.
    double SetHead(bool hasLegend);
    void SetLegend(double& y);
    void SetTicks(const Axis& axis, const Scale& scale, double length, double room,
                  std::vector<TickLabel>& labels);
    void PlaceTicks();
    std::string NumberText(double value, const Ticks& ticks) const;
    Text MakeText(const std::string& markup, const TextStyle& style) const
    {
        return {m_context, markup, style};
    }

    const XYChart& m_chart;
    const Theme& m_theme;
    TextContext m_context;
    Mapping m_mapping;
    std::optional<Text> m_title;
    std::optional<Text> m_xTitle;
    std::optional<Text> m_yTitle;
    std::vector<LegendEntry> m_legend;
    std::vector<TickLabel> m_xLabels;
    std::vector<TickLabel> m_yLabels;
};

}  // namespace chartdir
