// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/localizable.h"
#include "gui_base/input/controls/tv_bitmapbutton.h"
#include "gui_base/input/controls/tv_choiceadv.h"
#include "gui_base/input/controls/tv_datepickerctrl.h"
#include "gui_base/input/controls/tv_enablinggroup.h"
#include "gui_base/input/controls/tv_optioncheckbox.h"
#include "gui_base/input/events.h"
#include "gui_base/input/validation/commit.h"
#include "tests/support/gui_test.h"

#include <wx/artprov.h>
#include <wx/combo.h>
#include <wx/dateevt.h>
#include <wx/panel.h>
#include <wx/textctrl.h>

namespace {

using namespace gui_test;
using Entries = std::vector<std::pair<std::string, std::string>>;

class FurtherControlsTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        m_panel = MakePanel();
        m_panel->Bind(tvCHANGE_EVENT, [this](wxCommandEvent& event) {
            ++m_changes;
            m_text = event.GetString();
        });
    }
    wxPanel* m_panel = nullptr;
    int m_changes = 0;
    wxString m_text;
};

TEST_F(FurtherControlsTest, TextsFollowTheLanguage)
{
    TvOption option{.label = "Value", .tooltip = "Tip"};
    DetailData options("o", DetailType::String);
    auto* button = new TvBitmapButton(m_panel, wxID_ANY, wxArtProvider::GetBitmapBundle(wxART_NEW), nullptr);
    button->SetTranslatableToolTip("Tip");
    auto* record = new TvOptionCheckBox(m_panel, wxID_ANY, option);
    auto* process = new TvProcessOptionCheckBox(m_panel, wxID_ANY, {1, "Value", "Tip"}, &options);
    auto* choice = new tvChoiceAdv({{"a", "No entry"}, {"b", "Value"}}, nullptr, m_panel, wxID_ANY);
    choice->SelectKey("b");
    auto* date = new TvDatePickerCtrl(m_panel, wxID_ANY, nullptr);
    date->SetTranslatableToolTip("Tip");
    const std::vector<std::shared_ptr<LocalizableControl>> holders{
        MakeLocalizable(button), MakeLocalizable(record), MakeLocalizable(process), MakeLocalizable(choice),
        MakeLocalizable(date)};
    const auto expect = [&](const wxString& value, const wxString& tip) {
        for (const auto& holder : holders) {
            holder->Localize("iso");
            holder->Localize("us");
        }
        for (const wxWindow* window : std::vector<wxWindow*>{button, record, process, date})
            EXPECT_EQ(window->GetToolTipText(), tip);
        EXPECT_EQ(record->GetLabel(), value);
        EXPECT_EQ(process->GetLabel(), value);
        EXPECT_EQ(choice->GetStringSelection(), value);
        EXPECT_EQ(choice->GetKey(), "b");
        EXPECT_EQ(choice->GetStringUnlocalized(), "Value");
    };
    expect("Value", "Tip");
    {
        const TestCatalogue german(Entries{{"Value", "Wert"}, {"Tip", "Hinweis"}});
        expect("Wert", "Hinweis");
    }
    expect("Value", "Tip");
}

TEST_F(FurtherControlsTest, BitmapButtonFollowsItsSibling)
{
    auto* field = new wxTextCtrl(m_panel, wxID_ANY, "", wxPoint(20, 20));
    auto* button = new TvBitmapButton(m_panel, wxID_ANY, wxArtProvider::GetBitmapBundle(wxART_NEW), field,
                                      wxPoint(300, 20));
    EXPECT_EQ(button->GetBestSize().y, field->GetBestSize().y);
    EXPECT_GE(button->GetBestSize().x, 16);
    EXPECT_TRUE(button->IsShown());
    int clicks = 0;
    m_panel->Bind(wxEVT_BUTTON, [&](wxCommandEvent&) { ++clicks; });
    Click(*button);
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(PumpUntil([&] { return field->HasFocus(); }));
    field->Disable();
    EXPECT_TRUE(PumpUntil([&] { return !button->IsEnabled(); }));
    field->Enable();
    field->Hide();
    EXPECT_TRUE(PumpUntil([&] { return button->IsEnabled() && !button->IsShown(); }));
    field->Show();
    EXPECT_TRUE(PumpUntil([&] { return button->IsShown(); }));
    field->Destroy();
    Pump();
    button->FollowSibling();
    EXPECT_TRUE(button->IsEnabled());
}

TEST_F(FurtherControlsTest, EnablingGroup)
{
    auto* box = new wxCheckBox(m_panel, wxID_ANY, "Box", wxPoint(20, 20));
    auto* first = new wxTextCtrl(m_panel, wxID_ANY, "", wxPoint(20, 60));
    auto* second = new wxTextCtrl(m_panel, wxID_ANY, "", wxPoint(20, 100));
    {
        TvEnablingGroup group;
        group.Add(nullptr);
        group.Add(first);
        group.Follow(box);
        EXPECT_FALSE(first->IsEnabled());
        group.Add(second);
        EXPECT_FALSE(second->IsEnabled()) << "takes the state of the group";
        Click(*box);
        EXPECT_TRUE(first->IsEnabled() && second->IsEnabled() && group.IsEnabled());
        box->SetValue(false);
        group.Update();
        EXPECT_FALSE(second->IsEnabled());
        first->Destroy();
        Pump();
        group.Enable(true);
        EXPECT_TRUE(second->IsEnabled());
        box->SetValue(true);
    }
    Click(*box);
    EXPECT_TRUE(second->IsEnabled()) << "the group is gone";
}

