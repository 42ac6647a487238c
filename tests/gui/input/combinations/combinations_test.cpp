// SPDX-License-Identifier: MIT
#include "core/ion_units.h"
#include "gui_base/input/combinations/dynamic_limit_ion_input.h"
#include "gui_base/input/combinations/input_combination_named_ion.h"
#include "gui_base/input/combinations/input_combination_unit_choice.h"
#include "gui_base/input/events.h"
#include "gui_base/input/validation/double_validator.h"
#include "projectbase/units/unit_system_manager.h"
#include "tests/support/gui_test.h"

#include <wx/choice.h>
#include <wx/panel.h>

#include <cmath>
#include <cstdlib>
#include <memory>

namespace {

using namespace gui_test;
using Entries = std::vector<std::pair<std::string, std::string>>;

struct Heard
{
    wxEventType type;
    int id;
    int value;
    wxString text;
};

/// A panel that notes the events of its combinations.
class CombinationTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        m_panel = MakePanel();
        m_sizer = new wxBoxSizer(wxHORIZONTAL);
        m_panel->SetSizer(m_sizer);
        const auto note = [this](wxCommandEvent& event) {
            m_heard.push_back({event.GetEventType(), event.GetId(), event.GetInt(), event.GetString()});
        };
        m_panel->Bind(tvCHANGE_EVENT, note);
        m_panel->Bind(tvUNITCHANGED_EVENT, note);
        m_panel->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { ++m_enters; });
    }
    void AddOtherField()
    {
        m_other = new wxTextCtrl(m_panel, wxID_ANY);
        m_sizer->Add(m_other);
        m_panel->Layout();
        Pump();
    }
    /// Goes to the item by arrow keys, each of which chooses an item; notes the events of the last one.
    void Choose(wxChoice& choice, const wxString& item)
    {
        Focus(choice);
        const int target = choice.FindString(item, true);
        const int key = target > choice.GetSelection() ? WXK_DOWN : WXK_UP;
        for (int steps = std::abs(target - choice.GetSelection()); steps > 0; --steps) {
            m_heard.clear();
            Press(key);
        }
        ASSERT_EQ(choice.GetSelection(), target) << item;
    }
    void ExpectOneChange(int id)
    {
        ASSERT_EQ(m_heard.size(), 1u);
        EXPECT_EQ(m_heard[0].type, tvCHANGE_EVENT);
        EXPECT_EQ(m_heard[0].id, id);
        m_heard.clear();
    }

    wxPanel* m_panel = nullptr;
    wxSizer* m_sizer = nullptr;
    wxTextCtrl* m_other = nullptr;
    std::vector<Heard> m_heard;
    int m_enters = 0;  ///< how often the key or its stand-in reached the panel
};

class UnitChoiceTest : public CombinationTest
{
protected:
    std::unique_ptr<InputCombinationUnitChoice> Make(wxSizer* sizer, int defaultUnit = wxNOT_FOUND)
    {
        return std::make_unique<InputCombinationUnitChoice>(
            m_panel, 501, "Pressure", tvChoice::Items{{1, "bar"}, {2, "psi"}, {3, "kPa"}, {4, "m"}}, &m_value,
            &m_unit, sizer, 0.0, 10.0, 3, TvTextCtrlFormat::General, CheckMin | CheckMax, wxSize(90, -1),
            *wxYELLOW, 0, defaultUnit);
    }
    double Limit(const InputCombinationUnitChoice& row)
    {
        return dynamic_cast<DoubleValidator&>(*row.GetTextCtrl()->GetValidator()).GetMaxValue();
    }

    DetailData m_value{"p", DetailType::Double, "bar"};
    DetailData m_unit{"p.unit", DetailType::String};
};

