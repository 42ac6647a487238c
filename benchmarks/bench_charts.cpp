// SPDX-License-Identifier: MIT
#include "chartdir/view_port_manager.h"
#include "gui_base/report/resin_chart.h"
#include "projectbase/project/iex_project.h"

#include <benchmark/benchmark.h>

#include <cairo.h>
#include <cmath>
#include <memory>

namespace {

/// A picture to draw on, as a screen has one.
class Canvas
{
public:
    Canvas()
        : m_surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, 900, 600)),
          m_canvas(cairo_create(m_surface))
    {}
    ~Canvas()
    {
        cairo_destroy(m_canvas);
        cairo_surface_destroy(m_surface);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    cairo_t* Get() const { return m_canvas; }

private:
    cairo_surface_t* m_surface;
    cairo_t* m_canvas;
};

resin_chart::Contents UsualContents()
{
    resin_chart::Contents contents{.resin = design::FindResin("sac_gel"), .end = 120.0};
    for (const Temperature& temperature : resin_chart::UsualTemperatures())
        contents.parameters.emplace_back(temperature);
    return contents;
}

std::unique_ptr<chartdir::XYChart> MillionPoints()
{
    constexpr std::size_t kCount = 1'000'000;
    auto chart = std::make_unique<chartdir::XYChart>(900, 600);
    std::vector<double> xs(kCount);
    std::vector<double> ys(kCount);
    for (std::size_t i = 0; i < kCount; ++i) {
        xs[i] = static_cast<double>(i);
        ys[i] = std::sin(xs[i] * 0.01) + 0.1 * std::sin(xs[i] * 1.7);
    }
    chartdir::LineLayer& layer = chart->addLineLayer();
    layer.setXData(std::move(xs));
    layer.addDataSet(std::move(ys), "signal", 0);
    return chart;
}

/// 900 x 600 pixels with 5 curves of 201 points each, titles and a legend.
void BM_DrawChart(benchmark::State& state)
{
    const iex::IEXProject project;
    const auto chart = resin_chart::Make(UsualContents(), project, {});
    const Canvas canvas;
    for (auto _ : state)
        chart->draw(canvas.Get());
}
BENCHMARK(BM_DrawChart)->Unit(benchmark::kMillisecond);

/// From what was chosen to the chart: its curves are calculated.
void BM_MakeResinChart(benchmark::State& state)
{
    const iex::IEXProject project;
    for (auto _ : state)
        benchmark::DoNotOptimize(resin_chart::Make(UsualContents(), project, {}));
}
BENCHMARK(BM_MakeResinChart)->Unit(benchmark::kMillisecond);

void BM_DrawAMillionPoints(benchmark::State& state)
{
    const auto chart = MillionPoints();
    const Canvas canvas;
    for (auto _ : state)
        chart->draw(canvas.Get());
}
BENCHMARK(BM_DrawAMillionPoints)->Unit(benchmark::kMillisecond);

/// A turn of the wheel, until the chart is drawn and knows what is under the pointer.
void BM_ZoomStep(benchmark::State& state)
{
    const iex::IEXProject project;
    const auto chart = resin_chart::Make(UsualContents(), project, {});
    const Canvas canvas;
    chartdir::ViewPortManager view;
    view.setPlotArea(chart->getMapping().plot);
    double factor = 0.8;
    for (auto _ : state) {
        if (!view.zoomAt(450.0, 300.0, factor) || !view.canZoomIn())
            factor = 1.0 / factor;
        view.syncAxes(*chart);
        view.setPlotArea(chart->getMapping().plot);
        chart->draw(canvas.Get());
        benchmark::DoNotOptimize(chart->getImageMap());
    }
}
BENCHMARK(BM_ZoomStep)->Unit(benchmark::kMillisecond);

void BM_ExportChart(benchmark::State& state)
{
    const iex::IEXProject project;
    const auto chart = resin_chart::Make(UsualContents(), project, {});
    const auto format = static_cast<chartdir::ImageFormat>(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(chart->makeChart2(format));
}
BENCHMARK(BM_ExportChart)
    ->ArgName("format")
    ->DenseRange(static_cast<int>(chartdir::ImageFormat::Png), static_cast<int>(chartdir::ImageFormat::Pdf))
    ->Unit(benchmark::kMillisecond);

}  // namespace
