// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/localizable.h"
#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/input/controls/tv_radiobutton.h"
#include "gui_base/input/controls/tv_searchctrl.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/tv_statusbar.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/input/controls/tv_validated_textctrl.h"
#include "gui_base/input/events.h"
#include "gui_base/input/validation/double_validator.h"
#include "tests/support/gui_test.h"

#include <wx/panel.h>
#include <wx/scrolwin.h>
#include <wx/statbox.h>
#include <wx/uiaction.h>

namespace {

using namespace gui_test;
using Entries = std::vector<std::pair<std::string, std::string>>;

class ControlsTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        m_panel = MakePanel();
    }
    wxPanel* m_panel = nullptr;
};

TEST_F(ControlsTest, TextsFollowTheLanguageThereAndBack)
{
    std::vector<std::shared_ptr<LocalizableControl>> holders;
    const auto held = [&holders](auto* control) {
        holders.push_back(MakeLocalizable(control));
        return control;
    };
    auto* label = held(new TvStaticText(m_panel, wxID_ANY, "Value", ":"));
    label->SetTranslatableToolTip("Tip");
    auto* button = held(new TvButton(m_panel, wxID_ANY, "Value"));
    auto* box = held(new TvStaticBoxSizer(wxVERTICAL, m_panel, "Value"));
    m_panel->SetSizer(box);
    auto* check = held(new TvCheckBox(m_panel, wxID_ANY, "Value", wxDefaultPosition, wxDefaultSize, 0,
                                      wxDefaultValidator, "check", nullptr, "!"));
    auto* radio = held(new TvRadioButton(m_panel, wxID_ANY, "Value"));
    auto* search = held(new TvSearchControl(m_panel, wxID_ANY));
    search->SetTranslatableHint("Tip");
    auto* field = held(new TvTextCtrl(m_panel, wxID_ANY));
    field->SetHint("Tip");
    auto* choice = held(new tvChoice({{7, "Value"}, {9, "No entry"}}, nullptr, m_panel, wxID_ANY));
    choice->SetDefault(7);

    const auto expect = [&](const wxString& value, const wxString& tip) {
        for (const auto& holder : holders) {
            holder->Localize("iso");
            holder->Localize("iso");
        }
        EXPECT_EQ(label->GetLabelText(), value + ":");
        EXPECT_EQ(label->GetToolTipText(), tip);
        EXPECT_EQ(button->GetLabel(), value);
        EXPECT_EQ(box->GetStaticBox()->GetLabel(), value);
        EXPECT_EQ(check->GetLabel(), value + "!");
        EXPECT_EQ(radio->GetLabel(), value);
        EXPECT_EQ(search->GetDescriptiveText(), tip);
        EXPECT_EQ(field->GetHint(), tip);
        EXPECT_EQ(field->GetValue(), "");
        EXPECT_EQ(choice->GetString(0), value);
        EXPECT_EQ(choice->GetString(1), "No entry");
        EXPECT_EQ(choice->GetID(), 7);
        EXPECT_EQ(choice->GetStringUnlocalized(), "Value");
    };
    expect("Value", "Tip");
    {
        const TestCatalogue german(Entries{{"Value", "Wert"}, {"Tip", "Hinweis"}});
        expect("Wert", "Hinweis");
        choice->SetStringSelectionFromUnlocalized("Wert");
        EXPECT_EQ(choice->GetSelection(), wxNOT_FOUND) << "a translation is no source text";
        choice->SetStringSelectionFromUnlocalized("Value");
        EXPECT_EQ(choice->GetSelection(), 0);
        // A control made now is translated at once.
        EXPECT_EQ((new TvStaticText(m_panel, wxID_ANY, "Value", "="))->GetLabelText(), "Wert=");
    }
    expect("Value", "Tip");

    label->SetLabelText("Other");
    label->SetSuffix(" x");
    EXPECT_EQ(label->GetLabelText(), "Other:");
    label->Localize("iso");
    EXPECT_EQ(label->GetLabelText(), "Other x");

    button->Destroy();
    for (const auto& holder : holders)
        holder->Localize("iso");
}

