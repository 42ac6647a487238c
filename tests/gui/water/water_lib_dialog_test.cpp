// SPDX-License-Identifier: MIT
// The water library as its user drives it, with real databases behind it.
#include "gui_base/water/water_lib_dialog.h"

#include "dbinterfaces/database_error.h"
#include "dbinterfaces/master_database.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/input/controls/tv_searchctrl.h"
#include "gui_base/water/water_lib_list.h"
#include "tests/support/gui_test.h"
#include "tests/support/temp_folder.h"

#include <soci/soci.h>
#include <soci/sqlite3/soci-sqlite3.h>
#include <wx/button.h>
#include <wx/infobar.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

#include <cmath>
#include <filesystem>
#include <limits>

namespace {

using namespace gui_test;

class WaterLibTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        ProjectDatabase::Open(File());
    }
    void TearDown() override
    {
        m_dialog.reset();
        ProjectDatabase::Close();
        GuiTest::TearDown();
    }

    std::string File() const { return (m_folder / "user.db").string(); }
    std::string Sql(const std::string& query) const
    {
        soci::session session(*soci::factory_sqlite3(), "dbname=\"" + File() + "\"");
        std::string value = "(nothing)";
        session << query, soci::into(value);
        return value;
    }
    DetailData& Detail(const std::string& key) { return m_liquid.GetDetails()->At("liquid/" + key); }
    void Describe(const char* country, const char* place, const char* source)
    {
        Detail("country").SetValue(country);
        Detail("place").SetValue(place);
        Detail("water.source").SetValue(source);
    }
    /// Expects a message box whose texts hold all of `parts`, and answers it.
    void ExpectBox(const std::vector<std::string>& parts, int answer)
    {
        m_dialogs.Expect([parts, answer](wxDialog& dialog) {
            const auto* box = dynamic_cast<wxMessageDialog*>(&dialog);
            if (box == nullptr) {
                ADD_FAILURE() << "no message box: " << dialog.GetTitle().utf8_string();
                return answer;
            }
            const std::string text = (box->GetCaption() + "|" + box->GetMessage()).utf8_string();
            for (const std::string& part : parts)
                EXPECT_NE(text.find(part), std::string::npos) << text;
            return answer;
        });
    }
    bool Save()
    {
        ExpectBox({"Success|Analysis saved to water library"}, wxID_OK);
        return WaterLibDialog::SaveLiquidData(&m_liquid);
    }

    WaterLibDialog& Open()
    {
        m_dialog.reset();
        m_dialog = std::make_unique<WaterLibDialog>(m_logger, m_frame, wxID_ANY, wxPoint(10, 10));
        m_dialog->Show();
        Pump();
        return *m_dialog;
    }
    /// The tree's node along these texts below the root.
    wxTreeItemId Node(const std::vector<wxString>& path)
    {
        wxTreeCtrl& tree = m_dialog->GetTree();
        wxTreeItemId node = tree.GetRootItem();
        for (const wxString& text : path) {
            wxTreeItemIdValue cookie;
            wxTreeItemId child = tree.GetFirstChild(node, cookie);
            while (child.IsOk() && tree.GetItemText(child) != text)
                child = tree.GetNextChild(node, cookie);
            EXPECT_TRUE(child.IsOk()) << text.utf8_string();
            if (!child.IsOk())
                return {};
            node = child;
        }
        return node;
    }
    void Mouse(wxWindow& window, const wxRect& area, int button = wxMOUSE_BTN_LEFT)
    {
        wxUIActionSimulator simulator;
        // Never twice at the same place: that would be a double click.
        m_offset = m_offset > 30 ? 12 : m_offset + 12;
        simulator.MouseMove(window.ClientToScreen(area.GetPosition() + wxPoint(m_offset, area.height / 2)));
        Pump();
        simulator.MouseClick(button);
        Pump();
    }
    void ClickNode(const std::vector<wxString>& path, int button = wxMOUSE_BTN_LEFT)
    {
        const wxTreeItemId node = Node(path);
        m_dialog->GetTree().EnsureVisible(node);
        Pump();
        wxRect area;
        ASSERT_TRUE(m_dialog->GetTree().GetBoundingRect(node, area, true));
        Mouse(m_dialog->GetTree(), area, button);
    }
    void ClickRow(long row, int button = wxMOUSE_BTN_LEFT)
    {
        wxRect area;
        ASSERT_TRUE(m_dialog->GetWaterList().GetItemRect(row, area));
        Mouse(m_dialog->GetWaterList(), area, button);
    }
    std::vector<std::string> Sources() const
    {
        std::vector<std::string> sources;
        const WaterLibListView& list = m_dialog->GetWaterList();
        for (long row = 0; row < list.GetItemCount(); ++row)
            sources.push_back(list.GetItemText(row, 2).utf8_string());
        return sources;
    }
    std::string DetailValue(const wxString& name) const
    {
        const wxListView& list = m_dialog->GetDetailList();
        for (long row = 0; row < list.GetItemCount(); ++row) {
            if (list.GetItemText(row, 0) == name)
                return (list.GetItemText(row, 1) + " " + list.GetItemText(row, 2)).utf8_string();
        }
        return "(none)";
    }

    int m_offset = 0;
    support::TempFolder m_folder;
    Logger m_logger;
    LiquidData m_liquid;
    std::unique_ptr<WaterLibDialog> m_dialog;
};

