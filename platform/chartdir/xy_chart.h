// SPDX-License-Identifier: MIT
#pragma once

#include "chartdir/axis.h"
#include "chartdir/base_chart.h"
#include "chartdir/layers.h"
#include "chartdir/segment_layer.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace chartdir {

/// What a chart spans altogether, whatever part of it is in view.
struct FullScales
{
    Scale x;
    Scale y;
};

/// A chart with an abscissa and an ordinate: layers of curves, areas and bars in a plot area, a legend above
/// it. The plot area takes what titles, legend and the numbers at the axes leave over, unless it is set.
class CHARTDIR_EXPORT XYChart : public BaseChart
{
public:
    XYChart(int width, int height) : BaseChart(width, height) {}

    Axis& xAxis() { return m_xAxis; }
    const Axis& xAxis() const { return m_xAxis; }
    Axis& yAxis() { return m_yAxis; }
    const Axis& yAxis() const { return m_yAxis; }

    /// The references last as long as the chart.
    LineLayer& addLineLayer();
    AreaLayer& addAreaLayer();
    BarLayer& addBarLayer(BarMode mode = BarMode::Side);
    SegmentLayer& addSegmentLayer();
    const std::vector<std::unique_ptr<Layer>>& getLayers() const { return m_layers; }

    void setPlotArea(const Rect& area) { m_plotArea = area; }
    void setLegend(bool isShown) { m_hasLegend = isShown; }
    /// Stands in the plot area when no value can be plotted.
    void setNoDataText(std::string markup) { m_noDataText = std::move(markup); }
    const std::string& getNoDataText() const { return m_noDataText; }
    /// Whether there is a value that its axes have a place for.
    bool hasData() const;

    /// Between values and pixels, as the chart is drawn.
    Mapping getMapping() const;
    FullScales getFullScales() const;
    ImageMap getImageMap() const override;

protected:
    void DoDraw(cairo_t* canvas) const override;

private:
    template <typename NewLayer>
    NewLayer& Add(std::unique_ptr<NewLayer> layer);
    struct Ranges
    {
        DataRange x;
        DataRange y;
    };
    Ranges GetRanges() const;
    void DrawLayers(cairo_t* canvas, const Mapping& mapping) const;

    Axis m_xAxis;
    Axis m_yAxis;
    std::vector<std::unique_ptr<Layer>> m_layers;
    std::optional<Rect> m_plotArea;
    bool m_hasLegend = true;
    std::string m_noDataText;
};

}  // namespace chartdir