TEST_F(ControlsTest, StatusBarTranslatesAgain)
{
    auto* bar = dynamic_cast<TvStatusBar*>(m_frame->GetStatusBar());
    bar->SetStatusText("Value", 0);
    bar->SetStatusText("Plain", 2);
    {
        const TestCatalogue german(Entries{{"Value", "Wert"}});
        bar->Localize();
        EXPECT_EQ(bar->GetStatusText(0), "Wert");
        EXPECT_EQ(bar->GetStatusText(2), "Plain");
        // Cleared through the base class, as validators do.
        static_cast<wxStatusBar*>(bar)->SetStatusText("", 0);
        bar->Localize();
        EXPECT_EQ(bar->GetStatusText(0), "");
    }
}

TEST_F(ControlsTest, CheckBoxWritesItsDetail)
{
    DetailData detail("b", DetailType::Bool);
    detail.SetValue(true);
    auto* bound = new TvCheckBox(m_panel, wxID_ANY, "Bound", wxPoint(20, 20), wxDefaultSize, 0,
                                 wxDefaultValidator, "bound", &detail);
    EXPECT_TRUE(bound->GetValue());
    int heard = 0;
    m_panel->Bind(wxEVT_CHECKBOX, [&](wxCommandEvent&) { ++heard; });
    Click(*bound);
    EXPECT_FALSE(detail.GetBoolValue());
    EXPECT_EQ(heard, 1);
    detail.SetValue(true);
    bound->TransferDetailToWindow();
    EXPECT_TRUE(bound->GetValue());

    auto* free = new TvCheckBox(m_panel, wxID_ANY, "Free", wxPoint(20, 60));
    free->SetDetailValue(true);
    free->TransferDetailToWindow();
    EXPECT_FALSE(free->GetValue());
    free->SetValueDetail(&detail);
    free->TransferDetailToWindow();
    EXPECT_TRUE(free->GetValue());
}

TEST_F(ControlsTest, ChoicesMapTheirDetail)
{
    DetailData key("k", DetailType::Long);
    DetailData label("s", DetailType::String);
    const tvChoice::Items items{{10, "ten"}, {20, "twenty"}, {30, "thirty"}};
    auto* byKey = new tvChoice(items, &key, m_panel, wxID_ANY, wxPoint(20, 20));
    auto* byLabel = new tvChoice(items, &label, m_panel, wxID_ANY, wxPoint(20, 80));
    wxString lastChange;
    m_panel->Bind(tvCHANGE_EVENT, [&](wxCommandEvent& event) { lastChange = event.GetString(); });

    key.SetValue(20L);
    label.SetValue("thirty");
    byKey->TransferDetailToWindow();
    byLabel->TransferDetailToWindow();
    EXPECT_EQ(byKey->GetSelection(), 1);
    EXPECT_EQ(byLabel->GetID(), 30);
    label.SetValue("forty");
    byLabel->TransferDetailToWindow();
    EXPECT_EQ(byLabel->GetSelection(), wxNOT_FOUND);
    EXPECT_EQ(lastChange, "") << "showing a value is no choice of the user";

    Focus(*byKey);
    wxUIActionSimulator simulator;
    simulator.Select("thirty");
    Pump();
    EXPECT_EQ(key.GetLongValue(), 30);
    EXPECT_EQ(lastChange, "thirty");
    Focus(*byLabel);
    simulator.Select("ten");
    Pump();
    EXPECT_EQ(label.GetStringValue(), "ten");
    EXPECT_EQ(lastChange, "ten");
}

TEST_F(ControlsTest, UnitChoiceShowsAUnitThatItDoesNotOffer)
{
    DetailData unit("u", DetailType::String);
    unit.SetValue("g/m3");
    auto* choice = new tvUnitChoice(std::vector<wxString>{"meq/l", "mg/l"}, &unit, m_panel, wxID_ANY);
    EXPECT_EQ(choice->GetStringSelection(), "g/m3");
    EXPECT_FALSE(choice->Offers("g/m3"));
    unit.SetValue("mg/l");
    choice->TransferDetailToWindow();
    EXPECT_EQ(choice->GetStringSelection(), "mg/l");
    EXPECT_EQ(choice->GetCount(), 2u);
}

