// SPDX-License-Identifier: MIT
// The share of the chemistry in one edit of a water analysis, and of its costliest parts.
#include "dbinterfaces/master_database.h"
#include "projectbase/water/alkalization.h"
#include "projectbase/water/carbonic_acid.h"
#include "projectbase/water/conductivity.h"
#include "projectbase/water/liquid_data.h"
#include "projectbase/water/normalization.h"
#include "projectbase/water/short_analysis.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>

namespace {

/// A groundwater with every pair-forming ion, typed in mg/l.
void TypeGroundwater(DetailList& liquid)
{
    struct Typed
    {
        const char* ion;
        double mgPerLitre;
    };
    for (const auto& typed : {Typed{"na", 733.14},
                              {"ca", 452.08},
                              {"mg", 110.34},
                              {"k", 99.31},
                              {"cl", 632.78},
                              {"so4", 1907.8},
                              {"co3", 2.0},
                              {"hco3", 305.6},
                              {"sio2", 20.0}})
        liquid.At("liquid/" + std::string(typed.ion) + ".orig").SetValue(typed.mgPerLitre);
    liquid.At("liquid/temp.orig").SetValue(15.0);
    liquid.At("liquid/ph").SetValue(7.2);
    liquid.At("liquid/balance.auto").SetValue(true);
    liquid.At("liquid/calculate.co2").SetValue(true);
}

water::Composition GypsumWater()
{
    water::Composition composition;
    composition[water::Species::Ca] = 10.0;
    composition[water::Species::Mg] = 5.0;
    composition[water::Species::Na] = 10.0;
    composition[water::Species::So4] = 15.0;
    composition[water::Species::Hco3] = 10.0;
    return composition;
}

/// Aim: at most 20 µs.
void Co2OfAWater(benchmark::State& state)
{
    double pH = 7.0;
    for (auto _ : state) {
        const water::CarbonicEquilibrium acid(pH = pH < 8.0 ? pH + 1e-4 : 7.0, 15.0, 0.01);
        benchmark::DoNotOptimize(acid.Co2FromBicarbonate(2.0));
    }
}

void AlkalizedToPh(benchmark::State& state)
{
    const auto agents = MasterDatabase::GetAlkalizingAgents();
    const auto& ammonia =
        *std::find_if(agents.begin(), agents.end(), [](const auto& agent) { return agent.key == "nh3"; });
    const water::CarbonateWater start = water::WaterFromPh(
        {.pH = 7.0, .celsius = 15.0, .carbonateAlkalinity = 2.0, .backgroundStrength = 0.005});
    for (auto _ : state)
        benchmark::DoNotOptimize(water::DoseToPh(start, ammonia, 9.0));
}

void OneEdit(benchmark::State& state)
{
    LiquidData liquid;
    DetailList& details = *liquid.GetDetails();
    TypeGroundwater(details);
    double sodium = 700.0;
    for (auto _ : state) {
        details.At("liquid/na.orig").SetValue(sodium += 1e-3);
        water::NormalizeEveryIon(details);
        water::UpdateDerivedValues(details);
    }
}
BENCHMARK(Co2OfAWater)->Unit(benchmark::kMicrosecond);
BENCHMARK(AlkalizedToPh)->Unit(benchmark::kMicrosecond);
BENCHMARK(OneEdit)->Unit(benchmark::kMicrosecond);

void NormalizeEveryIon(benchmark::State& state)
{
    LiquidData liquid;
    TypeGroundwater(*liquid.GetDetails());
    for (auto _ : state)
        water::NormalizeEveryIon(*liquid.GetDetails());
}
BENCHMARK(NormalizeEveryIon)->Unit(benchmark::kMicrosecond);

void ShortAnalysisFromConductivity(benchmark::State& state)
{
    double conductivity = 500.0;
    for (auto _ : state)
        benchmark::DoNotOptimize(water::SodiumChlorideFromConductivity(conductivity += 1e-3, 15.0));
}
BENCHMARK(ShortAnalysisFromConductivity)->Unit(benchmark::kMicrosecond);

void SpeciationAndConductivity(benchmark::State& state)
{
    const auto composition = GypsumWater();
    for (auto _ : state)
        benchmark::DoNotOptimize(water::Conductivity(composition, 15.0));
}
BENCHMARK(SpeciationAndConductivity)->Unit(benchmark::kMicrosecond);

}  // namespace
