// SPDX-License-Identifier: MIT
// An exchange file of 10,000 compounds, imported as the user does it: chosen in the dialog, stored, and
// listed.
#include "dbinterfaces/project_database.h"
#include "gui_base/ionexchange/feed/feed_composition_panel_controller.h"
#include "projectbase/feed/compounds_importer.h"
#include "tests/support/temp_folder.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <wx/choicdlg.h>
#include <wx/frame.h>
#include <wx/modalhook.h>
#include <wx/utils.h>

#include <numeric>

namespace {

constexpr int kCompounds = 10'000;

/// Takes all that a dialog offers.
class TakesAll : public wxModalDialogHook
{
public:
    TakesAll() { Register(); }

protected:
    int Enter(wxDialog* dialog) override
    {
        if (auto* choice = dynamic_cast<wxMultiChoiceDialog*>(dialog)) {
            wxArrayInt all(kCompounds);
            std::iota(all.begin(), all.end(), 0);
            choice->SetSelections(all);
            choice->TransferDataFromWindow();
        }
        return wxID_OK;
    }
};

std::vector<DBObjects::Compound> Compounds()
{
    std::vector<DBObjects::Compound> compounds(kCompounds);
    for (int i = 0; i < kCompounds; ++i) {
        compounds[static_cast<std::size_t>(i)].name = fmt::format("imported {:05}", i);
        compounds[static_cast<std::size_t>(i)].formula = fmt::format("CaCl{}", i % 97 + 1);
        compounds[static_cast<std::size_t>(i)].category = i % 2 == 0 ? "Salt" : "Acid";
    }
    return compounds;
}

void BM_ImportInTheWindow(benchmark::State& state)
{
    const support::TempFolder folder;
    const auto file = folder / "compounds.mvcf";
    SaveCompoundFile(file, Compounds());
    const TakesAll answers;
    int round = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const auto database = folder / fmt::format("{}.db", ++round);
        ProjectDatabase::Open("sqlite3://" + database.string());
        iex::IEXProject project;
        auto* frame = new wxFrame(nullptr, wxID_ANY, "bench", wxPoint(0, 0), wxSize(1400, 900));
        auto* view = new FeedCompositionPanel(frame, wxID_ANY, nullptr);
        auto controller = std::make_unique<FeedCompositionPanelController>(
            project, std::make_unique<FeedComposition>(), *view);
        frame->Show();
        wxYield();
        const std::size_t before = ProjectDatabase::GetCompounds().size();
        state.ResumeTiming();
        controller->ImportFile(wxString::FromUTF8(file.string()));
        wxYield();
        state.PauseTiming();
        if (ProjectDatabase::GetCompounds().size() != before + kCompounds)
            state.SkipWithError("the compounds were not imported");
        controller.reset();
        frame->Destroy();
        wxYield();
        ProjectDatabase::Close();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_ImportInTheWindow)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