TEST_F(ControlsTest, TheWheelLeavesAnUnfocusedChoiceAlone)
{
    DetailData key("k", DetailType::Long);
    auto* choice = new tvChoice({{0, "a"}, {1, "b"}, {2, "c"}}, &key, m_panel, wxID_ANY, wxPoint(20, 20));
    auto* other = new wxTextCtrl(m_panel, wxID_ANY, "", wxPoint(20, 80));
    int scrolled = 0;
    m_panel->Bind(wxEVT_MOUSEWHEEL, [&](wxMouseEvent&) { ++scrolled; });
    Focus(*other);
    wxMouseEvent wheel(wxEVT_MOUSEWHEEL);
    wheel.m_wheelRotation = -120;
    wheel.m_wheelDelta = 120;
    wheel.SetEventObject(choice);
    choice->GetEventHandler()->ProcessEvent(wheel);
    EXPECT_EQ(scrolled, 1);
    EXPECT_EQ(choice->GetSelection(), 0);
}

TEST_F(ControlsTest, UnitLabels)
{
    struct Case
    {
        const char* iso;
        bool convert;
        const char* system;
        const char* expected;
    };
    const std::vector<Case> cases{{"bar", true, "us", "psi/"},
                                  {"bar", false, "us", "bar/"},
                                  {"mg/l", true, "us", "mg/l/"},
                                  {"n/a", true, "us", ""},
                                  {"", true, "us", ""}};
    for (const auto& c : cases) {
        auto* label = new TvUnitLabel(m_panel, c.iso, true, c.convert, "/");
        label->Localize(c.system);
        EXPECT_EQ(label->GetLabelText(), c.expected) << c.iso << " " << c.convert;
    }
}

TEST_F(ControlsTest, ValidatedFieldFollowsDetailAndUnitSystem)
{
    DetailData detail("t", DetailType::Double, "°C");
    detail.SetValue(20.0);
    auto* field = new TvValidatedDoubleTextCtrl({.parent = m_panel, .maxValue = 100.0, .detail = &detail});
    auto* fixed = new TvValidatedDoubleTextCtrl({.parent = m_panel,
                                                 .pos = wxPoint(10, 60),
                                                 .maxValue = 100.0,
                                                 .detail = &detail,
                                                 .followUnitSystem = false});
    EXPECT_EQ(field->GetValue(), "20");
    field->UpdateUnit("us");
    fixed->UpdateUnit("us");
    EXPECT_EQ(field->GetValue(), "68");
    EXPECT_EQ(fixed->GetValue(), "20");
    EXPECT_EQ(dynamic_cast<DoubleValidator&>(*field->GetValidator()).GetMaxValue(), 212.0);
    detail.SetLimits(10.0, 50.0, "°C");
    field->UpdateUnit("us");
    EXPECT_EQ(dynamic_cast<DoubleValidator&>(*field->GetValidator()).GetMinValue(), 50.0);
    EXPECT_EQ(dynamic_cast<DoubleValidator&>(*field->GetValidator()).GetMaxValue(), 122.0);

    int changes = 0;
    m_panel->Bind(tvCHANGE_EVENT, [&](wxCommandEvent& event) {
        ++changes;
        EXPECT_EQ(event.GetId(), field->GetId());
        EXPECT_EQ(event.GetInt(), 0);
        EXPECT_EQ(event.GetString(), "");
    });
    const auto commit = [&](const wxString& text) {
        field->ChangeValue(text);
        field->MarkDirty();
        EXPECT_TRUE(field->TransferDataFromWindow());
        Pump();
    };
    commit("86");
    EXPECT_NEAR(detail.GetDoubleValue(), 30.0, 1e-9);
    EXPECT_EQ(changes, 1);
    commit("86");
    EXPECT_EQ(changes, 1) << "an unchanged value tells nobody";
    commit("1000");
    EXPECT_NEAR(detail.GetDoubleValue(), 50.0, 1e-9) << "clamped to the limit";
    field->SetToDefault();
    EXPECT_EQ(detail.GetDoubleValue(), 0.0);
}

TEST_F(ControlsTest, DefaultConfigurationClampsAndTrims)
{
    DetailData detail("x");
    auto* field = new TvValidatedDoubleTextCtrl({.parent = m_panel, .detail = &detail});
    for (const auto& [text, expected] :
         std::vector<std::pair<const char*, double>>{{"-1", 0}, {"1e9", 999999}}) {
        field->ChangeValue(text);
        field->MarkDirty();
        field->TransferDataFromWindow();
        EXPECT_EQ(detail.GetDoubleValue(), expected);
    }
}

