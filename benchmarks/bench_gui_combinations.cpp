// SPDX-License-Identifier: MIT
// A thousand combinations created, localised and switched to another unit system, beside the same controls of
// the bare toolkit with the same texts. Aim: the ratio of the two at most 1.25.
#include "gui_base/input/combinations/choice_combination.h"
#include "gui_base/input/combinations/input_combination_ion_concentration.h"
#include "gui_base/input/combinations/input_combination_unit_choice.h"
#include "projectbase/units/unit_system_manager.h"

#include <benchmark/benchmark.h>
#include <wx/choice.h>
#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int kRows = 1000;
const std::vector<wxString> kUnits{"meq/l", "mg/l", "ppm"};
const std::vector<std::pair<long, wxString>> kPressures{{1, "bar"}, {2, "psi"}};
const tvChoiceAdv::Items kItems{{"s", "Strong"}, {"w", "Weak"}};

/// A third of the rows each: an ion, a number with a unit choice, a choice.
enum class Kind
{
    Ion,
    Number,
    Choice
};

Kind KindOfRow(int row)
{
    return static_cast<Kind>(row % 3);
}

class Host
{
public:
    Host() : frame(new wxFrame(nullptr, wxID_ANY, "bench")), panel(new wxPanel(frame))
    {
        panel->SetSizer(new wxBoxSizer(wxVERTICAL));
        panel->Freeze();
    }
    ~Host() { delete frame; }
    Host(const Host&) = delete;

    wxBoxSizer* NewRow() const
    {
        auto* row = new wxBoxSizer(wxHORIZONTAL);
        panel->GetSizer()->Add(row);
        return row;
    }

    wxFrame* frame;
    wxPanel* panel;
};

class Combinations
{
public:
    explicit Combinations(Host& host)
    {
        for (int i = 0; i < kRows; ++i)
            AddRow(host, KindOfRow(i));
    }
    void UpdateUnit(const std::string& unitSystem)
    {
        for (const auto& row : m_rows)
            row->UpdateUnit(unitSystem);
    }

private:
    DetailData& NewDetail(const char* name, DetailType type) { return m_details.emplace_back(name, type); }
    DetailData& NewText(const char* name, const char* value)
    {
        DetailData& detail = NewDetail(name, DetailType::String);
        detail.SetValue(value);
        return detail;
    }
    DetailData& NewNumber(const char* name)
    {
        DetailData& detail = NewDetail(name, DetailType::Double);
        detail.SetValue(5.25);
        return detail;
    }
    void AddRow(Host& host, Kind kind)
    {
        wxSizer* sizer = host.NewRow();
        switch (kind) {
            case Kind::Ion:
                m_rows.push_back(std::make_unique<InputCombinationIonConcentrationCtrl>(
                    host.panel, wxID_ANY, "Calcium", ":", &NewNumber("liquid/ca.orig"),
                    &NewText("liquid/ca.unit", "mg/l"), &NewNumber("liquid/ca.meql"), sizer, kUnits, nullptr,
                    0.0, 1000.0));
                break;
            case Kind::Number:
                m_rows.push_back(std::make_unique<InputCombinationUnitChoice>(
                    host.panel, wxID_ANY, "Pressure", kPressures, &NewNumber("p"), &NewText("u", "bar"),
                    sizer, 0.0, 10.0, 4, TvTextCtrlFormat::General, 5));
                break;
            case Kind::Choice:
                m_rows.push_back(std::make_unique<ChoiceCombination>(host.panel, wxID_ANY, "Resin", ":",
                                                                     kItems, &NewText("r", "w"), sizer));
                break;
        }
        m_rows.back()->TransferDetailToWindow();
    }

    std::deque<DetailData> m_details;
    std::vector<std::unique_ptr<DetailContainerWindow>> m_rows;
};

/// The same controls without bindings, validators and translation.
class BareControls
{
public:
    explicit BareControls(Host& host)
    {
        for (int i = 0; i < kRows; ++i)
            AddRow(host, KindOfRow(i));
    }
    /// What a program without combinations has to do at least: set every text that depends on unit or
    /// language.
    void SetTexts(const wxString& suffix)
    {
        for (wxStaticText* label : m_labels)
            label->SetLabel(label->GetName() + suffix);
        for (wxTextCtrl* field : m_fields)
            field->ChangeValue("5.25");
    }

private:
    void AddLabel(Host& host, wxSizer& sizer, const wxString& text)
    {
        m_labels.push_back(
            new wxStaticText(host.panel, wxID_ANY, text + ":", wxDefaultPosition, wxDefaultSize, 0, text));
        sizer.Add(m_labels.back());
    }
    void AddField(Host& host, wxSizer& sizer, int width)
    {
        m_fields.push_back(
            new wxTextCtrl(host.panel, wxID_ANY, "5.25", wxDefaultPosition, wxSize(width, -1), wxTE_RIGHT));
        sizer.Add(m_fields.back());
    }
    void AddChoice(Host& host, wxSizer& sizer, const wxArrayString& items)
    {
        auto* choice = new wxChoice(host.panel, wxID_ANY, wxDefaultPosition, wxDefaultSize, items);
        choice->SetSelection(1);
        sizer.Add(choice);
    }
    void AddRow(Host& host, Kind kind)
    {
        wxSizer& sizer = *host.NewRow();
        switch (kind) {
            case Kind::Ion: {
                AddLabel(host, sizer, "Calcium");
                AddField(host, sizer, 63);
                wxArrayString units;
                for (const wxString& unit : kUnits)
                    units.push_back(unit);
                AddChoice(host, sizer, units);
                AddField(host, sizer, 79);
                break;
            }
            case Kind::Number: {
                AddLabel(host, sizer, "Pressure");
                AddField(host, sizer, -1);
                wxArrayString units;
                for (const auto& [key, unit] : kPressures)
                    units.push_back(unit);
                AddChoice(host, sizer, units);
                break;
            }
            case Kind::Choice: {
                AddLabel(host, sizer, "Resin");
                wxArrayString labels;
                for (const auto& [key, label] : kItems)
                    labels.push_back(label);
                AddChoice(host, sizer, labels);
                break;
            }
        }
    }

    std::vector<wxStaticText*> m_labels;
    std::vector<wxTextCtrl*> m_fields;
};

template <typename Rows>
void CreateRows(benchmark::State& state)
{
    for (auto _ : state) {
        auto host = std::make_unique<Host>();
        auto rows = std::make_unique<Rows>(*host);
        state.PauseTiming();
        rows.reset();
        host.reset();
        state.ResumeTiming();
    }
}

void Create_Bare(benchmark::State& state)
{
    CreateRows<BareControls>(state);
}
void Create_Combinations(benchmark::State& state)
{
    CreateRows<Combinations>(state);
}

void Switch_Bare(benchmark::State& state)
{
    Host host;
    BareControls rows(host);
    bool other = false;
    for (auto _ : state) {
        other = !other;
        rows.SetTexts(other ? " =" : ":");
    }
}

void Switch_Combinations(benchmark::State& state)
{
    Host host;
    Combinations rows(host);
    bool other = false;
    for (auto _ : state) {
        other = !other;
        rows.UpdateUnit(other ? "us" : "iso");
    }
}

BENCHMARK(Create_Bare)->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(5);
BENCHMARK(Create_Combinations)->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(5);
BENCHMARK(Switch_Bare)->Unit(benchmark::kMillisecond);
BENCHMARK(Switch_Combinations)->Unit(benchmark::kMillisecond);

}  // namespace
