// SPDX-License-Identifier: MIT
// One key of an auto-complete box over a long list, without a window.
#include "core/autocomplete.h"

#include <benchmark/benchmark.h>

#include <random>
#include <string>
#include <vector>

namespace {

constexpr std::size_t kEntries = 10000;

std::vector<std::string> Names()
{
    const std::vector<std::string> parts{"sodium ", "cal",   "cium ",  "hydro", "gen",
                                         "carbo",   "nate ", "Österr", "sul",   "fate "};
    std::mt19937 random(1);
    std::vector<std::string> names(kEntries);
    for (std::string& name : names)
        for (int i = 0; i < 5; ++i)
            name += parts[random() % parts.size()];
    return names;
}

void Find(benchmark::State& state, const std::string& typed)
{
    const autocomplete::Matcher matcher(Names());
    for (auto _ : state)
        benchmark::DoNotOptimize(matcher.Find(typed));
}

void BM_KeyThatMatchesNothing(benchmark::State& state)
{
    Find(state, "xylene and sixty further characters that no entry starts with ...");
}
BENCHMARK(BM_KeyThatMatchesNothing)->Unit(benchmark::kMicrosecond);

void BM_KeyThatShortensALongText(benchmark::State& state)
{
    Find(state, "sodium sodium sodium sodium and then what no entry goes on with ...");
}
BENCHMARK(BM_KeyThatShortensALongText)->Unit(benchmark::kMicrosecond);

void BM_FirstKeyAfterTheListChanged(benchmark::State& state)
{
    const std::vector<std::string> names = Names();
    for (auto _ : state)
        benchmark::DoNotOptimize(autocomplete::Matcher(names).Find("sulfate sulx"));
}
BENCHMARK(BM_FirstKeyAfterTheListChanged)->Unit(benchmark::kMicrosecond);

}  // namespace