TEST_F(ControlsTest, AFieldWithABindingOfItsOwnFollowsTheUnitSystem)
{
    DetailData detail("temp", DetailType::Double, "\u00b0C");
    detail.SetValue(20.0);
    auto* field = new TvValidatedDoubleTextCtrl({.parent = m_panel, .detail = &detail});
    auto* iso =
        new TvValidatedDoubleTextCtrl({.parent = m_panel, .detail = &detail, .followUnitSystem = false});
    const auto holder = MakeLocalizable(field);
    field->Localize("us");
    EXPECT_EQ(field->GetValue(), "68");
    holder->Localize("iso");
    EXPECT_EQ(field->GetValue(), "20");
    static_cast<TvTextCtrl*>(field)->Localize("us");
    EXPECT_EQ(field->GetValue(), "68");
    iso->Localize("us");
    EXPECT_EQ(iso->GetValue(), "20");
    field->ChangeValue("5");
    field->MarkDirty();
    field->Localize(wxString("iso"));
    EXPECT_EQ(field->GetValue(), "5") << "what is being typed stays";
    EXPECT_EQ(detail.GetDoubleValue(), 20.0);
}

TEST_F(ControlsTest, ValidatedTextField)
{
    DetailData detail("s", DetailType::String);
    detail.SetValue("old");
    auto* field = new TvValidatedTextCtrl({.parent = m_panel, .defaultText = "default", .detail = &detail});
    new wxTextCtrl(m_panel, wxID_ANY, "", wxPoint(10, 60));
    EXPECT_EQ(field->GetValue(), "old");
    field->Localize(wxString("us"));
    EXPECT_EQ(field->GetUnit(), "us");
    int changes = 0;
    m_panel->Bind(tvCHANGE_EVENT, [&](wxCommandEvent&) { ++changes; });
    field->Bind(wxEVT_TEXT_ENTER, [field](wxCommandEvent&) { field->TransferDataFromWindow(); });
    gui_test::Enter(*field, "new");
    EXPECT_EQ(detail.GetStringValue(), "new");
    EXPECT_EQ(changes, 1);
    field->SetToDefault();
    EXPECT_EQ(field->GetValue(), "default");
}

TEST_F(ControlsTest, ReadOnlyFieldsKeepTheirColour)
{
    double value = 3.0;
    auto* field = new TvTextCtrl(m_panel, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxTE_READONLY,
                                 DoubleValidator(&value));
    EXPECT_EQ(field->GetBackgroundColour(), TvTextCtrl::ReadOnlyColour());
    field->TransferDataToWindow();
    EXPECT_EQ(field->GetBackgroundColour(), TvTextCtrl::ReadOnlyColour());
    field->SetEditable(true);
    field->TransferDataToWindow();
    EXPECT_EQ(field->GetBackgroundColour(), TvTextCtrl::EditableColour());
}

TEST_F(ControlsTest, TextsThatBecomeTooLongAreCut)
{
    DetailData place("liquid/place", DetailType::String);
    DetailData comments("liquid/comments", DetailType::String);
    auto* line = new TvValidatedTextCtrl({.parent = m_panel, .detail = &place});
    auto* lines = new TvValidatedTextCtrl({.parent = m_panel, .style = wxTE_MULTILINE, .detail = &comments});
    for (const auto& [field, most] : {std::pair<TvTextCtrl*, std::size_t>{line, 1'000}, {lines, 100'000}}) {
        const wxString pasted(wxUniChar(0x6c34), most + 500);
        field->SetValue(pasted);
        gui_test::Pump();
        EXPECT_EQ(field->GetValue().length(), most);
        field->AppendText("x");
        gui_test::Pump();
        EXPECT_EQ(field->GetValue().length(), most);
        EXPECT_EQ(field->GetValue().Last(), wxUniChar(0x6c34));
        // What an older file holds is shown as it is.
        field->ChangeValue(pasted);
        gui_test::Pump();
        EXPECT_EQ(field->GetValue().length(), pasted.length());
    }
}

}  // namespace