TEST_F(UnitChoiceTest, CreatesItsControlsInOrder)
{
    m_value.SetValue(2.5);
    m_unit.SetValue("psi");
    auto row = Make(m_sizer);
    ASSERT_EQ(m_sizer->GetItemCount(), 3u);
    EXPECT_EQ(m_sizer->GetItem(size_t{0})->GetWindow(), row->GetLabel());
    EXPECT_EQ(m_sizer->GetItem(size_t{1})->GetWindow(), row->GetTextCtrl());
    EXPECT_EQ(m_sizer->GetItem(size_t{2})->GetWindow(), row->GetChoice());
    EXPECT_EQ(row->GetLabel()->GetId(), wxID_STATIC);
    EXPECT_EQ(row->GetTextCtrl()->GetValue(), "2.500000");
    EXPECT_EQ(row->GetTextCtrl()->GetBackgroundColour(), *wxYELLOW);
    EXPECT_TRUE(row->GetTextCtrl()->HasFlag(wxTE_RIGHT));
    EXPECT_TRUE(row->GetTextCtrl()->HasFlag(wxTE_RICH2));
    EXPECT_EQ(row->GetControlId(), 501);
    EXPECT_EQ(row->GetInputWindow(), row->GetTextCtrl());
    EXPECT_EQ(row->GetChoice()->GetID(), 2);
    EXPECT_EQ(m_value.GetUnit(), "psi");
    row->TransferDetailToWindow();
    EXPECT_EQ(row->GetTextCtrl()->GetValue(), "2.5");
    EXPECT_EQ(row->GetTextCtrl()->GetBackgroundColour(), *wxYELLOW) << "in range: the colour it was given";
    EXPECT_THROW(InputCombinationUnitChoice(m_panel, 1, "x", {}, nullptr, &m_unit, m_sizer, 0, 1, 3,
                                            TvTextCtrlFormat::General, 0),
                 std::runtime_error);
}

TEST_F(UnitChoiceTest, FirstUnit)
{
    const std::vector<std::tuple<const char*, int, const char*, std::size_t>> cases{
        {"", wxNOT_FOUND, "bar", 4}, {"", 3, "kPa", 4}, {"psi", 3, "psi", 4}, {"mWC", 3, "mWC", 5}};
    for (const auto& [stored, byDefault, expected, count] : cases) {
        m_unit.SetValue(stored);
        auto row = Make(m_sizer, byDefault);
        EXPECT_EQ(row->GetChoice()->GetStringUnlocalized(), expected) << stored;
        EXPECT_EQ(row->GetChoice()->GetCount(), count) << stored;
        EXPECT_EQ(m_value.GetUnit(), expected);
    }
    auto row = Make(nullptr);
    ASSERT_NE(row->GetSizer(), nullptr);
    m_sizer->Add(row->GetSizer());
    EXPECT_EQ(row->GetSizer()->GetItemCount(), 3u);
}

TEST_F(UnitChoiceTest, ChoosingAUnitSendsTwoEvents)
{
    m_value.SetValue(2.5);
    m_unit.SetValue("bar");
    auto row = Make(m_sizer);
    AddOtherField();
    Choose(*row->GetChoice(), "psi");
    ASSERT_EQ(m_heard.size(), 2u);
    EXPECT_EQ(m_heard[0].type, tvCHANGE_EVENT);
    EXPECT_EQ(m_heard[0].id, 501);
    EXPECT_EQ(m_heard[0].value, 0);
    EXPECT_EQ(m_heard[0].text, "");
    EXPECT_EQ(m_heard[1].type, tvUNITCHANGED_EVENT);
    EXPECT_EQ(m_heard[1].text, "psi");
    EXPECT_EQ(m_unit.GetStringValue(), "psi");
    EXPECT_EQ(m_unit.GetUnit(), "psi");
    EXPECT_EQ(m_value.GetUnit(), "psi");
    EXPECT_EQ(m_value.GetDoubleValue(), 2.5);

    row.reset();
    Choose(*dynamic_cast<wxChoice*>(m_sizer->GetItem(size_t{2})->GetWindow()), "kPa");
    ASSERT_EQ(m_heard.size(), 1u) << "only the choice's own event without the combination";
    EXPECT_EQ(m_value.GetUnit(), "psi");
}

TEST_F(UnitChoiceTest, TypedValuesAndLimits)
{
    m_value.SetLimits(std::nullopt, std::nullopt, "bar");
    m_unit.SetValue("bar");
    auto row = Make(m_sizer);
    row->TransferDetailToWindow();
    AddOtherField();
    Enter(*row->GetTextCtrl(), "4.5");
    EXPECT_EQ(m_enters, 1) << "the host may answer, too";
    EXPECT_EQ(m_value.GetDoubleValue(), 4.5);
    ExpectOneChange(501);
    Enter(*row->GetTextCtrl(), "4.5");
    Enter(*row->GetTextCtrl(), "4.5.5");
    EXPECT_TRUE(m_heard.empty());
    EXPECT_EQ(row->GetTextCtrl()->GetValue(), "4.5");
    Focus(*row->GetTextCtrl());
    row->GetTextCtrl()->SelectAll();
    Type("12");
    Press(WXK_RETURN);
    EXPECT_EQ(m_value.GetDoubleValue(), 12.0);
    EXPECT_EQ(m_value.GetRangeFlag(), 1);
    ExpectOneChange(501);

    // The limit of 10 bar in each unit; metres measure no pressure.
    for (const auto& [unit, limit] : std::vector<std::pair<const char*, double>>{
             {"psi", 145.037738}, {"kPa", 1000.0}, {"m", INFINITY}, {"bar", 10.0}}) {
        Choose(*row->GetChoice(), unit);
        if (std::isinf(limit))
            EXPECT_EQ(Limit(*row), limit) << unit;
        else
            EXPECT_NEAR(Limit(*row), limit, 1e-6) << unit;
    }
    row->SetMinMax(0.0, 20.0);
    EXPECT_EQ(row->GetTextCtrl()->GetBackgroundColour(), *wxYELLOW) << "12 is in range now";
}

