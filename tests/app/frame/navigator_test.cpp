// SPDX-License-Identifier: MIT
// What the tree of pages tells of waters, and what can be done with them in it.
#include "app/frame/settings_dialog.h"
#include "gui_base/water/results/result_card.h"
#include "tests/app/frame/work_area_fixture.h"

#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include <set>

namespace {

using NavigatorTest = gui_test::WorkAreaFixture;

}  // namespace

TEST_F(NavigatorTest, WatersAreRenamedDuplicatedAndMovedInTheNavigator)
{
    m_frame->Waters().Add();
    const std::string first = OpenProject().GetLiquid(0).GetName();
    Tree().SetFocus();
    Tree().SelectItem(Item("Water"));
    gui_test::Press(WXK_F2);
    const auto editsInAllTheRoom = [this] {
        const wxTextCtrl* editor = Tree().GetEditControl();
        return editor != nullptr && editor->GetRect().GetRight() + 1 == Tree().GetClientSize().x;
    };
    EXPECT_TRUE(editsInAllTheRoom()) << "a short name";
    gui_test::Type("well");
    EXPECT_TRUE(editsInAllTheRoom());
    gui_test::Press(WXK_RETURN);
    gui_test::Pump();
    EXPECT_EQ(WaterNames(), (std::vector<std::string>{first, "well"}));
    EXPECT_TRUE(Item("well").IsOk());
    const wxString name(60, 'w');
    m_frame->Waters().RenameTo(OpenProject().GetLiquid(1), name.utf8_string());
    Tree().SetFocus();
    Tree().SelectItem(Item(name));
    gui_test::Press(WXK_F2);
    EXPECT_TRUE(editsInAllTheRoom()) << "a long one";
    EXPECT_EQ(Tree().GetEditControl()->GetValue(), name) << "whole, however little of it is shown";
    gui_test::Press(WXK_ESCAPE);
    gui_test::Pump();
    const wxString shown = Tree().GetItemText(Item(name));
    EXPECT_TRUE(shown.StartsWith("ww") && shown.EndsWith("ww") && shown.length() < name.length()) << shown;
    wxRect text;
    ASSERT_TRUE(Tree().GetBoundingRect(Item(name), text, true));
    EXPECT_LE(text.GetRight(), Tree().GetClientSize().x);
    m_frame->Undo();
    gui_test::Enter(*WaterPage(1).FindField("liquid/ca.orig"), "17");
    Menu("Tools", "Duplicate water");
    EXPECT_EQ(WaterNames(), (std::vector<std::string>{first, "well", "well 2"}));
    EXPECT_EQ(OpenProject().GetLiquid(2).GetDetails()->At("liquid/ca.orig").GetDoubleValue(), 17.0);
    EXPECT_EQ(m_frame->Waters().GetCurrent(), &OpenProject().GetLiquid(2));
    m_frame->Waters().MoveTo(OpenProject().GetLiquid(2), 0);
    EXPECT_EQ(WaterNames(), (std::vector<std::string>{"well 2", first, "well"}));
    for (int i = 0; i < 3; ++i)
        m_frame->Undo();
    EXPECT_EQ(WaterNames(), (std::vector<std::string>{first, "well"}));
}

TEST_F(NavigatorTest, WatersAreDraggedToAnotherPlace)
{
    const std::string first = OpenProject().GetLiquid(0).GetName();
    for (const char* name : {"second", "third"}) {
        m_frame->Waters().Add();
        m_frame->Waters().RenameTo(*m_frame->Waters().GetCurrent(), name);
    }
    gui_test::Pump();
    const auto middleOf = [this](const wxString& name) {
        wxRect text;
        EXPECT_TRUE(Tree().GetBoundingRect(Item(name), text, true)) << name;
        return Tree().ClientToScreen(text.GetPosition() + text.GetSize() / 2);
    };
    const auto drag = [&](const wxString& from, const wxString& to) {
        wxUIActionSimulator mouse;
        mouse.MouseMove(middleOf(from));
        gui_test::Pump();
        mouse.MouseDown();
        gui_test::Pump();
        // The toolkit takes several steps for a drag.
        const wxPoint way = middleOf(to) - middleOf(from);
        for (int step = 1; step <= 6; ++step) {
            mouse.MouseMove(middleOf(from) + way * step / 6);
            gui_test::Pump();
        }
        mouse.MouseUp();
        gui_test::Pump();
    };
    drag("third", first);
    EXPECT_EQ(WaterNames(), (std::vector<std::string>{"third", first, "second"}));
    drag("third", "second");
    EXPECT_EQ(WaterNames(), (std::vector<std::string>{first, "second", "third"}));
    drag("second", "Project");
    EXPECT_EQ(WaterNames(), (std::vector<std::string>{first, "second", "third"})) << "no place for a water";
    m_frame->Undo();
    EXPECT_EQ(WaterNames(), (std::vector<std::string>{"third", first, "second"}));
}

