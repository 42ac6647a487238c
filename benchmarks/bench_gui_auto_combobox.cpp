// SPDX-License-Identifier: MIT
// One key of the auto-complete combo box with 1,000 entries, beside a bare combo box that selects an entry by
// its text on the same keys, and the control's creation and language switch beside the bare ones.
#include "gui_base/input/controls/tv_auto_combobox.h"

#include <benchmark/benchmark.h>
#include <wx/frame.h>
#include <wx/utils.h>

#include <string>

namespace {

constexpr int kEntries = 1000;
/// Entries before the first two letters come again.
constexpr int kBeginnings = 26 * 26;

struct Window
{
    Window()
    {
        frame = new wxFrame(nullptr, wxID_ANY, "bench", wxPoint(0, 0), wxSize(600, 200));
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

wxString Label(int i)
{
    return wxString::Format("%c%c substance %d", 'a' + i % 26, 'a' + i / 26 % 26, i);
}

tvAutoComboBox::Entries Entries()
{
    tvAutoComboBox::Entries entries;
    for (int i = 0; i < kEntries; ++i)
        entries.emplace_back(std::to_string(i), Label(i));
    return entries;
}

wxArrayString Labels()
{
    wxArrayString labels;
    for (int i = 0; i < kEntries; ++i)
        labels.push_back(Label(i));
    return labels;
}

/// Puts the typed beginning of the k-th entry into the box, as the key press does, and releases the key.
template <typename Box>
void TypeInto(Box& box, int k)
{
    box.ChangeValue(Label(k).Left(static_cast<std::size_t>(2 + k % 12)));
    box.SetInsertionPointEnd();
    wxKeyEvent release(wxEVT_KEY_UP);
    release.m_keyCode = 'A';
    box.GetEventHandler()->ProcessEvent(release);
}

void BM_BareKey(benchmark::State& state)
{
    const Window window;
    auto* box = new wxComboBox(window.frame, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, Labels());
    int k = 0;
    box->Bind(wxEVT_KEY_UP, [&](wxKeyEvent&) {
        box->SetSelection(box->FindString(Label(k)));
        box->SetSelection(2L, box->GetLastPosition());
    });
    for (auto _ : state) {
        TypeInto(*box, k);
        k = (k + 37) % kEntries;
    }
}
BENCHMARK(BM_BareKey)->Unit(benchmark::kMillisecond);

void BM_AutoCompleteKey(benchmark::State& state)
{
    const Window window;
    auto* box = new tvAutoComboBox(Entries(), window.frame, wxID_ANY);
    int k = 0;
    for (auto _ : state) {
        TypeInto(*box, k);
        if (box->GetValue() != Label(k % kBeginnings))
            state.SkipWithError("the entry was not found");
        k = (k + 37) % kEntries;
    }
}
BENCHMARK(BM_AutoCompleteKey)->Unit(benchmark::kMillisecond);

void BM_BareCreation(benchmark::State& state)
{
    const Window window;
    const wxArrayString labels = Labels();
    for (auto _ : state) {
        auto* box = new wxComboBox(window.frame, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, labels);
        box->Destroy();
    }
}
BENCHMARK(BM_BareCreation)->Unit(benchmark::kMillisecond);

void BM_AutoCompleteCreation(benchmark::State& state)
{
    const Window window;
    const tvAutoComboBox::Entries entries = Entries();
    for (auto _ : state) {
        auto* box = new tvAutoComboBox(entries, window.frame, wxID_ANY);
        box->Destroy();
    }
}
BENCHMARK(BM_AutoCompleteCreation)->Unit(benchmark::kMillisecond);

}  // namespace