TEST_F(WaterLibTest, ShowsTheSuppliedWaters)
{
    const WaterLibDialog& dialog = Open();
    EXPECT_EQ(dialog.GetTitle(), "Water library");
    EXPECT_EQ(dialog.GetTree().GetItemText(dialog.GetTree().GetRootItem()), "Library");
    EXPECT_GT(dialog.GetWaterList().GetItemCount(), 0) << "the first category is open";
    ClickNode({"Groundwaters and springs", "Germany"});
    EXPECT_EQ(Sources(), (std::vector<std::string>{"Groundwater 30a9e918", "Saline groundwater 603d9e1f"}));
    EXPECT_FALSE(dialog.GetUseButton().IsEnabled());
    ClickRow(0);
    EXPECT_TRUE(dialog.GetUseButton().IsEnabled());
    EXPECT_EQ(dialog.GetGeneralInformation(0), "Germany");
    EXPECT_EQ(dialog.GetGeneralInformation(1), "Brandenburg");
    EXPECT_EQ(dialog.GetGeneralInformation(3), "Well water");
    EXPECT_EQ(DetailValue("Sodium"), "16.3 mg/l");
    EXPECT_EQ(DetailValue("Temperature"), "12.5 \u00b0C");
    EXPECT_EQ(DetailValue("Strontium"), "(none)");
    // Two nodes at once, with the keyboard.
    for (int i = 0; i < 2; ++i)
        Press(WXK_TAB, wxMOD_SHIFT);
    EXPECT_TRUE(dialog.GetTree().HasFocus());
    Press(WXK_DOWN, wxMOD_SHIFT);
    EXPECT_EQ(dialog.GetWaterList().GetItemCount(), 6);
    EXPECT_FALSE(dialog.GetUseButton().IsEnabled());
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
    dialog.GetSearch().SetFocus();
    Pump();
    Type("MIK");
    EXPECT_EQ(Sources(), (std::vector<std::string>{"mike"}));
    EXPECT_FALSE(dialog.GetUseButton().IsEnabled()) << "nothing is selected any more";
    EXPECT_EQ(dialog.GetSelectedLiquid(), nullptr);
    dialog.GetSearch().Clear();
    Pump();
    EXPECT_EQ(Sources().size(), 3u);
}

TEST_F(WaterLibTest, AsksForWhatIsMissing)
{
    ExpectBox({"Analysis could not be saved|Please enter these values before saving to water library:\n\n"
               "Place\nWater source"},
              wxID_OK);
    EXPECT_FALSE(WaterLibDialog::SaveLiquidData(&m_liquid));
    Describe("", "here", "");
    ExpectBox({"library:\n\nWater source"}, wxID_OK);
    EXPECT_FALSE(WaterLibDialog::SaveLiquidData(&m_liquid));
    EXPECT_EQ(Sql("SELECT CAST(count(*) AS TEXT) FROM tarnvik_water"), "0");
}