TEST_F(UnitChoiceTest, UnitSystemsAndLanguages)
{
    m_value.SetValue(2.5);
    m_unit.SetValue("bar");
    auto row = Make(m_sizer);
    const auto expect = [&](const wxString& label, const wxString& unit) {
        for (const std::string& system : UnitSystemManager::GetUnitSystems()) {
            row->UpdateUnit(system);
            EXPECT_EQ(row->GetUnitSystem(), system);
            EXPECT_EQ(row->GetTextCtrl()->GetValue(), "2.5") << system << ": the chosen unit rules";
            EXPECT_EQ(row->GetLabel()->GetLabelText(), label);
            EXPECT_EQ(row->GetChoice()->GetStringSelection(), unit);
            EXPECT_EQ(row->GetUnit(), "bar");
        }
    };
    expect("Pressure", "bar");
    {
        const TestCatalogue german(Entries{{"Pressure", "Druck"}, {"bar", "Bar"}});
        expect("Druck", "Bar");
        EXPECT_EQ(row->GetTextCtrl()->GetName(), "Druck [Bar]");
    }
    {
        // Degrees of hardness are other amounts in other countries.
        const TestCatalogue french(Entries{{":", " :"}, {"\u00b0d", "\u00b0f"}});
        row->SetUnits({{1, "bar"}, {2, wxString::FromUTF8("\u00b0d")}});
        EXPECT_EQ(row->GetChoice()->GetString(1), wxString::FromUTF8("\u00b0d"));
        row->SetLabelSuffix(":");
        expect("Pressure :", "bar");
        row->SetLabelSuffix({});
    }
    expect("Pressure", "bar");
}

class IonTest : public CombinationTest
{
protected:
    static std::vector<wxString> Units()
    {
        std::vector<wxString> units;
        for (const std::string_view unit : ions::kIonUnits)
            units.push_back(wxString::FromUTF8(unit.data(), unit.size()));
        return units;
    }
    std::unique_ptr<InputCombinationIonConcentrationCtrl> Make(wxSizer* sizer)
    {
        return std::make_unique<InputCombinationIonConcentrationCtrl>(m_panel, 601, "Calcium", ":", &m_input,
                                                                      &m_unit, &m_output, sizer, Units(),
                                                                      m_frame->GetStatusBar(), 0.0, 1000.0);
    }
    static DoubleValidator& ValidatorOf(wxWindow* field)
    {
        return dynamic_cast<DoubleValidator&>(*field->GetValidator());
    }

    DetailData m_input{"liquid/ca.orig"};
    DetailData m_unit{"liquid/ca.unit", DetailType::String};
    DetailData m_output{"liquid/ca.meql", DetailType::Double, "meq/l"};
};