TEST_F(NavigatorTest, CopiesOfWatersGoOnCounting)
{
    struct Case
    {
        const char* name;
        const char* other;  ///< name of the second water
        const char* copy;
    };
    m_frame->Waters().Add();
    for (const auto& [name, other, copy] :
         {Case{"Well", "a", "Well 2"}, Case{"Well 2", "b", "Well 3"}, Case{"Well 1", "c", "Well 1 2"},
          Case{"Well 2", "Well 3", "Well 4"}, Case{"Well 2019", "d", "Well 2019 2"},
          Case{"Well 07", "e", "Well 07 2"}, Case{"Well A2", "f", "Well A2 2"}, Case{"7", "7 2", "7 3"}}) {
        m_frame->Waters().RenameTo(OpenProject().GetLiquid(1), other);
        m_frame->Waters().RenameTo(OpenProject().GetLiquid(0), name);
        m_frame->GetBook().Show(OpenProject().GetLiquid(0).GetOwner());
        m_frame->Waters().Duplicate();
        EXPECT_EQ(WaterNames(), (std::vector<std::string>{name, copy, other}));
        m_frame->Waters().Remove();
    }
    // Only copies do: another water that is given the name keeps it whole.
    m_frame->Waters().RenameTo(OpenProject().GetLiquid(0), "7 2");
    EXPECT_EQ(WaterNames(), (std::vector<std::string>{"7 2 2", "7 2"}));
}

TEST_F(NavigatorTest, APageIsEnteredWhereWorkBeginsAndLaterWhereItWasLeft)
{
    const std::string first = OpenProject().GetLiquid(0).GetName();
    m_frame->Waters().Add();
    m_frame->Waters().RenameTo(OpenProject().GetLiquid(1), "second");
    m_frame->RebuildPages();
    // Lower than the page, so that the first value would be scrolled to.
    m_frame->SetSize(1024, 500);
    gui_test::Pump();
    const auto choose = [this](const std::string& name) {
        Tree().SelectItem(Item(name));
        gui_test::Pump();
    };
    choose(first);
    choose("second");
    EXPECT_EQ(wxWindow::FindFocus(), WaterPage(1).FindField("liquid/na.orig"));
    EXPECT_EQ(WaterPage(1).GetViewStart().y, 0);
    gui_test::Focus(*WaterPage(1).FindField("liquid/mg.orig"));
    choose(first);
    EXPECT_EQ(wxWindow::FindFocus(), WaterPage(0).FindField("liquid/na.orig"));
    choose("second");
    EXPECT_EQ(wxWindow::FindFocus(), WaterPage(1).FindField("liquid/mg.orig"));
}

TEST_F(NavigatorTest, TheNavigatorTellsOfTheBalance)
{
    const std::string name = OpenProject().GetLiquid(0).GetName();
    const auto picture = [&] { return Tree().GetItemImage(Item(name)); };
    const int good = picture();
    gui_test::Enter(*WaterPage().FindField("liquid/na.orig"), "600");
    const int over = picture();
    EXPECT_NE(over, good);
    Menu("Tools", "Balance automatically");
    EXPECT_NE(picture(), over);
    EXPECT_NE(picture(), good) << "what was closed is over the limit";
    gui_test::Enter(*WaterPage().FindField("liquid/na.orig"), "6.3");
    EXPECT_EQ(picture(), good) << "closed, and in order before";
    Menu("Tools", "Balance automatically");
    gui_test::Enter(*WaterPage().FindField("liquid/na.orig"), "7.9");
    EXPECT_EQ(picture(), good);
    m_frame->View().ApplySettings({"en", "iso", "compact", 5, ""}, {"en", "iso", "compact", 5, "", "DVWK"});
    EXPECT_EQ(picture(), over) << "by another rule";
    Settings::Reset("balance.rule");
    m_frame->Waters().Add();
    EXPECT_NE(Tree().GetItemImage(Item("Water")), good) << "nothing is analysed";
    EXPECT_NE(Tree().GetItemImage(Item("Water")), over);
}

TEST_F(NavigatorTest, AWideWindowHasRoomForTheNamesOfTheNavigator)
{
    const auto width = [this](int ofWindow, const char* name) {
        Menu("View", "Usual arrangement");
        m_frame->SetSize(0, 0, ofWindow, 900);
        gui_test::Pump();
        m_frame->Waters().RenameTo(OpenProject().GetLiquid(0), name);
        gui_test::Pump();
        return Tree().GetSize().x;
    };
    const int usual = width(1400, "Well 1");
    const char* const longName = "Well 1 of the northern field";
    EXPECT_EQ(width(1400, longName), usual);
    const int wide = width(1600, longName);
    EXPECT_GT(wide, usual);
    EXPECT_LE(wide, m_frame->FromDIP(290));
    const std::string& name = OpenProject().GetLiquid(0).GetName();
    EXPECT_EQ(Tree().GetItemText(Item(name)), name) << "whole";
    wxRect text;
    EXPECT_TRUE(Tree().GetBoundingRect(Item(OpenProject().GetLiquid(0).GetName()), text, true));
    EXPECT_LE(text.GetRight(), wide);
    EXPECT_EQ(width(1600, "A name as long as nobody can give a water and ever read it again in one piece"),
              m_frame->FromDIP(305));
    m_frame->Waters().RenameTo(OpenProject().GetLiquid(0), std::string(5'000, 'w'));
    EXPECT_LE(OpenProject().GetLiquid(0).GetName().size(), 100U);
    EXPECT_LT(width(1100, longName), usual);
    // Beside pages that want no more the tiles of the results stand side by side.
    const auto columns = [this] {
        std::set<int> places;
        for (int card = 1; card < 7; ++card)
            places.insert(gui_test::Find<wateranalysis::ResultCard>(Area(), {}, card).GetPosition().x);
        return places.size();
    };
    EXPECT_EQ(columns(), 1U);
    width(2560, longName);
    EXPECT_EQ(columns(), 2U);
    width(1400, longName);
    EXPECT_EQ(columns(), 1U);
}
