// SPDX-License-Identifier: MIT
// Formulas, the composition of a feed, and compounds in the user database.
#include "dbinterfaces/project_database.h"
#include "projectbase/feed/compounds_importer.h"
#include "projectbase/feed/known_elements.h"
#include "projectbase/library/compound_import.h"
#include "projectbase/project/iex_project.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <wx/xml/xml.h>

#include <filesystem>

namespace {

void BM_FormulaOf10000Characters(benchmark::State& state)
{
    std::string formula;
    while (formula.size() < 10'000)
        formula += "Al2(SO4)3";
    for (auto _ : state) {
        benchmark::DoNotOptimize(FormulaParser().FindFaults(formula));
        benchmark::DoNotOptimize(FormulaParser().Parse(formula));
    }
}
BENCHMARK(BM_FormulaOf10000Characters)->Unit(benchmark::kMillisecond);

void BM_Formula(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(MolarMassOfFormula("Al2(SO4)3·18H2O"));
}
BENCHMARK(BM_Formula)->Unit(benchmark::kMicrosecond);

DBObjects::Compound Made(int number)
{
    return {.baseElement = number % 3 == 0 ? "Na" : "S",
            .name = fmt::format("compound {} of series {}", number * 7919 % 100'003, number % 977),
            .formula = fmt::format("Na{}SO{}", number % 89 + 1, number % 13 + 1),
            .pKa = number % 12 + 0.125,
            .valency = number % 3 + 1,
            .oxidationNrCommon = 1,
            .conjugate = number % 5,
            .ionicCharge = 0,
            .category = number % 2 == 0 ? "Salt" : "Acid"};
}

FeedComposition Composition(int entries)
{
    FeedComposition composition;
    {
        const FeedComposition::Batch batch(composition);
        for (int i = 0; i < entries; ++i) {
            composition.Add(Made(i));
            composition.SetFeed(static_cast<std::size_t>(i), FeedComposition::Unit::MgPerLitre, 0.1 * i);
        }
    }
    return composition;
}

void BM_OneEditOf1000Entries(benchmark::State& state)
{
    FeedComposition composition = Composition(1000);
    composition.SetPhAdjusted(true);
    composition.SetStatedPh(7.5);
    double value = 1.0;
    for (auto _ : state) {
        composition.SetFeed(500, FeedComposition::Unit::Ppb, value += 1.0);
        benchmark::DoNotOptimize(composition.GetFeedTotals().pH);
    }
}
BENCHMARK(BM_OneEditOf1000Entries)->Unit(benchmark::kMillisecond);

void BM_SaveAndLoadDetailsOf1000Entries(benchmark::State& state)
{
    iex::IEXProject project;
    FeedComposition composition = Composition(1000);
    double value = 1.0;
    for (auto _ : state) {
        composition.SetFeed(500, FeedComposition::Unit::Ppb, value += 1.0);
        project.SaveFeedCompositionToDetails(composition);
        benchmark::DoNotOptimize(project.LoadFeedCompositionFromDetails());
    }
}
BENCHMARK(BM_SaveAndLoadDetailsOf1000Entries)->Unit(benchmark::kMillisecond);

/// A user database of its own, removed afterwards.
class Database
{
public:
    Database()
    {
        std::filesystem::remove(m_path);
        ProjectDatabase::Open(m_path.string());
    }
    ~Database()
    {
        ProjectDatabase::Close();
        std::filesystem::remove(m_path);
    }

private:
    std::filesystem::path m_path = std::filesystem::temp_directory_path() / "bench_feed.db";
};

std::vector<DBObjects::Compound> Compounds(int count)
{
    std::vector<DBObjects::Compound> compounds;
    for (int i = 0; i < count; ++i)
        compounds.push_back(Made(i));
    return compounds;
}

void BM_Import10000Compounds(benchmark::State& state)
{
    const std::string file = ToCompoundFile(Compounds(10'000));
    for (auto _ : state) {
        state.PauseTiming();
        auto database = std::make_unique<Database>();
        state.ResumeTiming();
        const auto incoming = CompoundsImporter::Import(FromCompoundFile(file)->GetRoot());
        const auto plan = compound_import::MakePlan(incoming, ProjectDatabase::GetCompounds());
        compound_import::CarryOut(plan, {});
        state.PauseTiming();
        database.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Import10000Compounds)->Unit(benchmark::kMillisecond)->Iterations(3);

/// One key of a search among 100,000 compounds.
void BM_FilterOf100000Compounds(benchmark::State& state, const char* element, const char* category,
                                const char* search)
{
    static const Database database;
    static const bool filled = [] {
        compound_import::CarryOut({Compounds(100'000), {}}, {});
        return true;
    }();
    benchmark::DoNotOptimize(filled);
    std::size_t found = 0;
    for (auto _ : state)
        found = ProjectDatabase::GetCompounds(element, category, search).size();
    state.counters["found"] = static_cast<double>(found);
}
BENCHMARK_CAPTURE(BM_FilterOf100000Compounds, all, "", "", "")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_FilterOf100000Compounds, element, "Na", "", "")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_FilterOf100000Compounds, one_letter, "", "", "9")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_FilterOf100000Compounds, two_letters, "", "", "99")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_FilterOf100000Compounds, rare, "", "", "99997")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_FilterOf100000Compounds, series, "", "", "series 97")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_FilterOf100000Compounds, combined, "Na", "Acid", "series 97")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_FilterOf100000Compounds, common_word, "", "", "compound")->Unit(benchmark::kMillisecond);

}  // namespace