TEST_F(FurtherControlsTest, OptionsStoreTheirState)
{
    TvOption option{.label = "Option", .checked = true};
    auto* record = new TvOptionCheckBox(m_panel, wxID_ANY, option, wxPoint(20, 20));
    EXPECT_TRUE(record->GetValue());
    Click(*record);
    EXPECT_FALSE(option.checked);
    option.checked = true;
    option.available = false;
    record->TransferDetailToWindow();
    EXPECT_TRUE(record->GetValue());
    EXPECT_FALSE(record->IsEnabled());

    DetailData chosen("o", DetailType::String);
    chosen.SetValue("12 later 3");
    auto* seven = new TvProcessOptionCheckBox(m_panel, wxID_ANY, {7, "Seven", ""}, &chosen, wxPoint(20, 60));
    auto* twelve =
        new TvProcessOptionCheckBox(m_panel, wxID_ANY, {12, "Twelve", ""}, &chosen, wxPoint(20, 100));
    EXPECT_FALSE(seven->GetValue());
    EXPECT_TRUE(twelve->GetValue());
    Click(*seven);
    EXPECT_EQ(chosen.GetStringValue(), "3 7 12 later");
    Click(*twelve);
    EXPECT_EQ(chosen.GetStringValue(), "3 7 later");
    chosen.SetValue("12");
    seven->TransferDetailToWindow();
    EXPECT_FALSE(seven->GetValue());
    EXPECT_THROW(TvProcessOptionCheckBox(m_panel, wxID_ANY, {1, "x", ""}, nullptr), std::runtime_error);
}

TEST_F(FurtherControlsTest, ChoiceWithTextKeys)
{
    DetailData key("k", DetailType::String);
    key.SetValue("counter");
    const tvChoiceAdv::Items items{{"co", "Co-current"}, {"counter", "Counter-current"}};
    auto* choice = new tvChoiceAdv(items, &key, m_panel, wxID_ANY, wxPoint(20, 20));
    EXPECT_EQ(choice->GetSelection(), 1);
    Focus(*choice);
    Press(WXK_UP);
    EXPECT_EQ(key.GetStringValue(), "co");
    EXPECT_EQ(m_changes, 1);
    EXPECT_EQ(m_text, "co");
    choice->Set(tvChoiceAdv::Items{{"split", "Split"}, {"co", "Co-current"}});
    EXPECT_EQ(choice->GetKey(), "co");
    key.SetValue("counter");
    choice->TransferDetailToWindow();
    EXPECT_EQ(choice->GetSelection(), wxNOT_FOUND);
    EXPECT_EQ(choice->GetKey(), "");
    EXPECT_EQ(m_changes, 1);
}

TEST_F(FurtherControlsTest, DatePicker)
{
    DetailData detail("d", DetailType::Date);
    auto* picker = new TvDatePickerCtrl(m_panel, wxID_ANY, &detail, wxPoint(20, 20));
    EXPECT_FALSE(picker->GetValue().IsValid());
    const wxDateTime noon(15, wxDateTime::Mar, 2024, 12, 0);
    detail.SetValue(noon);
    picker->TransferDetailToWindow();
    EXPECT_TRUE(picker->GetValue().IsSameDate(noon));
    EXPECT_EQ(m_changes, 0);

    const auto choose = [&](const wxDateTime& day) {
        wxDateEvent event(picker, day, wxEVT_DATE_CHANGED);
        picker->GetEventHandler()->ProcessEvent(event);
        Pump();
    };
    choose(wxDateTime(15, wxDateTime::Mar, 2024));
    EXPECT_EQ(detail.GetDateValue(), noon) << "the same day keeps its time";
    EXPECT_EQ(m_changes, 0);
    choose(wxDateTime(16, wxDateTime::Mar, 2024));
    EXPECT_EQ(detail.GetDateValue(), wxDateTime(16, wxDateTime::Mar, 2024));
    choose(wxDefaultDateTime);
    EXPECT_FALSE(detail.GetDateValue().IsValid());
    EXPECT_EQ(m_changes, 2);

    // By keys, as the program writes dates, whatever the locale.
    auto& text = *dynamic_cast<wxComboCtrl&>(*picker->GetChildren().front()).GetTextCtrl();
    auto* other = new wxTextCtrl(m_panel, wxID_ANY, wxString(), wxPoint(20, 80));
    const auto type = [&](const char* typed) {
        Focus(text);
        text.SelectAll();
        Press(WXK_DELETE);
        Type(typed);
        Focus(*other);
        Pump();
        return text.GetValue();
    };
    EXPECT_EQ(type("2016-11-02"), "2016-11-02");
    EXPECT_TRUE(detail.GetDateValue().IsSameDate(wxDateTime(2, wxDateTime::Nov, 2016)));
    EXPECT_EQ(type("3/4/2017"), "2017-03-04") << "the locale's form, too";
    EXPECT_TRUE(detail.GetDateValue().IsSameDate(wxDateTime(4, wxDateTime::Mar, 2017)));
    EXPECT_EQ(type("2017-13-40"), "2017-03-04") << "no date";
    EXPECT_EQ(type(""), "");
    EXPECT_FALSE(detail.GetDateValue().IsValid());
    Focus(text);
    Type("2018-06-07");
    CommitFocusedField();  // as when the project is saved meanwhile
    EXPECT_TRUE(detail.GetDateValue().IsSameDate(wxDateTime(7, wxDateTime::Jun, 2018)));
}

}  // namespace
