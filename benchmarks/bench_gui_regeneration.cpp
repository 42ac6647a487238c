// SPDX-License-Identifier: MIT
// A regeneration sequence of twenty rows in a window, one cell of which is edited.
#include "gui_base/ionexchange/regeneration/regeneration_panel.h"
#include "gui_base/ionexchange/regeneration/tv_regseq_seq.h"
#include "tests/support/plant_fixture.h"

#include <benchmark/benchmark.h>
#include <wx/frame.h>
#include <wx/sizer.h>

namespace {

/// From the typed cell to the grid that shows what follows.
void BM_SequenceEdit(benchmark::State& state)
{
    iex::IEXProject project("DEMI");
    support::SetWater(project, {{"ca", 2.0}, {"mg", 1.0}, {"na", 0.5}, {"hco3", 2.0}, {"cl", 1.5}});
    support::SetFlow(project);
    while (project.GetStep(0).GetChildren(OwnerKind::SequenceRow).size() < 20)
        support::AddRow(project, 0, "REGSEQ_RINSE", "REGSEQ_RAW_WATER", 2.0);
    auto* frame = new wxFrame(nullptr, wxID_ANY, "bench", wxPoint(0, 0), wxSize(1400, 900));
    frame->SetSizer(new wxBoxSizer(wxVERTICAL));
    auto* panel = new RegenerationPanel(project, project.GetStep(0), frame);
    frame->GetSizer()->Add(panel, 1, wxEXPAND);
    frame->Show();
    frame->Layout();
    wxYield();
    TVRegSeqGrid& grid = panel->GetSequence().GetGrid();
    int value = 10;
    for (auto _ : state) {
        value = value == 10 ? 12 : 10;
        grid.GetTable()->SetValue(0, kRegSeqVelocity, wxString::Format("%d", value));
        wxYield();
    }
    frame->Destroy();
    wxYield();
}
BENCHMARK(BM_SequenceEdit)->Unit(benchmark::kMillisecond);

}  // namespace
