// SPDX-License-Identifier: MIT
// A laboratory's sheet typed by keys alone.
#include "app/frame/edit_focused.h"
#include "gui_base/support/button_label.h"
#include "tests/support/program_fixture.h"

#include <wx/clipbrd.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

#include <functional>
#include <utility>
#include <vector>

namespace {

class EntryTest : public gui_test::ProgramTest
{
protected:
    EntryTest() : ProgramTest(nullptr) {}

    void Key(int key, int modifiers = wxMOD_NONE)
    {
        ++m_keys;
        gui_test::Press(key, modifiers);
    }

    int m_keys = 0;
};

}  // namespace

TEST_F(EntryTest, ARiverIsTypedWithFewKeysBesideItsDigits)
{
    // Of the mean river of the world, mg/l, as a sheet lists them.
    const struct
    {
        const char* ion;
        const char* typed;
        double value;
    } ions[] = {{"na", "6.3", 6.3},    {"ca", "15", 15},      {"mg", "4.1", 4.1},    {"k", "2.3", 2.3},
                {"fe2", "0.67", 0.67}, {"cl", "7.8", 7.8},    {"so4", "11.2", 11.2}, {"hco3", "58.4", 58.4},
                {"no3", "1", 1},       {"sio2", "13.1", 13.1}};
    Menu("File", "New project");
    EXPECT_EQ(wxWindow::FindFocus(), WaterPage().FindField("liquid/na.orig")) << "typing begins at once";
    for (const auto& ion : ions) {
        const std::string key = std::string("liquid/") + ion.ion + ".orig";
        const wxWindow* field = WaterPage().FindField(key);
        ASSERT_NE(field, nullptr) << key;
        if (ion.ion == std::string_view("cl"))
            Key(WXK_PAGEDOWN);
        while (wxWindow::FindFocus() != field && m_keys < 100)
            Key(WXK_RETURN);
        gui_test::Type(ion.typed);
    }
    Key(WXK_RETURN);
    for (const auto& ion : ions)
        EXPECT_DOUBLE_EQ(Water(std::string(ion.ion) + ".orig").GetDoubleValue(), ion.value) << ion.ion;
    EXPECT_LE(m_keys, 2 * static_cast<int>(std::size(ions)));
    RecordProperty("keys", m_keys);
}

TEST_F(EntryTest, AfterItsUnitAValueIsReplaced)
{
    TvTextCtrl* sodium = WaterPage().FindField("liquid/na.orig");
    gui_test::Focus(*sodium);
    gui_test::Type("23");
    Key(WXK_DOWN, wxMOD_ALT);
    gui_test::Pump();
    Key(WXK_DOWN);
    Key(WXK_RETURN);
    gui_test::Pump();
    EXPECT_NE(Water("na.unit").GetStringValue(), "mg/l");
    EXPECT_EQ(wxWindow::FindFocus(), sodium);
    gui_test::Type("5");
    Key(WXK_RETURN);
    EXPECT_DOUBLE_EQ(Water("na.orig").GetDoubleValue(), 5.0) << "not 235";
}

TEST_F(EntryTest, AFieldThatWasLeftKeepsNoSelection)
{
    TvTextCtrl& sodium = *WaterPage().FindField("liquid/na.orig");
    TvTextCtrl& calcium = *WaterPage().FindField("liquid/ca.orig");
    gui_test::Enter(sodium, "23");
    gui_test::Focus(sodium);
    EXPECT_EQ(sodium.GetStringSelection(), "23");
    gui_test::Press(WXK_TAB);
    EXPECT_TRUE(calcium.HasFocus());
    EXPECT_EQ(sodium.GetStringSelection(), "");
}

TEST_F(EntryTest, ARefusedEntryIsToldUntilThereIsANumber)
{
    TvTextCtrl& sodium = *WaterPage().FindField("liquid/na.orig");
    TvTextCtrl& calcium = *WaterPage().FindField("liquid/ca.orig");
    const auto told = [this] {
        std::string notes;
        for (int line = 0; line < m_frame->GetMessageArea().GetItemCount(); ++line) {
            const std::string text = m_frame->GetMessageArea().GetItemText(line, 1).utf8_string();
            if (text.find("stays as it was") != std::string::npos)
                notes += text.substr(0, text.find(" is ")) + ";";
        }
        return notes;
    };
    const auto enter = [](TvTextCtrl& field, const char* text) {
        gui_test::Enter(field, text);
        gui_test::Pump();
    };
    enter(sodium, "1e");
    enter(sodium, "-24");
    EXPECT_EQ(told(), "Sodium [mg/l]: \"-24\";") << "the last one of a field";
    enter(calcium, "-1");
    enter(calcium, "40");
    EXPECT_EQ(told(), "Sodium [mg/l]: \"-24\";") << "which another field does not settle";
    gui_test::Focus(sodium);
    gui_test::Press(WXK_TAB);
    gui_test::Pump();
    EXPECT_EQ(told(), "Sodium [mg/l]: \"-24\";") << "nothing has been typed";
    enter(sodium, "24");
    EXPECT_EQ(told(), "");
}

