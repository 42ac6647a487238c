// SPDX-License-Identifier: MIT
// The whole evaluation of a water: verdict, numbers, saturation and advice. Aim: at most 0.5 ms.
#include "projectbase/advice/balance_judgement.h"
#include "projectbase/advice/saturation.h"
#include "projectbase/advice/water_advice.h"
#include "projectbase/advice/water_numbers.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/project/project_edit.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

namespace {

/// A hard groundwater with everything that a rule looks at, ahead of a plant or of none.
std::unique_ptr<iex::IEXProject> MakeProject(const char* type)
{
    auto project = std::make_unique<iex::IEXProject>(type);
    const ProjectEdit edit(*project);
    DetailList& water = *project->GetLiquid(0).GetDetails();
    for (const auto& [ion, amount] : {std::pair("ca", 134.0),
                                      {"mg", 26.3},
                                      {"na", 15.6},
                                      {"k", 4.17},
                                      {"sr", 0.5},
                                      {"ba", 0.08},
                                      {"hco3", 339.0},
                                      {"so4", 190.0},
                                      {"cl", 7.8},
                                      {"f", 0.1},
                                      {"sio2", 21.8}})
        water.At(std::string("liquid/") + ion + ".orig").SetValue(amount);
    water.At("liquid/ph").SetValue(7.84);
    water.At("liquid/fe.total").SetValue(0.5);
    water.At("liquid/toc").SetValue(5.0);
    project->GetDetails().At("project/qbrutto").SetValue(30.0);
    project->GetDetails().At("project/lz").SetValue(12.0);
    return project;
}

void SaturationOfAWater(benchmark::State& state)
{
    const auto project = MakeProject("iex");
    for (auto _ : state)
        benchmark::DoNotOptimize(advice::SaturationOf(*project->GetLiquid(0).GetDetails()));
}
BENCHMARK(SaturationOfAWater)->Unit(benchmark::kMicrosecond);

void EvaluateWater(benchmark::State& state, const char* type)
{
    const auto project = MakeProject(type);
    const LiquidData& water = project->GetLiquid(0);
    for (auto _ : state) {
        const DetailList& details = *water.GetDetails();
        benchmark::DoNotOptimize(advice::JudgeBalance(details, advice::ChosenBalanceRule()));
        const advice::WaterNumbers numbers = advice::NumbersOf(details);
        benchmark::DoNotOptimize(advice::LoadsOfDay(numbers, advice::VolumeOfDay(*project)));
        benchmark::DoNotOptimize(advice::AdviceOn(*project, water, numbers, advice::SaturationOf(details)));
    }
}
BENCHMARK_CAPTURE(EvaluateWater, alone, "iex")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(EvaluateWater, ahead_of_a_plant, "DEMI")->Unit(benchmark::kMicrosecond);

}  // namespace
