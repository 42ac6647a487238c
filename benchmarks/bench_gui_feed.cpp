// SPDX-License-Identifier: MIT
// The feed composition with a database of 100,000 compounds, filtered as the user types, and with a feed of
// 1,000 entries, one cell of which is edited.
#include "dbinterfaces/project_database.h"
#include "gui_base/input/controls/tv_searchctrl.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/ionexchange/feed/feed_composition_grid.h"
#include "gui_base/ionexchange/feed/feed_composition_panel_controller.h"
#include "gui_base/ionexchange/feed/feed_total_box.h"
#include "tests/support/temp_folder.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <wx/frame.h>
#include <wx/sizer.h>
#include <wx/srchctrl.h>
#include <wx/utils.h>

#include <array>
#include <clocale>
#include <cstdlib>

namespace {

constexpr int kCompounds = 100'000;
constexpr int kEntries = 1'000;

/// The module in a window, over a database of many compounds; made once.
struct Module
{
    Module()
    {
        std::setlocale(LC_ALL, "");
        setenv("TARNVIK_USER_DATA", (folder / "user").c_str(), 1);
        ProjectDatabase::Open("sqlite3://" + (folder / "compounds.db").string());
        Fill();
        frame = new wxFrame(nullptr, wxID_ANY, "bench", wxPoint(0, 0), wxSize(1400, 900));
        frame->SetSizer(new wxBoxSizer(wxVERTICAL));
        view = new FeedCompositionPanel(frame, wxID_ANY, nullptr);
        frame->GetSizer()->Add(view, 1, wxEXPAND);
        frame->Show();
        controller = std::make_unique<FeedCompositionPanelController>(
            project, std::make_unique<FeedComposition>(), *view);
        wxYield();
    }
    static void Fill()
    {
        constexpr std::array kParts{"chloride", "sulfate", "acetate", "phosphate", "nitrate"};
        constexpr std::array kFormulas{"Cl2", "SO4", "C2H3O2", "PO4", "NO3"};
        ProjectDatabase::Transaction transaction;
        for (int i = 0; i < kCompounds; ++i) {
            DBObjects::Compound compound;
            const auto part = static_cast<std::size_t>(i) % kParts.size();
            compound.name = fmt::format("compound {:06} {}", i, kParts[part]);
            compound.formula = fmt::format("Ca{}{}", i % 97 + 1, kFormulas[part]);
            compound.baseElement = "Ca";
            compound.category = part < 2 ? "Salt" : "Acid";
            compound.valency = 2;
            ProjectDatabase::InsertOrReplaceCompound(compound);
        }
        transaction.Commit();
    }
    static Module& Get()
    {
        static auto* module = new Module;  // the toolkit is gone when statics are
        return *module;
    }

    support::TempFolder folder;
    iex::IEXProject project;
    wxSearchCtrl& Search() const
    {
        return *dynamic_cast<wxSearchCtrl*>(
            wxWindow::FindWindowByName("Search for compound name or formula ...", view));
    }
    wxFrame* frame = nullptr;
    FeedCompositionPanel* view = nullptr;
    std::unique_ptr<FeedCompositionPanelController> controller;
};

/// Each key of a search, from the empty field on; the time is that of the slowest key.
void BM_SearchKey(benchmark::State& state)
{
    Module& module = Module::Get();
    const std::array<wxString, 4> searches{"sulfate", "042", "Ca7SO4", "compound 099"};
    const wxString search = searches.at(static_cast<std::size_t>(state.range(0)));
    const auto length = static_cast<std::size_t>(state.range(1));
    state.SetLabel((search.Left(length) + " after " + search.Left(length - 1)).utf8_string());
    for (auto _ : state) {
        state.PauseTiming();
        module.Search().SetValue(search.Left(length - 1));
        wxYield();
        state.ResumeTiming();
        module.Search().SetValue(search.Left(length));
        module.view->GetCompoundList().Update();
    }
    state.counters["rows"] = module.view->GetCompoundList().GetItemCount();
    module.Search().SetValue(wxString());
}
BENCHMARK(BM_SearchKey)
    ->Args({0, 1})
    ->Args({0, 2})
    ->Args({0, 3})
    ->Args({0, 4})
    ->Args({1, 2})
    ->Args({1, 3})
    ->Args({2, 3})
    ->Args({2, 6})
    ->Args({3, 12})
    ->Unit(benchmark::kMillisecond);

/// From the committed cell to the totals on the screen.
void BM_EditOneOfThousand(benchmark::State& state)
{
    Module& module = Module::Get();
    FeedComposition composition;
    {
        const FeedComposition::Batch batch(composition);
        const auto compounds = ProjectDatabase::GetCompounds();
        for (int i = 0; i < kEntries; ++i)
            composition.Add(compounds.at(static_cast<std::size_t>(i)));
        for (int i = 0; i < kEntries; ++i)
            composition.SetFeed(static_cast<std::size_t>(i), FeedComposition::Unit::MgPerLitre, 1.0 + i % 7);
    }
    module.project.SaveFeedCompositionToDetails(composition);
    wxYield();
    auto& grid = *dynamic_cast<FeedCompositionGrid*>(wxWindow::FindWindowByName("Feed", module.view));
    auto& total = *dynamic_cast<wxTextCtrl*>(wxWindow::FindWindowByName("Total, mg/l", module.view));
    int number = 0;
    for (auto _ : state) {
        grid.GetTable()->SetValue(5, kFeedFirstUnit, wxString::Format("%d", ++number % 100 + 1));
        grid.Update();
        total.GetParent()->Update();
    }
    wxYield();
    if (total.GetValue() !=
        FeedTotalBox::NumberText(
            module.controller->GetComposition().GetFeedTotals()[FeedComposition::Unit::MgPerLitre]))
        std::abort();
}
BENCHMARK(BM_EditOneOfThousand)->Unit(benchmark::kMillisecond);

void BM_BuildModule(benchmark::State& state)
{
    Module& module = Module::Get();
    for (auto _ : state) {
        auto* panel = new FeedCompositionPanel(module.frame, wxID_ANY, nullptr);
        wxYield();
        state.PauseTiming();
        panel->Destroy();
        wxYield();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_BuildModule)->Unit(benchmark::kMillisecond);

}  // namespace
