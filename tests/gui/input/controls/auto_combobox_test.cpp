// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/auto_combobox.h"

#include "gui_base/input/controls/localizable.h"
#include "gui_base/input/controls/tv_auto_combobox.h"
#include "tests/support/gui_test.h"

#include <wx/panel.h>
#include <wx/textctrl.h>

#include <stdexcept>
#include <utility>

namespace {

using namespace gui_test;

class AutoComboBoxTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        m_panel = MakePanel();
        m_before = new wxTextCtrl(m_panel, wxID_ANY, "", wxPoint(20, 20));
        wxArrayString choices;
        for (const char* name : {"Albania", "Georgia", "Germany", "Ghana", "Österreich", "Ελλάδα"})
            choices.push_back(wxString::FromUTF8(name));
        m_box = new wxAutoComboBox(m_panel, wxID_ANY, "", wxPoint(20, 80), wxSize(300, -1), choices);
        Pump();
        m_panel->Bind(wxEVT_COMBOBOX, [this](wxCommandEvent& event) {
            EXPECT_EQ(event.GetId(), m_box->GetId());
            EXPECT_EQ(event.GetEventObject(), m_box);
            EXPECT_EQ(event.GetInt(), Selection());
            ++m_heard;
        });
    }
    int Selection() { return static_cast<wxComboBox*>(m_box)->GetSelection(); }
    /// The text with its marked part in brackets, and the selected entry.
    std::string Shown()
    {
        long from = 0;
        long to = 0;
        static_cast<wxComboBox*>(m_box)->GetSelection(&from, &to);
        wxString text = m_box->GetValue();
        if (from != to) {
            text.insert(static_cast<std::size_t>(to), "]");
            text.insert(static_cast<std::size_t>(from), "[");
        }
        return text.utf8_string() + " " + std::to_string(Selection());
    }
    std::string TypeKeys(const wxString& keys)
    {
        Type(keys);
        return Shown();
    }
    std::string PressKey(int key, int modifiers = 0)
    {
        Press(key, modifiers);
        return Shown();
    }
    /// Text that arrives at once, as from an input method, and the release of the key that ended it.
    std::string Compose(const char* text, int key = WXK_NONE)
    {
        m_box->WriteText(wxString::FromUTF8(text));
        wxKeyEvent release(wxEVT_KEY_UP);
        release.m_keyCode = key;
        m_box->GetEventHandler()->ProcessEvent(release);
        return Shown();
    }
    /// What the owner heard since the last call.
    int Heard() { return std::exchange(m_heard, 0); }

    wxPanel* m_panel = nullptr;
    wxTextCtrl* m_before = nullptr;
    wxAutoComboBox* m_box = nullptr;
    int m_heard = 0;
};

TEST_F(AutoComboBoxTest, CompletesWhatIsTyped)
{
    Focus(*m_box);
    EXPECT_EQ(TypeKeys("g"), "G[eorgia] 1");
    EXPECT_EQ(TypeKeys("er"), "Ger[many] 2");
    EXPECT_EQ(Heard(), 3);
    // A letter that leads nowhere shortens the text to what some entry starts with.
    EXPECT_EQ(TypeKeys("x"), "Ger[many] 2");
    EXPECT_EQ(TypeKeys("many"), "Germany 2");
    EXPECT_EQ(PressKey(WXK_END), "Germany 2");
    EXPECT_EQ(TypeKeys("a"), "Germany 2");
    m_box->SelectAll();
    EXPECT_EQ(TypeKeys("GEO"), "Geo[rgia] 1") << "letter case does not count";
    EXPECT_EQ(PressKey(WXK_RETURN), "Georgia 1");
    m_box->SelectAll();
    EXPECT_EQ(TypeKeys("xg"), "xg -1") << "no entry starts with it";
    m_box->ChangeValue(wxString());
    EXPECT_EQ(Compose("ger", WXK_RETURN), "Germany 2") << "Enter looks for what was pasted, and takes it";
    m_box->ChangeValue(wxString());
    EXPECT_EQ(PressKey(WXK_NUMPAD_ENTER), "[Albania] 0") << "nothing typed is the first entry";
}

TEST_F(AutoComboBoxTest, TakingTextAwayProposesNothing)
{
    Focus(*m_box);
    TypeKeys("ger");
    Heard();
    EXPECT_EQ(PressKey(WXK_BACK), "Ger -1");
    EXPECT_EQ(PressKey(WXK_BACK), "Ge -1");
    EXPECT_EQ(Heard(), 2);
    EXPECT_EQ(TypeKeys("r"), "Ger[many] 2");
    EXPECT_EQ(PressKey(WXK_DELETE), "Ger[many] 2") << "only backspace and arrows look for nothing";
    EXPECT_EQ(TypeKeys("m"), "Germ[any] 2");
    Heard();
    Press(WXK_LEFT);
    EXPECT_EQ(Selection(), 2);
    EXPECT_EQ(PressKey(WXK_RIGHT).substr(0, 7), "Germany");
    EXPECT_EQ(Heard(), 2);
    // Clearing the text chooses the first entry, ready to be typed over.
    m_box->SelectAll();
    EXPECT_EQ(PressKey(WXK_BACK), "[Albania] 0");
    EXPECT_EQ(TypeKeys("gh"), "Gh[ana] 3");
}

TEST_F(AutoComboBoxTest, ArrowsMoveThroughTheList)
{
    Focus(*m_box);
    TypeKeys("geo");
    Heard();
    Press(WXK_DOWN);
    EXPECT_EQ(Selection(), 2);
    EXPECT_EQ(m_box->GetValue(), "Germany");
    EXPECT_GE(Heard(), 1);
    Press(WXK_UP);
    EXPECT_EQ(m_box->GetValue(), "Georgia");
}

