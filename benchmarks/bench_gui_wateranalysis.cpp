// SPDX-License-Identifier: MIT
// The water analysis panel beside the same work on the bare toolkit, and the start of the program.
#include "app/language/language.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/input/events.h"
#include "gui_base/input/validation/validator.h"
#include "gui_base/water/feedwater/feed_water_panel.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/project/project_file.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/datectrl.h>
#include <wx/filename.h>
#include <wx/frame.h>
#include <wx/radiobut.h>
#include <wx/scrolwin.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/stdpaths.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <vector>

namespace {

struct Window
{
    Window()
    {
        frame = new wxFrame(nullptr, wxID_ANY, "bench", wxPoint(0, 0), wxSize(1500, 1100));
        frame->Show();
        wxYield();
    }
    ~Window()
    {
        frame->Destroy();
        wxYield();
    }
    wxFrame* frame;
};

iex::IEXProject& Project()
{
    static iex::IEXProject project;
    DetailList& details = *project.GetLiquid(0).GetDetails();
    int value = 1;
    for (const char* ion : {"na", "ca", "mg", "k", "cl", "so4", "hco3", "no3", "sio2"})
        details.At(std::string("liquid/") + ion + ".orig").SetValue(1.5 * ++value);
    details.At("liquid/ph").SetValue(7.5);
    return project;
}

WaterAnalysisPanel* NewPanel(wxWindow* parent)
{
    auto* panel = new WaterAnalysisPanel(&Project(), 0, parent, wxID_ANY, nullptr);
    parent->SendSizeEvent();
    return panel;
}

/// As many controls of every kind as the analysis panel has, without translation, binding and validation.
struct BarePanel
{
    explicit BarePanel(const WaterAnalysisPanel& model, wxWindow* parent) : BarePanel(Count(model), parent) {}

    struct Counts
    {
        int texts = 0, labels = 0, checks = 0, radios = 0, boxes = 0, dates = 0, buttons = 0;
        std::vector<wxArrayString> choices;  ///< the items of each
    };

    static void CountChildren(const wxWindow& window, Counts& counts)
    {
        for (const wxWindow* child : window.GetChildren()) {
            counts.texts += dynamic_cast<const wxTextCtrl*>(child) != nullptr;
            if (const auto* choice = dynamic_cast<const wxChoice*>(child))
                counts.choices.push_back(choice->GetStrings());
            counts.labels += dynamic_cast<const wxStaticText*>(child) != nullptr;
            counts.checks += dynamic_cast<const wxCheckBox*>(child) != nullptr;
            counts.radios += dynamic_cast<const wxRadioButton*>(child) != nullptr;
            counts.boxes += dynamic_cast<const wxStaticBox*>(child) != nullptr;
            counts.dates += dynamic_cast<const wxDatePickerCtrl*>(child) != nullptr;
            counts.buttons += dynamic_cast<const wxAnyButton*>(child) != nullptr;
            CountChildren(*child, counts);
        }
    }

    static Counts Count(const WaterAnalysisPanel& model)
    {
        Counts counts;
        CountChildren(model, counts);
        return counts;
    }

    BarePanel(const Counts& counts, wxWindow* parent)
        : panel(new wxScrolled<wxPanel>(parent, wxID_ANY, wxPoint(0, 0), wxSize(1500, 1100)))
    {
        auto* sizer = new wxFlexGridSizer(10, wxSize(4, 4));
        for (int i = 0; i < counts.boxes; ++i)
            new wxStaticBox(panel, wxID_ANY, "box");
        for (int i = 0; i < counts.labels; ++i)
            sizer->Add(new wxStaticText(panel, wxID_ANY, "Label:"));
        for (int i = 0; i < counts.texts; ++i) {
            auto* text = new wxTextCtrl(panel, wxID_ANY, "1.2345", wxDefaultPosition, wxSize(80, -1),
                                        wxTE_RIGHT | wxTE_PROCESS_ENTER);
            texts.push_back(text);
            sizer->Add(text);
        }
        for (const wxArrayString& items : counts.choices) {
            auto* choice = new wxChoice(panel, wxID_ANY, wxDefaultPosition, wxDefaultSize, items);
            choice->SetSelection(0);
            sizer->Add(choice);
        }
        for (int i = 0; i < counts.dates; ++i)
            sizer->Add(new wxDatePickerCtrl(panel, wxID_ANY));
        for (int i = 0; i < counts.buttons; ++i)
            sizer->Add(new wxButton(panel, wxID_ANY, "Button"));
        for (int i = 0; i < counts.checks; ++i)
            sizer->Add(new wxCheckBox(panel, wxID_ANY, "check"));
        for (int i = 0; i < counts.radios; ++i)
            sizer->Add(new wxRadioButton(panel, wxID_ANY, "radio"));
        panel->SetSizer(sizer);
        panel->SetScrollRate(1, 1);
        panel->FitInside();
        panel->Layout();
    }

