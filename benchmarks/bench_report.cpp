// SPDX-License-Identifier: MIT
// Writing reports. Aim: that of one water, file included, in at most 150 ms.
#include "gui_base/report/report_builder.h"
#include "gui_base/report/report_file.h"
#include "gui_base/report/water_report.h"
#include "projectbase/project/iex_project.h"

#include <benchmark/benchmark.h>

#include <filesystem>

namespace {

void TypeWater(Project& project, std::size_t index)
{
    DetailList& details = *project.GetLiquid(index).GetDetails();
    for (const char* ion :
         {"na", "ca", "mg", "k", "sr", "ba", "fe2", "cl", "so4", "hco3", "no3", "f", "sio2"})
        details.At(std::string("liquid/") + ion + ".orig").SetValue(12.345);
    details.At("liquid/ph").SetValue(7.5);
}

void WriteReport(benchmark::State& state, int waters)
{
    iex::IEXProject project;
    while (project.GetLiquidCount() < static_cast<std::size_t>(waters))
        project.AddLiquid("Water");
    for (std::size_t i = 0; i < project.GetLiquidCount(); ++i)
        TypeWater(project, i);
    project.CalculateDesign();
    const WaterReport source(project);
    const ReportPageSource* const sources[] = {&source};
    const auto path = std::filesystem::temp_directory_path() / "bench_report.pdf";
    for (auto _ : state) {
        const ReportBuilder builder(sources, {});
        std::vector<int> ids;
        for (const ReportPage& page : builder.GetPages())
            ids.push_back(page.id);
        WriteReportFile(builder.Build(ids, MakeReportHead(project, "Benchmark", "Tarnvik")), path);
    }
    state.counters["bytes"] = static_cast<double>(std::filesystem::file_size(path));
    std::filesystem::remove(path);
}

/// Fonts have to be found.
void BM_FirstReportOfOneWater(benchmark::State& state)
{
    WriteReport(state, 1);
}
BENCHMARK(BM_FirstReportOfOneWater)->Iterations(1)->Unit(benchmark::kMillisecond);

void BM_ReportOfOneWater(benchmark::State& state)
{
    WriteReport(state, 1);
}
BENCHMARK(BM_ReportOfOneWater)->Unit(benchmark::kMillisecond);

void BM_ReportOfHundredWaters(benchmark::State& state)
{
    WriteReport(state, 100);
}
BENCHMARK(BM_ReportOfHundredWaters)->Unit(benchmark::kMillisecond);

void BM_TableOfThousandRows(benchmark::State& state)
{
    report::Table table;
    table.columns.resize(6, {.title = "Column", .unit = "mg/l", .align = report::Align::Number});
    for (int i = 0; i < 1000; ++i)
        table.rows.push_back({.cells = std::vector<report::Cell>(6, {std::to_string(i) + ".25"})});
    report::Document document;
    document.sections.push_back({"Table", {table}});
    for (auto _ : state)
        benchmark::DoNotOptimize(report::WritePdf(document));
}
BENCHMARK(BM_TableOfThousandRows)->Unit(benchmark::kMillisecond);

}  // namespace