TEST_F(EntryTest, ALimitOfDetectionIsTypedAsTheSheetHasIt)
{
    TvTextCtrl* barium = WaterPage().FindField("liquid/ba.orig");
    gui_test::Focus(*barium);
    gui_test::Type("<0.5");
    Key(WXK_RETURN);
    EXPECT_EQ(barium->GetValue(), "<0.5");
    EXPECT_DOUBLE_EQ(Water("ba.mgl").GetDoubleValue(), 0.25) << "half of it counts";
    gui_test::Focus(*barium);
    gui_test::Type("-0.5");
    Key(WXK_RETURN);
    EXPECT_EQ(Water("ba.orig").GetDoubleValue(), -0.5) << "a negative amount is none";
    gui_test::Focus(*barium);
    gui_test::Type("0.5");
    Key(WXK_RETURN);
    EXPECT_DOUBLE_EQ(Water("ba.mgl").GetDoubleValue(), 0.5);
}

TEST_F(EntryTest, TypingMovesNothing)
{
    const auto sizes = [this] {
        std::vector<std::string> all;
        const std::function<void(const wxWindow&)> visit = [&](const wxWindow& window) {
            for (wxWindow* child : window.GetChildren()) {
                if (dynamic_cast<wxTextCtrl*>(child) != nullptr)
                    all.push_back(wxString::Format("%s: %d x %d", child->GetName(), child->GetSize().x,
                                                   child->GetSize().y)
                                      .utf8_string());
                visit(*child);
            }
        };
        visit(WaterPage());
        return all;
    };
    TvTextCtrl* sodium = WaterPage().FindField("liquid/na.orig");
    const auto before = sizes();
    for (const char* typed : {"6.3", "63.27", "0.012"}) {
        gui_test::Focus(*sodium);
        gui_test::Type(typed);
        Key(WXK_RETURN);
        gui_test::Pump();
        EXPECT_EQ(sizes(), before) << typed;
    }
    // What has no room gets it, in one step, and gives it back.
    const wxSize usual = sodium->GetSize();
    wxSize wide;
    for (int i = 0; i < 3; ++i) {
        gui_test::Focus(*sodium);
        gui_test::Type("1.23456e-15");
        Key(WXK_RETURN);
        gui_test::Pump();
        EXPECT_GE(sodium->GetSize().x, sodium->GetTextExtent(sodium->GetValue()).x);
        EXPECT_EQ(sodium->GetSize(), i == 0 ? sodium->GetSize() : wide);
        wide = sodium->GetSize();
    }
    EXPECT_GT(wide.x, usual.x);
    EXPECT_EQ(wide.y, usual.y);
    gui_test::Focus(*sodium);
    gui_test::Type("1");
    Key(WXK_RETURN);
    gui_test::Pump();
    EXPECT_EQ(sizes(), before);
}

TEST_F(EntryTest, KeysOfCommandsAreNotKeysOfFields)
{
    TvTextCtrl* sodium = WaterPage().FindField("liquid/na.orig");
    gui_test::Focus(*sodium);
    gui_test::Type("16.3");
    Key(WXK_RETURN);
    gui_test::Focus(*sodium);
    // The units are a menu, which takes the keyboard until it is left.
    bool asked = false;
    wxTimer leaves;
    leaves.Bind(wxEVT_TIMER, [&asked](wxTimerEvent&) {
        asked = true;
        wxUIActionSimulator().Char(WXK_ESCAPE);
    });
    m_frame->Bind(wxEVT_MENU_OPEN, [&leaves](wxMenuEvent& event) {
        event.Skip();
        leaves.StartOnce(200);
    });
    Key('U', wxMOD_CONTROL);
    gui_test::Pump();
    EXPECT_TRUE(asked) << "one unit for all";
    EXPECT_EQ(sodium->GetValue(), "16.3") << "the toolkit's key deletes all";
    const std::size_t waters = OpenProject().GetLiquidCount();
    Key('A', wxMOD_CONTROL | wxMOD_SHIFT);
    gui_test::Pump();
    EXPECT_EQ(OpenProject().GetLiquidCount(), waters + 1);
    EXPECT_EQ(wxWindow::FindFocus(), WaterPage(waters).FindField("liquid/na.orig"));
    Key(WXK_HOME, wxMOD_ALT);
    gui_test::Pump();
    EXPECT_TRUE(m_frame->IsStartShown());
}

TEST_F(EntryTest, TheEditMenuActsOnTheFieldWithTheKeyboard)
{
    TvTextCtrl* sodium = WaterPage().FindField("liquid/na.orig");
    TvTextCtrl* calcium = WaterPage().FindField("liquid/ca.orig");
    gui_test::Focus(*sodium);
    gui_test::Type("42");
    Menu(wxID_SELECTALL);
    Menu(wxID_CUT);
    EXPECT_EQ(sodium->GetValue(), "");
    gui_test::Focus(*calcium);
    Menu(wxID_PASTE);
    EXPECT_EQ(calcium->GetValue(), "42");
    Menu(wxID_SELECTALL);
    Menu(wxID_COPY);
    gui_test::Focus(*sodium);
    // By its key, which the menu takes before the field sees it.
    Key('V', wxMOD_CONTROL);
    gui_test::Press(WXK_TAB);
    EXPECT_DOUBLE_EQ(Water("na.orig").GetDoubleValue(), 42.0);
    EXPECT_DOUBLE_EQ(Water("ca.orig").GetDoubleValue(), 42.0);
}
