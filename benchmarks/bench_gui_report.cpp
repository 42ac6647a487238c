// SPDX-License-Identifier: MIT
// The report of a whole plant, as the window and "tarnvik report" write it. Aims: at most 1 s and 2 MB.
#include "app/document/plant_templates.h"
#include "app/modules/base/module.h"
#include "gui_base/report/report_builder.h"
#include "gui_base/report/report_file.h"
#include "projectbase/project/iex_project.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <vector>

namespace {

void BM_WholeReport(benchmark::State& state)
{
    const auto plants = app::PlantTemplates();
    const auto demineralisation =
        std::ranges::find(plants, std::string_view("demineralisation"),
                          [](const auto& plant) { return std::string_view(plant.id); });
    const auto project = app::NewProjectFrom(*demineralisation);
    const auto path = std::filesystem::temp_directory_path() / "bench_whole_report.pdf";
    int pages = 0;
    for (auto _ : state) {
        const auto owned = app::ReportSources(*project);
        std::vector<const ReportPageSource*> sources;
        for (const auto& source : owned)
            sources.push_back(source.get());
        const ReportBuilder builder(sources, {});
        std::vector<int> ids;
        for (const ReportPage& page : builder.GetPages())
            ids.push_back(page.id);
        pages = static_cast<int>(ids.size());
        WriteReportFile(builder.Build(ids, MakeReportHead(*project, "Benchmark", "Tarnvik")), path);
    }
    state.counters["sections"] = pages;
    state.counters["bytes"] = static_cast<double>(std::filesystem::file_size(path));
    std::filesystem::remove(path);
}
BENCHMARK(BM_WholeReport)->Unit(benchmark::kMillisecond);

}  // namespace
