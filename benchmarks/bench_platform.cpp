// SPDX-License-Identifier: MIT
// What the platform adds to start, edit and save.
#include "projectbase/project/iex_project.h"
#include "projectbase/project/project_file.h"
#include "projectbase/project/recovery_file.h"
#include "projectbase/units/unit_system_manager.h"
#include "tests/support/project_history.h"

#include <benchmark/benchmark.h>

#include <filesystem>

namespace {

void BM_NewProject(benchmark::State& state)
{
    for (auto _ : state) {
        const iex::IEXProject project;
        benchmark::DoNotOptimize(project.GetLiquidCount());
    }
}
BENCHMARK(BM_NewProject);

void BM_ConvertUnit(benchmark::State& state)
{
    const std::string unit = "m3/h";
    const std::string system = "us";
    double value = 1.0;
    for (auto _ : state)
        benchmark::DoNotOptimize(value = UnitSystemManager::ToISO(unit, system, value));
}
BENCHMARK(BM_ConvertUnit);

void BM_UndoStepOfOneEdit(benchmark::State& state)
{
    iex::IEXProject project;
    DetailData& sodium = project.GetLiquid(0).GetDetails()->At("liquid/na.orig");
    support::History history(project);
    double value = 0.0;
    for (auto _ : state)
        sodium.SetValue(value += 1.0);
}
BENCHMARK(BM_UndoStepOfOneEdit);

/// A copy of a demineralisation with a sequence of ten rows, as the what-if analysis takes it.
void BM_CloneProject(benchmark::State& state)
{
    iex::IEXProject project("DEMI");
    for (int i = 0; i < 10; ++i)
        project.AddOwner(project.GetStep(0), OwnerKind::SequenceRow);
    for (auto _ : state)
        benchmark::DoNotOptimize(project.Clone());
}
BENCHMARK(BM_CloneProject)->Unit(benchmark::kMicrosecond);

void BM_SaveProject(benchmark::State& state)
{
    const iex::IEXProject project;
    const auto path = std::filesystem::temp_directory_path() / "bench_platform.tarnvik";
    for (auto _ : state)
        ProjectFile::Save(project, path);
    std::filesystem::remove(path);
}
BENCHMARK(BM_SaveProject);

void BM_LoadProject(benchmark::State& state)
{
    const iex::IEXProject project;
    const auto path = std::filesystem::temp_directory_path() / "bench_platform.tarnvik";
    ProjectFile::Save(project, path);
    for (auto _ : state)
        benchmark::DoNotOptimize(ProjectFile::Load(path));
    std::filesystem::remove(path);
}
BENCHMARK(BM_LoadProject);

void BM_KeepRecoveryCopy(benchmark::State& state)
{
    const iex::IEXProject project;
    const auto folder = std::filesystem::temp_directory_path() / "bench_platform_recovery";
    {
        RecoveryFile recovery("plant.tarnvik", folder);
        for (auto _ : state)
            recovery.Save(project, {.base = FileStamp::OfBytes("plant"), .edits = {"Sodium", "Temperature"}});
        recovery.Discard();
    }
    std::filesystem::remove_all(folder);
}
BENCHMARK(BM_KeepRecoveryCopy);

/// What saving asks first: whether somebody else wrote the file.
void BM_LookAtTheFile(benchmark::State& state)
{
    const iex::IEXProject project;
    const auto path = std::filesystem::temp_directory_path() / "bench_platform.tarnvik";
    const FileStamp stamp = ProjectFile::Save(project, path);
    for (auto _ : state) {
        if (FileStamp::OfFile(path) != stamp)
            state.SkipWithError("the file is another one");
    }
    std::filesystem::remove(path);
}
BENCHMARK(BM_LookAtTheFile);

}  // namespace
