// SPDX-License-Identifier: MIT
// The water library as its user drives it, with real databases behind it.
#include "dbinterfaces/database_error.h"
#include "gui_base/input/controls/nothing_found.h"
#include "gui_base/input/controls/tv_searchctrl.h"
#include "gui_base/water/library/water_lib_details.h"
#include "tests/gui/water/library/water_lib_fixture.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/dcclient.h>
#include <wx/infobar.h>
#include <wx/menu.h>
#include <wx/timer.h>

#include <filesystem>
#include <map>
#include <stdexcept>

namespace {

using namespace gui_test;

TEST_F(WaterLibTest, ShowsTheSuppliedWaters)
{
    const WaterLibDialog& dialog = Open();
    EXPECT_EQ(dialog.GetTitle(), "Water library");
    EXPECT_EQ(Tree().GetItemText(Tree().GetRootItem()), "Library");
    EXPECT_GT(dialog.GetWaterList().GetItemCount(), 0) << "the first category is open";
    ClickNode({"Groundwaters and springs", "Germany"});
    EXPECT_EQ(Sources(), (std::vector<std::string>{"Groundwater 30a9e918", "Saline groundwater 603d9e1f"}));
    EXPECT_FALSE(UseButton().IsEnabled());
    ClickRow(0);
    EXPECT_TRUE(UseButton().IsEnabled());
    EXPECT_EQ(Shown("Country"), "Germany");
    EXPECT_EQ(Shown("Place"), "Brandenburg");
    EXPECT_EQ(Shown("Water type"), "Well water");
    EXPECT_EQ(DetailValue("Sodium"), "16.3 mg/l");
    EXPECT_EQ(DetailValue("Temperature"), "12.5 \u00b0C");
    EXPECT_EQ(DetailValue("Strontium"), "(none)");
    // Two nodes at once, with the keyboard.
    for (int i = 0; i < 3; ++i)
        Press(WXK_TAB, wxMOD_SHIFT);
    EXPECT_TRUE(Tree().HasFocus());
    Press(WXK_DOWN, wxMOD_SHIFT);
    EXPECT_EQ(dialog.GetWaterList().GetItemCount(), 6);
    EXPECT_FALSE(UseButton().IsEnabled());
}

TEST_F(WaterLibTest, SortsAndSearches)
{
    Describe("FR", "A", "zulu");
    EXPECT_TRUE(Save());
    Describe("DE", "C", "Alpha");
    EXPECT_TRUE(Save());
    Describe("DE", "B", "mike");
    EXPECT_TRUE(Save());
    WaterLibDialog& dialog = Open();
    ClickNode({"User waters"});
    EXPECT_EQ(Sources(), (std::vector<std::string>{"zulu", "mike", "Alpha"})) << "France before Germany";
    {
        const LocaleGuard locale("de_DE.UTF-8");
        dialog.SortWaterListbyColumn(2);
        EXPECT_EQ(Sources(), (std::vector<std::string>{"Alpha", "mike", "zulu"}));
        ClickRow(0);
        dialog.SortWaterListbyColumn(2);
        EXPECT_EQ(Sources(), (std::vector<std::string>{"zulu", "mike", "Alpha"}));
        EXPECT_EQ(dialog.GetWaterList().GetFirstSelected(), 2) << "the selected water stays selected";
    }
    Find<wxSearchCtrl>(dialog).SetFocus();
    Pump();
    Type("MIK");
    EXPECT_EQ(Sources(), (std::vector<std::string>{"mike"}));
    EXPECT_FALSE(UseButton().IsEnabled()) << "nothing is selected any more";
    EXPECT_EQ(Find<WaterLibDetails>(dialog).GetLiquid(), nullptr);
    Find<wxSearchCtrl>(dialog).Clear();
    Pump();
    EXPECT_EQ(Sources().size(), 3u);
}

TEST_F(WaterLibTest, SearchesAllFoldersOrTheOpenOne)
{
    Describe("FR", "Lyon", "Groundwater 30a9e918");
    EXPECT_TRUE(Save());
    WaterLibDialog& dialog = Open();
    ClickNode({"Surface waters", "Brazil"});
    const std::vector<std::string> ofFolder = Sources();
    ASSERT_EQ(ofFolder.size(), 1u);
    auto& search = Find<wxSearchCtrl>(dialog);
    auto& nothing = Find<NothingFound>(dialog);
    Focus(search);
    Type("30A9");
    EXPECT_EQ(Sources(), (std::vector<std::string>(2, "Groundwater 30a9e918"))) << "supplied and own";
    WaterLibListView& list = dialog.GetWaterList();
    ASSERT_EQ(list.GetColumnCount(), 4) << "each says where it stands";
    EXPECT_EQ(list.GetItemText(0, 3), "Groundwaters and springs");
    EXPECT_EQ(list.GetItemText(1, 3), "User waters");
    list.Select(1);
    EXPECT_EQ(list.GetName(), "Waters: France, Lyon, Groundwater 30a9e918, User waters");
    dialog.SortWaterListbyColumn(3);
    dialog.SortWaterListbyColumn(3);
    EXPECT_EQ(list.GetItemText(0, 3), "User waters");
    EXPECT_FALSE(nothing.IsShownOnScreen());
    // The folder alone does not hold it, which the list says.
    Press(WXK_TAB);
    Press(WXK_SPACE);
    EXPECT_TRUE(Sources().empty());
    EXPECT_EQ(list.GetColumnCount(), 3);
    EXPECT_EQ(list.GetName(), "Waters");
    EXPECT_TRUE(nothing.IsShownOnScreen());
    EXPECT_TRUE(dialog.GetWaterList().GetRect().Contains(nothing.GetRect()));
    Press(WXK_SPACE);
    EXPECT_EQ(Sources().size(), 2u);
    Press(WXK_SPACE);
    // Tab: the list, the button in it.
    Press(WXK_TAB);
    Press(WXK_TAB);
    Press(WXK_SPACE);
    EXPECT_TRUE(search.IsEmpty());
    EXPECT_TRUE(search.HasFocus() || wxWindow::FindFocus()->GetParent() == &search);
    EXPECT_FALSE(nothing.IsShown());
    EXPECT_EQ(Sources(), ofFolder);
    // An empty folder is no search without result.
    ClickNode({"User waters", "France"});
    m_database.Sql("DELETE FROM tarnvik_water_value");
    m_database.Sql("DELETE FROM tarnvik_water");
    ClickNode({"User waters"});
    EXPECT_TRUE(Sources().empty());
    EXPECT_FALSE(nothing.IsShown());
    // Going to a folder ends a search of all.
    Find<wxCheckBox>(dialog).SetValue(false);
    Focus(search);
    Type("30a9");
    ASSERT_EQ(Sources().size(), 1u);
    ClickNode({"Surface waters", "Brazil"});
    EXPECT_EQ(Sources(), ofFolder);
    EXPECT_TRUE(search.IsEmpty());
}

TEST_F(WaterLibTest, TheKeyboardGoesFromTheSearchToTheFirstWaterAndTakesIt)
{
    WaterLibDialog& dialog = Open();
    auto& search = Find<wxSearchCtrl>(dialog);
    EXPECT_TRUE(search.HasFocus()) << "who opens the library can type at once";
    Focus(search);
    Type("nosuch");
    Press(WXK_DOWN);
    EXPECT_TRUE(search.HasFocus()) << "nothing was found";
    Press('A', wxMOD_CONTROL);
    Type("603d9e1f");
    ASSERT_EQ(Sources(), (std::vector<std::string>{"Saline groundwater 603d9e1f"}));
    Press(WXK_DOWN);
    EXPECT_TRUE(dialog.GetWaterList().HasFocus());
    EXPECT_EQ(dialog.GetWaterList().GetFirstSelected(), 0);
    EXPECT_TRUE(UseButton().IsEnabled());
    ExpectBox({"Confirm|Overwrite current water analysis?"}, wxID_YES);
    Press(WXK_RETURN);
    EXPECT_EQ(dialog.GetReturnCode(), wxID_OK);
}

TEST_F(WaterLibTest, RemovesNoSuppliedWaterOfTheSameIdentifier)
{
    WaterLibDialog& dialog = Open();
    dialog.FillWaterList({{7, 1, "", "", "supplied", 0}, {7, 1, "", "", "own", 1}});
    dialog.GetWaterList().RemoveUserWater(7);
    EXPECT_EQ(Sources(), std::vector<std::string>{"supplied"});
}

TEST_F(WaterLibTest, ShowsNumbersWholeAndTheirDecimalSignsInLine)
{
    WaterLibDialog& dialog = Open();
    dialog.FillDetailList({{"liquid/na.orig", "16.25", "mg/l"},
                           {"liquid/k.orig", "3", "mg/l"},
                           {"liquid/ca.orig", "1.2345678912e+205", "mg/l"}});
    auto& list = Find<wxListView>(dialog, "Details");
    std::map<std::string, wxString> shown;
    for (long row = 0; row < list.GetItemCount(); ++row)
        shown[list.GetItemText(row, 0).utf8_string()] = list.GetItemText(row, 1);
    wxClientDC measure(&list);
    measure.SetFont(list.GetFont());
    const auto right = [&](const wxString& text, const wxString& last) {
        return measure.GetTextExtent(text).x - measure.GetTextExtent(text.substr(0, text.find(last))).x;
    };
    EXPECT_NEAR(right(shown["Sodium"], "."), right(shown["Potassium"], wxString::FromUTF8("\u2008")), 1);
    EXPECT_EQ(shown["Calcium"], "1.23456789e+205");
    EXPECT_GE(list.GetColumnWidth(1), measure.GetTextExtent(shown["Calcium"]).x);
}

TEST_F(WaterLibTest, UsesAWaterOnlyWhenTheUserSaysYes)
{
    LiquidData target;
    target.GetDetails()->At("liquid/na.orig").SetValue(99.0);
    struct Case
    {
        int answer;
        int closedWith;  ///< or 0 while the dialog stays open
        bool accepted;
    };
    for (const Case& row :
         {Case{wxID_YES, wxID_OK, true}, Case{wxID_NO, wxID_CANCEL, false}, Case{wxID_CANCEL, 0, false}}) {
        Open();
        ClickNode({"Surface waters", "Brazil"});
        ClickRow(0);
        ExpectBox({"Confirm|Overwrite current water analysis?"}, row.answer);
        Focus(m_dialog->GetWaterList());
        Press(WXK_RETURN);
        EXPECT_EQ(m_dialog->GetReturnCode() == wxID_OK, row.accepted);
        EXPECT_EQ(m_dialog->IsShown(), row.closedWith == 0);
    }
    // The whole way, as the program goes it.
    WaterLibDialog dialog(m_logger, m_frame);
    m_dialogs.Expect([this](wxDialog& shown) {
        auto& library = dynamic_cast<WaterLibDialog&>(shown);
        auto& tree = Find<wxTreeCtrl>(library);
        const wxTreeItemId surface = [&tree] {
            wxTreeItemIdValue cookie;
            return tree.GetFirstChild(tree.GetRootItem(), cookie);
        }();
        tree.UnselectAll();
        tree.SelectItem(surface);
        library.GetWaterList().Select(0);
        ExpectBox({"Overwrite"}, wxID_YES);
        wxButton* use = FindUseButton(library);
        wxCommandEvent click(wxEVT_BUTTON, use->GetId());
        click.SetEventObject(use);
        use->GetEventHandler()->ProcessEvent(click);
        return wxID_OK;
    });
    EXPECT_TRUE(dialog.SelectLiquidData(&target));
    EXPECT_EQ(target.GetDetails()->At("liquid/place").GetStringValue(), "Amazon");
    EXPECT_EQ(target.GetDetails()->At("liquid/na.orig").GetDoubleValue(), 1.8);
}

TEST_F(WaterLibTest, RemovesOnlyTheUsersWaters)
{
    Describe("FR", "Lyon", "Rhone");
    EXPECT_TRUE(Save());
    Describe("FR", "Caen", "Orne");
    EXPECT_TRUE(Save());
    Open();
    // Supplied ones: nothing happens, no menu opens.
    ClickNode({"Surface waters", "Brazil"});
    ClickRow(0);
    Press(WXK_DELETE);
    ClickRow(0, wxMOUSE_BTN_RIGHT);
    ClickNode({"Surface waters", "Brazil"}, wxMOUSE_BTN_RIGHT);
    Press(WXK_DELETE);
    EXPECT_EQ(m_dialog->GetWaterList().GetItemCount(), 1);

    ClickNode({"User waters", "France"});
    ClickRow(0);
    const std::vector<std::string> question{"Confirm|Do you really want to delete the selected entry?"};
    ExpectBox(question, wxID_NO);
    Press(WXK_DELETE);
    EXPECT_EQ(Sources(), (std::vector<std::string>{"Orne", "Rhone"}));
    ExpectBox(question, wxID_YES);
    Press(WXK_DELETE);
    EXPECT_EQ(Sources(), (std::vector<std::string>{"Rhone"}));
    EXPECT_EQ(Sql("SELECT group_concat(place) FROM tarnvik_water"), "Lyon");
    EXPECT_FALSE(UseButton().IsEnabled());

    // A call that fails leaves the row.
    ClickRow(0);
    m_database.Sql(
        "CREATE TRIGGER refuse BEFORE DELETE ON tarnvik_water BEGIN SELECT RAISE(ABORT, "
        "'locked'); END");
    ExpectBox(question, wxID_YES);
    Press(WXK_DELETE);
    EXPECT_EQ(Sources(), (std::vector<std::string>{"Rhone"}));
    EXPECT_TRUE(TellsOfAProblem());
    m_database.Sql("DROP TRIGGER refuse");

    // The country from the tree, with all that it holds, also what came after the tree was filled.
    ClickNode({"User waters", "France"});
    Describe("FR", "Paris", "Seine");
    EXPECT_TRUE(Save());
    ExpectBox({question.front(), "Its waters go with it: 2"}, wxID_YES);
    Press(WXK_DELETE);
    EXPECT_EQ(Tree().GetChildrenCount(Node({"User waters"})), 0u);
    EXPECT_EQ(Sql("SELECT CAST(count(*) AS TEXT) FROM tarnvik_water"), "0");
    EXPECT_TRUE(Sources().empty());
}

TEST_F(WaterLibTest, OffersRemoveInAMenu)
{
    Describe("FR", "Lyon", "Rhone");
    EXPECT_TRUE(Save());
    Open();
    ClickNode({"User waters"});
    ClickRow(0);
    // The menu has a loop of its own, in which the keys arrive.
    wxTimer timer;
    std::string opened;
    m_dialog->Bind(wxEVT_MENU_OPEN, [&opened](wxMenuEvent& event) {
        opened = event.GetMenu()->FindItemByPosition(0)->GetItemLabelText().utf8_string();
    });
    timer.Bind(wxEVT_TIMER, [](wxTimerEvent&) {
        wxUIActionSimulator simulator;
        simulator.Char(WXK_DOWN);
        simulator.Char(WXK_RETURN);
    });
    ExpectBox({"Do you really want to delete the selected entry?"}, wxID_YES);
    timer.StartOnce(500);
    ClickRow(0, wxMOUSE_BTN_RIGHT);
    EXPECT_TRUE(PumpUntil([this] { return Sources().empty(); }));
    EXPECT_EQ(opened, "Remove");
}

TEST_F(WaterLibTest, TellsOfADatabaseThatIsGone)
{
    Describe("FR", "Lyon", "Rhone");
    EXPECT_TRUE(Save());
    Open();
    ClickNode({"User waters", "France"});
    ClickRow(0);
    ASSERT_FALSE(TellsOfAProblem());
    std::filesystem::remove(m_database.File());
    ExpectBox({"Do you really want to delete"}, wxID_YES);
    Press(WXK_DELETE);
    EXPECT_EQ(Sources().size(), 1u);
    EXPECT_TRUE(TellsOfAProblem());
    std::string problem;
    m_logger.SetSink([&](const Logger::Entry& entry) { problem = entry.text; });
    EXPECT_NE(problem.find("Check that it can be reached"), std::string::npos) << problem;
    EXPECT_EQ(problem.find("::"), std::string::npos) << problem;
    m_logger.SetSink({});
    // What was supplied is still there, and so is the dialog.
    ClickNode({"Sea waters"});
    EXPECT_EQ(m_dialog->GetWaterList().GetItemCount(), 3);
    EXPECT_FALSE(TellsOfAProblem());
}

TEST_F(WaterLibTest, RefusesAListThatIsTooLong)
{
    WaterLibDialog& dialog = Open();
    const int before = dialog.GetWaterList().GetItemCount();
    const std::vector<DBObjects::WaterLibWater> waters(WaterLibListView::kMostWaters + 1);
    try {
        dialog.FillWaterList(waters);
        ADD_FAILURE();
    } catch (const std::length_error& error) {
        EXPECT_STREQ(error.what(), "list too long");
    }
    EXPECT_EQ(dialog.GetWaterList().GetItemCount(), before);
}

TEST_F(WaterLibTest, LabelsTheValues)
{
    const std::pair<const char*, const char*> cases[]{
        {"liquid/na.orig", "Sodium"},
        {"na.orig", "Sodium"},
        {"liquid/hco3.orig", "Bicarbonate"},
        {"liquid/x1.orig", "X1"},
        {"liquid/temp.orig", "Temperature"},
        {"liquid/temp", "Temperature"},
        {"liquid/turbidity", "Turbidity"},
        {"liquid/fe.total", "Fe (total)"},
        {"liquid/cl.free", "Free chlorine"},
        {"liquid/balance.auto", "balance.auto"},
        {"liquid/ph", "pH"},
        {"liquid/co2.orig", "CO2"},
    };
    for (const auto& [key, label] : cases)
        EXPECT_EQ(WaterLibDialog::BuildDetailLabel(key), label) << key;
}

TEST_F(WaterLibTest, RemembersItsSize)
{
    const auto showAndResize = [this](const wxSize& size) {
        WaterLibDialog dialog(m_logger, m_frame);
        const wxSize found = dialog.GetSize();
        m_dialogs.Expect([&size](wxDialog& shown) {
            if (size != wxDefaultSize)
                shown.SetSize(size);
            return wxID_CANCEL;
        });
        LiquidData target;
        EXPECT_FALSE(dialog.SelectLiquidData(&target));
        return found;
    };
    showAndResize(wxSize(777, 555));
    EXPECT_EQ(showAndResize(wxDefaultSize), wxSize(777, 555));
}

}  // namespace