TEST_F(IonTest, CreatesItsControls)
{
    m_unit.SetValue("mg/l");
    auto row = Make(m_sizer);
    const std::vector<wxWindow*> controls{row->GetLabel(), row->GetInput(), row->GetUnitChoice(),
                                          row->GetOutput()};
    const std::vector<std::pair<int, int>> borders{
        {wxLEFT | wxRIGHT | wxBOTTOM, 3}, {wxBOTTOM, 3}, {wxLEFT | wxRIGHT, 5}, {wxLEFT | wxBOTTOM, 3}};
    ASSERT_EQ(m_sizer->GetItemCount(), controls.size());
    for (std::size_t i = 0; i < controls.size(); ++i) {
        EXPECT_EQ(m_sizer->GetItem(i)->GetWindow(), controls[i]) << i;
        EXPECT_EQ(m_sizer->GetItem(i)->GetFlag() & wxALL, borders[i].first) << i;
        EXPECT_EQ(m_sizer->GetItem(i)->GetBorder(), borders[i].second) << i;
    }
    EXPECT_EQ(row->GetInput()->GetMinWidth(), 63);
    EXPECT_EQ(row->GetOutput()->GetMinWidth(), 79);
    EXPECT_TRUE(row->GetInput()->HasFlag(wxTE_RICH) && row->GetInput()->HasFlag(wxTE_RIGHT));
    EXPECT_TRUE(row->GetOutput()->HasFlag(wxBORDER_STATIC));
    EXPECT_FALSE(row->GetOutput()->IsEditable());
    EXPECT_EQ(ValidatorOf(row->GetInput()).GetPrecision(), 4);
    EXPECT_EQ(ValidatorOf(row->GetOutput()).GetPrecision(), 5);

    auto own = Make(nullptr);
    m_sizer->Add(own->GetSizer());
    EXPECT_EQ(own->GetSizer()->GetItemCount(), 4u);
}

TEST_F(IonTest, EditsAndUnitsGiveEquivalents)
{
    m_unit.SetValue("mg/l");
    auto row = Make(m_sizer);
    AddOtherField();
    const double weight = row->GetEquivalentWeight();
    EXPECT_NEAR(weight, 20.04, 0.01);
    Enter(*row->GetInput(), "100");
    EXPECT_EQ(m_enters, 1);
    EXPECT_NEAR(m_output.GetDoubleValue(), 100.0 / weight, 1e-12);
    EXPECT_EQ(row->GetOutput()->GetValue().Left(3), "4.9");
    ExpectOneChange(601);
    Enter(*row->GetInput(), "100");
    EXPECT_TRUE(m_heard.empty());

    Choose(*row->GetUnitChoice(), "ppm CaCO3");
    EXPECT_EQ(m_unit.GetStringValue(), "ppm CaCO3");
    EXPECT_EQ(m_input.GetDoubleValue(), 100.0);
    EXPECT_NEAR(m_output.GetDoubleValue(), 2.0, 1e-12);
    EXPECT_EQ(row->GetOutput()->GetValue(), "2");
    ExpectOneChange(601);

    // The limit stands for what is beyond it, in the field and in the project, and nothing is coloured.
    Enter(*row->GetInput(), "2000");
    EXPECT_EQ(row->GetInput()->GetValue(), "1000");
    EXPECT_EQ(m_input.GetDoubleValue(), 1000.0);
    EXPECT_EQ(row->GetInput()->GetBackgroundColour(), TvTextCtrl::EditableColour());
    EXPECT_NEAR(m_output.GetDoubleValue(), 20.0, 1e-12);
    m_output.SetValue(5000.0);
    row->TransferDetailToWindow();
    EXPECT_EQ(row->GetOutput()->GetValue(), "5000");
    EXPECT_EQ(row->GetOutput()->GetBackgroundColour(), TvTextCtrl::ReadOnlyColour());

    // An edit elsewhere in between is not overwritten by choosing a unit.
    m_input.SetValue(7.0);
    Choose(*row->GetUnitChoice(), "meq/l");
    EXPECT_EQ(m_output.GetDoubleValue(), 7.0);

    row->SetIon("unknown");
    Choose(*row->GetUnitChoice(), "mg/l");
    EXPECT_TRUE(std::isnan(m_output.GetDoubleValue()));
    EXPECT_EQ(row->GetOutput()->GetValue(), "");

    auto* input = row->GetInput();
    row.reset();
    Enter(*input, "3");
    EXPECT_TRUE(std::isnan(m_output.GetDoubleValue())) << "nobody is left to compute";
}

TEST_F(IonTest, TheWindowsMayGoFirst)
{
    m_unit.SetValue("mg/l");
    auto row = Make(nullptr);
    m_sizer->Add(row->GetSizer());
    auto pressure = std::make_unique<InputCombinationUnitChoice>(
        m_panel, 502, "Pressure", tvChoice::Items{{1, "bar"}}, &m_output, &m_unit, m_sizer, 0.0, 10.0, 3,
        TvTextCtrlFormat::General, 0);
    m_panel->Destroy();
    Pump();
    EXPECT_EQ(row->GetInput(), nullptr);
    row->UpdateUnit("us");
    pressure->UpdateUnit("us");
    EXPECT_EQ(pressure->GetInputWindow(), nullptr);
    row.reset();
    pressure.reset();
}