    wxScrolled<wxPanel>* panel;
    std::vector<wxTextCtrl*> texts;
};

using Clock = std::chrono::steady_clock;

double Seconds(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// The ratio is taken pair by pair, so that it holds when the machine's speed drifts.
void PanelCreation(benchmark::State& state)
{
    Window window;
    WaterAnalysisPanel* model = NewPanel(window.frame);
    const BarePanel::Counts counts = BarePanel::Count(*model);
    model->Destroy();
    double ours = 0.0;
    double bare = 0.0;
    for (auto _ : state) {
        auto start = Clock::now();
        WaterAnalysisPanel* panel = NewPanel(window.frame);
        const double panelSeconds = Seconds(start);
        panel->Destroy();
        wxYield();
        start = Clock::now();
        BarePanel plain(counts, window.frame);
        window.frame->SendSizeEvent();
        bare += Seconds(start);
        plain.panel->Destroy();
        wxYield();
        ours += panelSeconds;
        state.SetIterationTime(panelSeconds);
    }
    state.counters["bare_ms"] = 1e3 * bare / static_cast<double>(state.iterations());
    state.counters["ratio"] = ours / bare;
    state.counters["controls"] = counts.texts + static_cast<int>(counts.choices.size()) + counts.labels +
                                 counts.checks + counts.radios;
}
BENCHMARK(PanelCreation)->UseManualTime()->Iterations(25)->Unit(benchmark::kMillisecond);

/// A committed edit: parse, store, normalise, refresh, tell the host.
void CommittedEdit(benchmark::State& state)
{
    Window window;
    WaterAnalysisPanel* panel = NewPanel(window.frame);
    wxYield();
    TvTextCtrl* field = panel->FindField("liquid/ca.orig");
    int value = 0;
    for (auto _ : state) {
        state.PauseTiming();
        wxYield();
        field->ChangeValue(wxString::Format("%d", 20 + value++ % 50));
        field->MarkDirty();
        state.ResumeTiming();
        dynamic_cast<Validator&>(*field->GetValidator()).CommitIfModified();
    }
}
BENCHMARK(CommittedEdit)->Unit(benchmark::kMillisecond);

void SwitchUnitSystem(benchmark::State& state)
{
    Window window;
    WaterAnalysisPanel* panel = NewPanel(window.frame);
    wxYield();
    int turn = 0;
    for (auto _ : state) {
        Project().SetUnitSystemDisplay(turn++ % 2 == 0 ? "us" : "iso");
        wxCommandEvent event(tvCHANGEUNITSYSTEM_EVENT);
        event.StopPropagation();
        panel->GetEventHandler()->ProcessEvent(event);
    }
    Project().SetUnitSystemDisplay("iso");
}
BENCHMARK(SwitchUnitSystem)->Unit(benchmark::kMillisecond);

void SwitchLanguage(benchmark::State& state)
{
    Window window;
    WaterAnalysisPanel* panel = NewPanel(window.frame);
    wxYield();
    int turn = 0;
    for (auto _ : state) {
        state.PauseTiming();
        app::SwitchLanguage(turn++ % 2 == 0 ? "de" : "en");
        state.ResumeTiming();
        wxCommandEvent event(tvLOCALIZE_EVENT);
        event.StopPropagation();
        panel->GetEventHandler()->ProcessEvent(event);
    }
    app::SwitchLanguage("en");
}
BENCHMARK(SwitchLanguage)->Unit(benchmark::kMillisecond);

/// A whole page of a water: made, filled and laid out, against as many bare controls. What the toolkit then
/// takes for the first picture is counted apart (`picture_ms`).
void PageCreation(benchmark::State& state)
{
    Window window;
    iex::IEXProject project;
    struct Taken
    {
        double made = 0.0;
        double shown = 0.0;
    };
    const auto measure = [&](auto make) {
        Taken taken;
        const auto start = Clock::now();
        wxWindow* page = make();
        page->SetSize(window.frame->GetClientSize());
        taken.made = Seconds(start);
        wxYield();
        taken.shown = Seconds(start);
        page->Destroy();
        wxYield();
        return taken;
    };
    BarePanel::Counts counts;
    const auto page = [&] { return new FeedWaterPanel(&project, 0, window.frame, wxID_ANY, nullptr); };
    const auto bare = [&] { return BarePanel(counts, window.frame).panel; };
    measure([&] {
        FeedWaterPanel* model = page();
        counts = BarePanel::Count(*model);
        return model;
    });
    Taken ours;
    Taken theirs;
    for (auto _ : state) {
        const Taken one = measure(page);
        const Taken other = measure(bare);
        ours.made += one.made;
        ours.shown += one.shown;
        theirs.made += other.made;
        theirs.shown += other.shown;
        state.SetIterationTime(one.made);
    }
    const double n = 1e-3 * static_cast<double>(state.iterations());
    state.counters["bare_ms"] = theirs.made / n;
    state.counters["picture_ms"] = (ours.shown - ours.made) / n;
    state.counters["bare_picture_ms"] = (theirs.shown - theirs.made) / n;
    state.counters["ratio"] = ours.made / theirs.made;
    state.counters["ratio_with_picture"] = ours.shown / theirs.shown;
}
BENCHMARK(PageCreation)->UseManualTime()->Iterations(15)->Unit(benchmark::kMillisecond);

/// Setting every text of the bare panel to something else: the measure for an edit and for the switches.
void BareRefresh(benchmark::State& state)
{
    Window window;
    WaterAnalysisPanel* model = NewPanel(window.frame);
    const BarePanel::Counts counts = BarePanel::Count(*model);
    model->Destroy();
    BarePanel plain(counts, window.frame);
    wxYield();
    int turn = 0;
    for (auto _ : state) {
        const wxString text = wxString::Format("%d", turn++);
        for (wxTextCtrl* field : plain.texts)
            field->ChangeValue(text);
    }
    state.counters["fields"] = static_cast<double>(plain.texts.size());
}
BENCHMARK(BareRefresh)->Unit(benchmark::kMillisecond);

/// From the start of the process to the first window that can be used, with a file of so many waters; the
/// program ends itself then and says how much memory it holds.
void StartToFirstWindow(benchmark::State& state)
{
    const wxString program = wxFileName(wxStandardPaths::Get().GetExecutablePath()).GetPath() + "/tarnvik";
    iex::IEXProject project;
    while (project.GetLiquidCount() < static_cast<std::size_t>(state.range(0)))
        project.AddLiquid("Water " + std::to_string(project.GetLiquidCount()));
    const auto file = std::filesystem::temp_directory_path() / "bench_start.tarnvik";
    ProjectFile::Save(project, file);
    double kilobytes = 0.0;
    for (auto _ : state) {
        wxArrayString output;
        const auto start = Clock::now();
        const long status = wxExecute(program + " --measure-start " + wxString::FromUTF8(file.string()),
                                      output, wxEXEC_SYNC | wxEXEC_NOEVENTS);
        double shown = 0.0;
        if (status != 0 || output.size() < 2 || !output[0].ToCDouble(&kilobytes) ||
            !output[1].ToCDouble(&shown)) {
            state.SkipWithError("the program did not start");
            break;
        }
        state.SetIterationTime(shown - std::chrono::duration<double>(start.time_since_epoch()).count());
    }
    std::filesystem::remove(file);
    state.counters["memory_MiB"] = kilobytes / 1024;
}
BENCHMARK(StartToFirstWindow)
    ->ArgName("waters")
    ->Arg(1)
    ->Arg(20)
    ->UseManualTime()
    ->Iterations(8)
    ->Unit(benchmark::kMillisecond);

}  // namespace