TEST_F(WaterLibTest, BringsBackZerosAndWhatIsNotKnown)
{
    Describe("FR", "Lyon", "Rhone");
    Detail("na.orig").SetValue(12.5);
    Detail("na.unit").SetValue("meq/l");
    Detail("temp.orig").SetValue(0.0);
    Detail("ph").SetValue(0.0);
    Detail("turbidity").SetValue(std::numeric_limits<double>::quiet_NaN());
    Detail("toc").SetValue(std::numeric_limits<double>::infinity());
    Detail("sampling.date").SetValue(wxDateTime(29, wxDateTime::Feb, 2024));
    Detail("water.type").SetValue("river");
    Detail("comments").SetValue("two\nlines");
    EXPECT_TRUE(Save());

    EXPECT_EQ(
        Sql("SELECT value || unit || label || grp FROM tarnvik_water_value WHERE name = 'liquid/na.orig'"),
        "1.25000000000000E+001meq/lSodiumliquid");
    EXPECT_EQ(Sql("SELECT value FROM tarnvik_water_value WHERE name = 'liquid/ph'"), "(nothing)");
    EXPECT_EQ(Sql("SELECT value FROM tarnvik_water_value WHERE name = 'liquid/turbidity'"), "");
    EXPECT_EQ(Sql("SELECT name FROM tarnvik_water_country"), "France");

    Open();
    ClickNode({"User waters", "France"});
    ClickRow(0);
    EXPECT_EQ(m_dialog->GetGeneralInformation(3), "River water");
    EXPECT_EQ(m_dialog->GetGeneralInformation(4), wxDateTime(29, wxDateTime::Feb, 2024).FormatDate());
    EXPECT_EQ(m_dialog->GetGeneralInformation(5), "two\nlines");
    ASSERT_NE(m_dialog->GetSelectedLiquid(), nullptr);
    const DetailList& read = *m_dialog->GetSelectedLiquid()->GetDetails();
    EXPECT_EQ(read.At("liquid/na.orig").GetDoubleValue(), 12.5);
    EXPECT_EQ(read.At("liquid/na.unit").GetStringValue(), "meq/l");
    EXPECT_EQ(read.At("liquid/temp.orig").GetDoubleValue(), 0.0);
    EXPECT_EQ(read.At("liquid/ph").GetDoubleValue(), 0.0);
    EXPECT_TRUE(std::isnan(read.At("liquid/turbidity").GetDoubleValue()));
    EXPECT_TRUE(std::isnan(read.At("liquid/toc").GetDoubleValue()));
    EXPECT_EQ(read.At("liquid/country").GetStringValue(), "FR");
}

TEST_F(WaterLibTest, AsksBeforeItOverwrites)
{
    Describe("FR", "Lyon", "Rhone");
    Detail("na.orig").SetValue(1.0);
    Detail("ca.orig").SetValue(2.0);
    EXPECT_TRUE(Save());
    const std::string id = Sql("SELECT CAST(id AS TEXT) FROM tarnvik_water");
    Detail("na.orig").SetValue(3.0);
    Detail("ca.orig").SetValue(0.0);
    const std::vector<std::string> question{
        "Duplicate|Analysis already exists. Do you want to overwrite the existing analysis?"};
    ExpectBox(question, wxID_NO);
    EXPECT_FALSE(WaterLibDialog::SaveLiquidData(&m_liquid));
    EXPECT_EQ(Sql("SELECT value FROM tarnvik_water_value WHERE name = 'liquid/na.orig'"),
              "1.00000000000000E+000");
    ExpectBox(question, wxID_YES);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Sql("SELECT value FROM tarnvik_water_value WHERE name = 'liquid/na.orig'"),
              "3.00000000000000E+000");
    EXPECT_EQ(Sql("SELECT value FROM tarnvik_water_value WHERE name = 'liquid/ca.orig'"), "(nothing)")
        << "what became zero is gone";
    EXPECT_EQ(Sql("SELECT group_concat(id) FROM tarnvik_water"), id);
    // Without a country, too, and apart from the one with one.
    Describe("", "Lyon", "Rhone");
    EXPECT_TRUE(Save());
    ExpectBox(question, wxID_NO);
    EXPECT_FALSE(WaterLibDialog::SaveLiquidData(&m_liquid));
}