TEST_F(IonTest, UnitSystemsAndLanguages)
{
    m_input.SetValue(2.5);
    m_unit.SetValue("meq/l");
    m_output.SetValue(2.5);
    auto row = Make(m_sizer);
    const auto expect = [&](const wxString& label) {
        for (const std::string& system : UnitSystemManager::GetUnitSystems()) {
            row->UpdateUnit(system);
            EXPECT_EQ(row->GetLabel()->GetLabelText(), label);
            EXPECT_EQ(row->GetInput()->GetValue(), "2.5") << system;
            EXPECT_EQ(row->GetOutput()->GetValue(), "2.5") << system;
            EXPECT_EQ(row->GetUnitChoice()->GetStringSelection(), "meq/l");
        }
    };
    expect("Calcium:");
    {
        const TestCatalogue german(Entries{{"Calcium", "Kalzium"}, {"meq/l", "not translated"}});
        expect("Kalzium:");
        EXPECT_EQ(row->GetInput()->GetName(), "Kalzium");
    }
    expect("Calcium:");
}

TEST_F(IonTest, TheNameDecidesTheWeight)
{
    DetailData input("liquid/x1.orig");
    DetailData name("liquid/x1.name", DetailType::String);
    input.SetValue(36.0);
    m_unit.SetValue("mg/l");
    InputCombinationNamedIonConcentrationCtrl row(m_panel, 602, "Other", ":", &name, &input, &m_unit,
                                                  &m_output, m_sizer, Units(), nullptr, 0.0, 1000.0);
    AddOtherField();
    ASSERT_EQ(m_sizer->GetItemCount(), 6u);
    EXPECT_EQ(m_sizer->GetItem(size_t{1})->GetWindow(), row.GetNameCtrl());
    for (const auto& [typed, meq] :
         std::vector<std::pair<const char*, double>>{{"Li", 36.0 / 22.99}, {"nh4", 36.0 / 18.04}}) {
        Enter(*row.GetNameCtrl(), typed);
        EXPECT_EQ(name.GetStringValue(), typed);
        EXPECT_NEAR(m_output.GetDoubleValue(), meq, 0.01) << typed;
        ExpectOneChange(row.GetNameCtrl()->GetId());
    }
    EXPECT_EQ(m_enters, 2) << "of the names";
    Enter(*row.GetInput(), "18.04");
    EXPECT_NEAR(m_output.GetDoubleValue(), 1.0, 0.01);
    ExpectOneChange(602);
}

TEST_F(IonTest, LimitsFollowTheirDetail)
{
    DetailData limit("liquid/ca.limit", DetailType::Double, "meq/l");
    limit.SetValue(5.0);
    m_unit.SetValue("meq/l");
    DynamicLimitIonInputCtrl row(m_panel, 603, "Calcium", ":", &m_input, &m_unit, &m_output, &limit, m_sizer,
                                 Units(), nullptr, 0.0, 1000.0);
    AddOtherField();
    Enter(*row.GetInput(), "8");
    EXPECT_EQ(m_input.GetDoubleValue(), 5.0);
    EXPECT_EQ(row.GetInput()->GetValue(), "5");
    ExpectOneChange(603);

    limit.SetValue(3.0);
    row.TransferDetailToWindow();
    EXPECT_EQ(m_input.GetDoubleValue(), 5.0) << "showing changes nothing";
    EXPECT_EQ(row.GetInput()->GetValue(), "5");
    row.UpdateLimits();
    Pump();
    EXPECT_EQ(m_input.GetDoubleValue(), 3.0);
    EXPECT_EQ(m_output.GetDoubleValue(), 3.0);
    ExpectOneChange(603);
    row.UpdateLimits();
    Pump();
    EXPECT_TRUE(m_heard.empty());

    // 3 meq/l are 150 ppm as calcium carbonate; 100 of another unit are put at the limit of that one.
    Choose(*row.GetUnitChoice(), "ppm CaCO3");
    Enter(*row.GetInput(), "1000");
    EXPECT_NEAR(m_input.GetDoubleValue(), 150.0, 1e-9);
    Choose(*row.GetUnitChoice(), "mg/l");
    EXPECT_NEAR(m_input.GetDoubleValue(), 3.0 * row.GetEquivalentWeight(), 1e-9);
    limit.SetValue(NAN);
    EXPECT_EQ(row.GetMaximum(), 1000.0);
}

}  // namespace
