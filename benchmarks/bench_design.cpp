// SPDX-License-Identifier: MIT
// What the design of a plant adds to an edit, and how many clones a what-if analysis designs in a second.
#include "projectbase/design/plant_design.h"
#include "projectbase/project/range_faults.h"
#include "tests/support/plant_fixture.h"

#include <benchmark/benchmark.h>

namespace {

/// Five exchangers with twenty rows each.
std::unique_ptr<iex::IEXProject> MakeLargePlant()
{
    auto project = std::make_unique<iex::IEXProject>("DEMI");
    const ProjectEdit edit(*project);
    project->AddStep("WAC_H", 0);
    project->AddStep("WBA", 2);
    project->AddStep("MB", 4);
    support::SetWater(*project, {{"ca", 2.0}, {"mg", 1.0}, {"na", 0.5}, {"hco3", 2.0}, {"cl", 1.5}});
    support::SetFlow(*project);
    for (std::size_t exchanger = 0; exchanger < project->NumberSteps(); ++exchanger) {
        while (project->GetStep(exchanger).GetChildren(OwnerKind::SequenceRow).size() < 20)
            support::AddRow(*project, exchanger, "REGSEQ_RINSE", "REGSEQ_RAW_WATER", 2.0);
    }
    return project;
}

/// Everything is calculated, nothing changes.
void BM_UpdateDesign(benchmark::State& state)
{
    const auto project = MakeLargePlant();
    const ProjectEdit edit(*project);
    for (auto _ : state)
        design::UpdateDesign(*project);
}
BENCHMARK(BM_UpdateDesign)->Unit(benchmark::kMicrosecond);

/// Another flow: most derived values change.
void BM_UpdateDesignOfAnotherFlow(benchmark::State& state)
{
    const auto project = MakeLargePlant();
    const ProjectEdit edit(*project);
    DetailData& flow = project->GetDetails().At("project/qbrutto");
    DetailData& volume = project->GetDetails().At("project/wbrutto");
    double value = 20.0;
    for (auto _ : state) {
        flow.SetValue(value += 0.001);
        volume.SetValue(12.0 * value);
        design::UpdateDesign(*project);
    }
}
BENCHMARK(BM_UpdateDesignOfAnotherFlow)->Unit(benchmark::kMicrosecond);

/// A whole edit, with rules and status.
void BM_EditOfAPlant(benchmark::State& state)
{
    const auto project = MakeLargePlant();
    DetailData& flow = project->GetDetails().At("project/qbrutto");
    double value = 20.0;
    for (auto _ : state)
        flow.SetValue(value += 0.001);
}
BENCHMARK(BM_EditOfAPlant)->Unit(benchmark::kMicrosecond);

void BM_MessagesOfAPlant(benchmark::State& state)
{
    const auto project = MakeLargePlant();
    for (auto _ : state)
        benchmark::DoNotOptimize(RangeFaults(*project));
}
BENCHMARK(BM_MessagesOfAPlant)->Unit(benchmark::kMicrosecond);

}  // namespace