TEST_F(AutoComboBoxTest, MovingIntoTheBoxChoosesNothing)
{
    Focus(*m_before);
    Press(WXK_TAB);
    ASSERT_TRUE(m_box->HasFocus());
    EXPECT_EQ(Shown(), " -1") << "an empty box";
    static_cast<wxComboBox*>(m_box)->SetSelection(2);
    Focus(*m_before);
    Heard();
    Press(WXK_TAB);
    ASSERT_TRUE(m_box->HasFocus());
    EXPECT_EQ(Shown(), "[Germany] 2") << "Tab marks all of the text";
    EXPECT_EQ(Heard(), 1);
    for (const int key : {WXK_HOME, WXK_SHIFT, WXK_END, WXK_F9, WXK_ESCAPE}) {
        Press(key);
        EXPECT_EQ(m_box->GetValue(), "Germany") << key;
        EXPECT_EQ(Selection(), 2) << key;
    }
    EXPECT_EQ(PressKey('A', wxMOD_CONTROL), "[Germany] 2");
    // A text that is no entry stays too.
    m_box->ChangeValue("German beer");
    Focus(*m_before);
    Press(WXK_TAB);
    EXPECT_EQ(Shown(), "[German beer] -1");
}

TEST_F(AutoComboBoxTest, ComposedAndForeignLetters)
{
    Focus(*m_box);
    EXPECT_EQ(Compose("ö"), "Ö[sterreich] 4");
    EXPECT_EQ(Compose("STER"), "Öster[reich] 4");
    m_box->SelectAll();
    EXPECT_EQ(Compose("ελΛ"), "Ελλ[άδα] 5");
    m_box->SelectAll();
    EXPECT_EQ(Compose("ж"), "ж -1");
    // Keys of a composition under way: text and cursor are left alone, or the composition would end.
    m_box->SelectAll();
    m_box->WriteText("ge");
    Compose("");
    m_box->wxTextEntry::SetSelection(7, 7);
    Compose("");
    const std::string before = Shown();
    int changes = 0;
    m_box->Bind(wxEVT_TEXT, [&](wxCommandEvent&) { ++changes; });
    Heard();
    EXPECT_EQ(Compose(""), before);
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(Heard(), 1);
}

TEST_F(AutoComboBoxTest, FollowsChangesOfTheList)
{
    Focus(*m_box);
    TypeKeys("a");
    m_box->Insert("Afghanistan", 0);
    m_box->SelectAll();
    EXPECT_EQ(TypeKeys("a"), "A[fghanistan] 0");
    m_box->SetString(0, "Zambia");
    m_box->SelectAll();
    EXPECT_EQ(TypeKeys("z"), "Z[ambia] 0");
    m_box->Delete(0);
    m_box->SelectAll();
    EXPECT_EQ(TypeKeys("z"), "z -1");
    m_box->Clear();
    EXPECT_EQ(TypeKeys("g"), "g -1");
    EXPECT_EQ(PressKey(WXK_BACK), " -1") << "an empty list has no first entry";
    m_box->Append("Gabon");
    EXPECT_EQ(TypeKeys("g"), "G[abon] 0");
}

TEST_F(AutoComboBoxTest, IdentifiersStandBehindTranslatedLabels)
{
    const tvAutoComboBox::Entries entries{
        {"AT", "Austria"}, {"DE", "Germany"}, {"de", "Second"}, {"GE", "Georgia"}};
    auto* box = new tvAutoComboBox(entries, m_panel, wxID_ANY, wxPoint(20, 140), wxSize(300, -1), wxCB_SORT);
    wxComboBox& combo = *box;
    m_box = box;
    EXPECT_EQ(Shown(), " -1");
    EXPECT_THROW(box->GetID(), std::out_of_range);
    box->SetDefault("DE");
    EXPECT_EQ(Heard(), 1);
    EXPECT_EQ(box->GetID(), "DE");
    box->SetDefault("de");
    EXPECT_EQ(box->GetID(), "de") << "letter case counts";
    box->SelectWithEvent(3);
    EXPECT_EQ(box->GetID(), "GE");
    EXPECT_EQ(Heard(), 2);
    EXPECT_THROW(box->SelectWithEvent(4), std::out_of_range);
    box->SetDefault("unknown");
    EXPECT_EQ(Shown(), " -1");
    EXPECT_EQ(Heard(), 1);

    box->SetDefault("DE");
    const auto holder = MakeLocalizable(box);
    {
        const TestCatalogue german({{"Germany", "Deutschland"}, {"Austria", "Österreich"}});
        holder->Localize("iso");
        EXPECT_EQ(combo.GetString(0), wxString::FromUTF8("Österreich"));
        EXPECT_EQ(Shown(), "Deutschland 1");
        EXPECT_EQ(box->GetID(), "DE");
        Focus(*box);
        box->SelectAll();
        EXPECT_EQ(TypeKeys("deu"), "Deu[tschland] 1") << "the matcher follows the language";
        box->Set({{"FR", "France"}, {"DE", "Germany"}});
        EXPECT_EQ(Shown(), " -1");
        EXPECT_EQ(combo.GetString(1), "Deutschland");
    }
    box->SetDefault("DE");
    box->Localize();
    EXPECT_EQ(Shown(), "Germany 1");
    box->ChangeValue("free text");
    box->Localize();
    EXPECT_EQ(Shown(), "free text -1");
}

}  // namespace
