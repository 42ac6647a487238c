// SPDX-License-Identifier: MIT
// Searches for a value of a designed plant, and variants of it.
#include "projectbase/project/iex_project.h"
#include "projectbase/whatif/what_if.h"

#include <benchmark/benchmark.h>

namespace {

/// 20 m³/h of a hard water for 12 h.
std::unique_ptr<iex::IEXProject> MakePlant()
{
    auto project = std::make_unique<iex::IEXProject>("DEMI");
    const ProjectEdit edit(*project);
    DetailList& water = *project->GetLiquid(0).GetDetails();
    for (const auto& [ion, value] : {std::pair("ca", 80.0), {"na", 46.0}, {"cl", 106.0}, {"hco3", 183.0}})
        water.At(std::string("liquid/") + ion + ".orig").SetValue(value);
    project->GetDetails().At("project/qbrutto").SetValue(20.0);
    project->GetDetails().At("project/lz").SetValue(12.0);
    return project;
}

/// The flow for a resin volume; "designs" says how many were calculated for it.
void BM_WhatIfOfAPlant(benchmark::State& state)
{
    const auto project = MakePlant();
    DetailData& flow = project->GetDetails().At("project/qbrutto");
    DetailData& volume = project->FindOwner("ex.1.comp.1.resin.1")->GetDetails()->At("compcomp/vol");
    const double wanted[] = {volume.GetDoubleValue() * 50.0, volume.GetDoubleValue()};
    WhatIf whatIf(*project);
    std::size_t turn = 0;
    double designs = 0.0;
    for (auto _ : state) {
        bool ok = false;
        const double deviation = whatIf.Calculate(&flow, &volume, wanted[turn++ % 2], 1000, ok);
        if (!ok || deviation > WhatIf::kTolerance)
            state.SkipWithError("not found");
        designs += whatIf.GetRuns();
    }
    state.counters["designs"] = benchmark::Counter(designs, benchmark::Counter::kAvgIterations);
}
BENCHMARK(BM_WhatIfOfAPlant)->Unit(benchmark::kMillisecond);

/// One that there is not: a search that uses up its trials.
void BM_WhatIfInVain(benchmark::State& state)
{
    const auto project = MakePlant();
    DetailData& diameter = project->FindOwner("ex.1")->GetDetails()->At("step/diameter");
    DetailData& pressure = project->FindOwner("ex.1")->GetDetails()->At("step/dp");
    WhatIf whatIf(*project);
    double designs = 0.0;
    for (auto _ : state) {
        bool ok = false;
        benchmark::DoNotOptimize(whatIf.Calculate(&diameter, &pressure, -1.0, 1000, ok));
        designs += whatIf.GetRuns();
    }
    state.counters["designs"] = benchmark::Counter(designs, benchmark::Counter::kAvgIterations);
}
BENCHMARK(BM_WhatIfInVain)->Unit(benchmark::kMillisecond);

/// A copy of a plant with another flow, calculated.
void BM_VariantOfAPlant(benchmark::State& state)
{
    const auto project = MakePlant();
    double flow = 20.0;
    for (auto _ : state) {
        const auto copy = project->Clone();
        copy->GetDetails().At("project/qbrutto").SetValue(flow += 0.001);
        benchmark::DoNotOptimize(copy->GetDetails().At("project/wnetto").GetDoubleValue());
    }
}
BENCHMARK(BM_VariantOfAPlant)->Unit(benchmark::kMicrosecond);

}  // namespace
