// SPDX-License-Identifier: MIT
// A laboratory's sheet typed by keys alone.
#include "app/frame/edit_focused.h"
#include "gui_base/support/button_label.h"
#include "tests/support/program_fixture.h"

#include <wx/clipbrd.h>

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
