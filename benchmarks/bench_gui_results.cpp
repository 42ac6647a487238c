// SPDX-License-Identifier: MIT
// The results beside a water after one value of it changed. Aim: at most 1 ms beside the edit itself.
#include "gui_base/water/results/water_results_panel.h"
#include "tests/support/plant_fixture.h"

#include <benchmark/benchmark.h>
#include <wx/frame.h>
#include <wx/sizer.h>

namespace {

/// The edit with the panel following it, or alone.
void BM_ResultsAfterAnEdit(benchmark::State& state)
{
    iex::IEXProject project("DEMI");
    support::SetWater(
        project,
        {{"ca", 6.0}, {"mg", 2.0}, {"na", 1.0}, {"hco3", 5.0}, {"so4", 3.0}, {"cl", 1.0}, {"sio2", 0.3}});
    support::SetFlow(project);
    support::Put(project, "water.1", "liquid/ph", 7.9);
    support::Put(project, "water.1", "liquid/fe.total", 0.4);
    auto* frame = new wxFrame(nullptr, wxID_ANY, "bench", wxPoint(0, 0), wxSize(400, 900));
    frame->SetSizer(new wxBoxSizer(wxVERTICAL));
    auto* panel = new wateranalysis::WaterResultsPanel(frame, [](const DetailAddress&) {});
    frame->GetSizer()->Add(panel, 1, wxEXPAND);
    frame->Show();
    frame->Layout();
    if (state.range(0) != 0)
        panel->SetWater(&project, project.GetLiquid(0).GetOwner());
    wxYield();
    double sodium = 1.0;
    for (auto _ : state) {
        sodium = sodium == 1.0 ? 1.02 : 1.0;
        support::Put(project, "water.1", "liquid/na.orig", sodium);
    }
    panel->SetWater(nullptr, {});
    frame->Destroy();
    wxYield();
}
BENCHMARK(BM_ResultsAfterAnEdit)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

}  // namespace
