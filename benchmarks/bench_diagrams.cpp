// SPDX-License-Identifier: MIT
#include "gui_base/report/water_diagram.h"
#include "projectbase/project/iex_project.h"

#include <benchmark/benchmark.h>

#include <cairo.h>
#include <random>
#include <string>

namespace {

using water_diagram::Kind;

constexpr int kWidth = 900;
constexpr int kHeight = 600;

std::vector<water_diagram::Water> RandomWaters(std::size_t count)
{
    std::mt19937 random(7);
    std::exponential_distribution<double> amount(0.5);
    std::vector<water_diagram::Water> waters;
    while (waters.size() < count) {
        const diagrams::WaterIons ions{.calcium = amount(random),
                                       .magnesium = amount(random),
                                       .sodium = amount(random),
                                       .potassium = amount(random),
                                       .bicarbonate = amount(random),
                                       .sulfate = amount(random),
                                       .chloride = amount(random),
                                       .nitrate = amount(random),
                                       .closingChloride = amount(random),
                                       .dissolved = 100.0 * amount(random)};
        waters.push_back({"Water " + std::to_string(waters.size() + 1), ions, waters.size()});
    }
    return waters;
}

void Draw(benchmark::State& state, Kind kind, std::size_t waters)
{
    const auto chart = water_diagram::Make({.kind = kind, .waters = RandomWaters(waters)}, {});
    chart->setSize(kWidth, kHeight);
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, kWidth, kHeight);
    cairo_t* canvas = cairo_create(surface);
    for (auto _ : state)
        chart->draw(canvas);
    cairo_destroy(canvas);
    cairo_surface_destroy(surface);
}

/// 900 x 600 pixels with titles and legend; the kinds in the order of the choice.
void BM_DrawDiagramOfFiveWaters(benchmark::State& state)
{
    Draw(state, static_cast<Kind>(state.range(0)), 5);
}
BENCHMARK(BM_DrawDiagramOfFiveWaters)
    ->ArgName("kind")
    ->DenseRange(static_cast<int>(Kind::Bars), static_cast<int>(Kind::Schoeller))
    ->Unit(benchmark::kMillisecond);

void BM_DrawPiperOfThousandWaters(benchmark::State& state)
{
    Draw(state, Kind::Piper, 1000);
}
BENCHMARK(BM_DrawPiperOfThousandWaters)->Unit(benchmark::kMillisecond);

/// From the ions to the chart with its texts.
void BM_MakeDiagramsOfFiveWaters(benchmark::State& state)
{
    const auto waters = RandomWaters(5);
    for (auto _ : state) {
        for (const Kind kind : water_diagram::kKinds)
            benchmark::DoNotOptimize(water_diagram::Make({.kind = kind, .waters = waters}, {}));
    }
}
BENCHMARK(BM_MakeDiagramsOfFiveWaters)->Unit(benchmark::kMillisecond);

void BM_IonsOfAWater(benchmark::State& state)
{
    iex::IEXProject project;
    {
        const ProjectEdit edit(project);
        DetailList& details = *project.GetLiquid(0).GetDetails();
        for (const char* ion : {"ca", "mg", "na", "hco3", "so4", "cl"})
            details.At("liquid/" + std::string(ion) + ".orig").SetValue(50.0);
        details.At("liquid/ph").SetValue(7.5);
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(diagrams::IonsOf(*project.GetLiquid(0).GetDetails()));
}
BENCHMARK(BM_IonsOfAWater)->Unit(benchmark::kMicrosecond);

}  // namespace
