// SPDX-License-Identifier: MIT
// The whole window: from an edit of a water to all that shows it.
#include "app/document/document.h"
#include "app/document/templates.h"
#include "app/frame/main_frame.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/validation/validator.h"
#include "gui_base/support/density.h"
#include "gui_base/water/feedwater/feed_water_panel.h"
#include "tests/support/temp_folder.h"

#include <benchmark/benchmark.h>
#include <wx/app.h>

#include <memory>

namespace {

/// The program's window with the page of a water, once that is on the screen.
class Window
{
public:
    Window()
    {
        ProjectDatabase::Open("sqlite3://" + (m_folder / "user.db").string());
        density::Set(Density::Compact);
        auto project = app::NewProjectFrom(*app::FindWaterTemplate("world_river_livingstone"));
        m_frame = new app::MainFrame(std::make_unique<app::Document>(std::move(project)));
        m_frame->Show();
        m_frame->GetBook().GetCurrentPanel()->Bind(wxEVT_PAINT, [this](wxPaintEvent& event) {
            m_isDrawn = true;
            event.Skip();
        });
        while (!m_isDrawn)
            wxYield();
    }
    ~Window()
    {
        m_frame->GetDocument().SetUnsaved(false);
        m_frame->Close(true);
        wxYield();
        ProjectDatabase::Close();
    }
    app::MainFrame& Frame() { return *m_frame; }

private:
    support::TempFolder m_folder;
    app::MainFrame* m_frame = nullptr;
    bool m_isDrawn = false;
};

/// An edit that Enter commits with its undo step, the page in front, the results, the diagram, the navigator
/// and the messages; with `drawn`, until all of it is on the screen.
void Edit(benchmark::State& state, bool drawn)
{
    Window window;
    TvTextCtrl& sodium = *dynamic_cast<FeedWaterPanel&>(*window.Frame().GetBook().GetCurrentPanel())
                              .FindField("liquid/na.orig");
    bool isOdd = false;
    for (auto _ : state) {
        isOdd = !isOdd;
        sodium.ChangeValue(isOdd ? "6.4" : "6.3");
        sodium.MarkDirty();
        dynamic_cast<Validator&>(*sodium.GetValidator()).CommitIfModified();
        if (drawn) {
            wxTheApp->ProcessPendingEvents();
            window.Frame().Update();
            wxYield();
        }
    }
}

void BM_EditInTheWindow(benchmark::State& state)
{
    Edit(state, false);
}
BENCHMARK(BM_EditInTheWindow)->Unit(benchmark::kMillisecond);

void BM_EditUntilDrawn(benchmark::State& state)
{
    Edit(state, true);
}
BENCHMARK(BM_EditUntilDrawn)->Unit(benchmark::kMillisecond);

void BM_OpenTheWindow(benchmark::State& state)
{
    for (auto _ : state) {
        auto window = std::make_unique<Window>();
        state.PauseTiming();  // closing is not opening
        window.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_OpenTheWindow)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