TEST_F(WaterLibTest, AFailedSaveLeavesTheLibraryAsItWas)
{
    Describe("FR", "Lyon", "Rhone");
    Detail("na.orig").SetValue(1.0);
    EXPECT_TRUE(Save());
    {
        soci::session session(*soci::factory_sqlite3(), "dbname=\"" + File() + "\"");
        session << "CREATE TRIGGER refuse BEFORE INSERT ON tarnvik_water_value WHEN new.name = 'liquid/ph' "
                   "BEGIN SELECT RAISE(ABORT, 'no more room'); END";
    }
    Detail("na.orig").SetValue(2.0);
    ExpectBox({"Duplicate"}, wxID_YES);
    std::string problem;
    EXPECT_FALSE(WaterLibDialog::SaveLiquidData(&m_liquid, &problem));
    EXPECT_NE(problem.find("no more room"), std::string::npos) << problem;
    EXPECT_EQ(Sql("SELECT value FROM tarnvik_water_value WHERE name = 'liquid/na.orig'"),
              "1.00000000000000E+000");
    Describe("ES", "Madrid", "Well");
    EXPECT_FALSE(WaterLibDialog::SaveLiquidData(&m_liquid, &problem));
    EXPECT_EQ(Sql("SELECT CAST(count(*) AS TEXT) FROM tarnvik_water_country"), "1");
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
        EXPECT_EQ(m_dialog->IsAccepted(), row.accepted);
        EXPECT_EQ(m_dialog->IsShown(), row.closedWith == 0);
    }
    // The whole way, as the program goes it.
    WaterLibDialog dialog(m_logger, m_frame);
    m_dialogs.Expect([this](wxDialog& shown) {
        auto& library = dynamic_cast<WaterLibDialog&>(shown);
        const wxTreeItemId surface = [&library] {
            wxTreeItemIdValue cookie;
            return library.GetTree().GetFirstChild(library.GetTree().GetRootItem(), cookie);
        }();
        library.GetTree().UnselectAll();
        library.GetTree().SelectItem(surface);
        library.GetWaterList().Select(0);
        ExpectBox({"Overwrite"}, wxID_YES);
        wxCommandEvent click(wxEVT_BUTTON, library.GetUseButton().GetId());
        click.SetEventObject(&library.GetUseButton());
        library.GetUseButton().GetEventHandler()->ProcessEvent(click);
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
    EXPECT_FALSE(m_dialog->GetUseButton().IsEnabled());

    // A call that fails leaves the row.
    ClickRow(0);
    {
        soci::session session(*soci::factory_sqlite3(), "dbname=\"" + File() + "\"");
        session << "CREATE TRIGGER refuse BEFORE DELETE ON tarnvik_water BEGIN SELECT RAISE(ABORT, "
                   "'locked'); END";
    }
    ExpectBox(question, wxID_YES);
    Press(WXK_DELETE);
    EXPECT_EQ(Sources(), (std::vector<std::string>{"Rhone"}));
    EXPECT_TRUE(m_dialog->GetInfoBar().IsShown());
    {
        soci::session session(*soci::factory_sqlite3(), "dbname=\"" + File() + "\"");
        session << "DROP TRIGGER refuse";
    }

    // The country from the tree, with all that it holds.
    ClickNode({"User waters", "France"});
    ExpectBox(question, wxID_YES);
    Press(WXK_DELETE);
    EXPECT_EQ(m_dialog->GetTree().GetChildrenCount(Node({"User waters"})), 0u);
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
    ASSERT_FALSE(m_dialog->GetInfoBar().IsShown());
    std::filesystem::remove(File());
    ExpectBox({"Do you really want to delete"}, wxID_YES);
    Press(WXK_DELETE);
    EXPECT_EQ(Sources().size(), 1u);
    EXPECT_TRUE(m_dialog->GetInfoBar().IsShown());
    // What was supplied is still there, and so is the dialog.
    ClickNode({"Sea waters"});
    EXPECT_EQ(m_dialog->GetWaterList().GetItemCount(), 3);
    EXPECT_FALSE(m_dialog->GetInfoBar().IsShown());
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
