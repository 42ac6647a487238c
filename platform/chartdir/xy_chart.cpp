// SPDX-License-Identifier: MIT
#include "chartdir/xy_chart.h"

#include "chartdir/surface.h"
#include "chartdir/xy_layout.h"

namespace chartdir {

template <typename NewLayer>
NewLayer& XYChart::Add(std::unique_ptr<NewLayer> layer)
{
    NewLayer& added = *layer;
    m_layers.push_back(std::move(layer));
    return added;
}

LineLayer& XYChart::addLineLayer()
{
    return Add(std::make_unique<LineLayer>());
}

AreaLayer& XYChart::addAreaLayer()
{
    return Add(std::make_unique<AreaLayer>());
}

BarLayer& XYChart::addBarLayer(BarMode mode)
{
    return Add(std::make_unique<BarLayer>(mode));
}

SegmentLayer& XYChart::addSegmentLayer()
{
    return Add(std::make_unique<SegmentLayer>());
}

XYChart::Ranges XYChart::GetRanges() const
{
    Ranges ranges;
    for (const auto& layer : m_layers)
        layer->Extend(ranges.x, ranges.y);
    return ranges;
}

bool XYChart::hasData() const
{
    const Ranges ranges = GetRanges();
    const auto canBePlotted = [](const DataRange& range, const Axis& axis) {
        return !range.IsEmpty() && (!axis.isLog() || range.leastPositive > 0.0);
    };
    return canBePlotted(ranges.x, m_xAxis) && canBePlotted(ranges.y, m_yAxis);
}

FullScales XYChart::getFullScales() const
{
    const Ranges ranges = GetRanges();
    return {m_xAxis.getFullScale(ranges.x), m_yAxis.getFullScale(ranges.y)};
}

Mapping XYChart::getMapping() const
{
    const Ranges ranges = GetRanges();
    return XYLayout(*this, m_xAxis.getScale(ranges.x), m_yAxis.getScale(ranges.y), m_hasLegend, m_plotArea)
        .GetMapping();
}

void XYChart::DrawLayers(cairo_t* canvas, const Mapping& mapping) const
{
    cairo_save(canvas);
    // Half of a line at the edge belongs to the picture, too.
    cairo_rectangle(canvas, mapping.plot.x - 1.0, mapping.plot.y - 1.0, mapping.plot.width + 2.0,
                    mapping.plot.height + 2.0);
    cairo_clip(canvas);
    cairo_new_path(canvas);
    for (const auto& layer : m_layers)
        layer->Draw(canvas, mapping, getTheme());
    cairo_restore(canvas);
}

void XYChart::DoDraw(cairo_t* canvas) const
{
    const Ranges ranges = GetRanges();
    const XYLayout layout(*this, m_xAxis.getScale(ranges.x), m_yAxis.getScale(ranges.y), m_hasLegend,
                          m_plotArea);
    layout.DrawGrid(canvas);
    DrawLayers(canvas, layout.GetMapping());
    layout.DrawAround(canvas);
    if (!m_noDataText.empty() && !hasData())
        layout.DrawInMiddle(canvas, m_noDataText);
}

ImageMap XYChart::getImageMap() const
{
    ImageMap map{.mapping = getMapping(),
                 .xLabels = m_xAxis.getLabels(),
                 .xTitle = m_xAxis.getTitle(),
                 .yTitle = m_yAxis.getTitle(),
                 .separators = getSeparators()};
    for (const auto& layer : m_layers)
        layer->AddHotSpots(map);
    return map;
}

}  // namespace chartdir
