// SPDX-License-Identifier: MIT
// The window around the pages: panes, messages, tools, navigator, start page, and what outlives the program.
#include "app/document/plant_templates.h"
#include "app/frame/ion_strip.h"
#include "app/frame/menu_table.h"
#include "app/frame/page_item.h"
#include "app/frame/settings_dialog.h"
#include "app/frame/start_page.h"
#include "gui_base/input/controls/collapsible_box.h"
#include "gui_base/input/panel/advanced_input_options.h"
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/report/water_diagram.h"
#include "gui_base/support/image_loader.h"
#include "gui_base/water/results/result_card.h"
#include "gui_base/water/results/water_results_panel.h"
#include "projectbase/project/iex_project.h"
#include "tests/support/program_fixture.h"
#include "tncommon/data_dir.h"
#include "tncommon/zip_archive.h"

#include <wx/button.h>
#include <wx/stattext.h>
#include <wx/treectrl.h>

#include <set>

namespace {

class WorkAreaTest : public gui_test::ProgramTest
{
protected:
    WorkAreaTest() : ProgramTest("world_river_livingstone") {}

    app::WorkArea& Area() { return m_frame->GetWorkArea(); }
    app::MessageStrip& Strip() { return Area().GetMessages(); }
    wxTreeCtrl& Tree() { return Area().GetTree(); }

    /// The item of a page, by its text; invalid where there is none.
    wxTreeItemId Item(const wxString& text) { return Item(Tree().GetRootItem(), text); }
    wxTreeItemId Item(const wxTreeItemId& parent, const wxString& text)
    {
        wxTreeItemIdValue cookie;
        for (wxTreeItemId item = Tree().GetFirstChild(parent, cookie); item.IsOk();
             item = Tree().GetNextChild(parent, cookie)) {
            if (app::WholeName(Tree(), item) == text)
                return item;
            if (const wxTreeItemId below = Item(item, text); below.IsOk())
                return below;
        }
        return {};
    }

    std::vector<std::string> WaterNames()
    {
        std::vector<std::string> names;
        for (std::size_t i = 0; i < OpenProject().GetLiquidCount(); ++i)
            names.push_back(OpenProject().GetLiquid(i).GetName());
        return names;
    }

    /// Closes the window and opens another, as the next start of the program does.
    void Restart()
    {
        m_frame->GetDocument().SetUnsaved(false);
        m_frame->Close();
        gui_test::Pump();
        m_frame = new app::MainFrame(MakeDocument(m_water));
        m_frame->Show();
        gui_test::Pump();
    }
};

}  // namespace

TEST_F(WorkAreaTest, TheStripCountsAndOpensOnWhatIsNew)
{
    EXPECT_FALSE(Strip().IsExpanded());
    auto& count = gui_test::Find<wxButton>(Strip(), "No problems");
    gui_test::Enter(*WaterPage().FindField("liquid/na.orig"), "1e9");
    EXPECT_TRUE(Strip().IsExpanded()) << "opens by itself";
    EXPECT_TRUE(m_frame->GetMessageArea().IsShownOnScreen());
    const auto problems = m_frame->GetMessageArea().CountProblems();
    EXPECT_GE(problems, 1U);
    EXPECT_NE(count.GetLabelText().Find(std::to_string(problems)), wxNOT_FOUND) << count.GetLabelText();
    EXPECT_GE(m_frame->GetMessageArea().GetClientSize().y, 3 * m_frame->GetCharHeight());
    m_frame->View().SetLanguage("de");
    EXPECT_NE(count.GetLabelText().Find("Problem"), wxNOT_FOUND);
    m_frame->View().SetLanguage("en");
    gui_test::Enter(*WaterPage().FindField("liquid/na.orig"), "6.3");
    EXPECT_EQ(m_frame->GetMessageArea().CountProblems(), 0U);
    EXPECT_FALSE(Strip().IsExpanded()) << "closes when all is settled";
    // What the user opened stays open.
    Menu("View", "Problems and notes");
    EXPECT_TRUE(Strip().IsExpanded());
    gui_test::Enter(*WaterPage().FindField("liquid/na.orig"), "1e9");
    gui_test::Enter(*WaterPage().FindField("liquid/na.orig"), "6.3");
    EXPECT_TRUE(Strip().IsExpanded());
}

TEST_F(WorkAreaTest, MessagesFollowTheLanguage)
{
    m_frame->Waters().Remove();
    EXPECT_EQ(Messages(), std::vector<std::string>{"The last water of a project stays"});
    m_frame->View().SetLanguage("de");
    EXPECT_EQ(Messages(),
              std::vector<std::string>{i18n::Translated("The last water of a project stays").utf8_string()});
    EXPECT_NE(Messages().front(), "The last water of a project stays");
}

TEST_F(WorkAreaTest, ToolsDoWhatTheirCommandsDo)
{
    const wxToolBar& bar = *m_frame->GetToolBar();
    EXPECT_EQ(bar.GetToolsCount(), 14U + 4U) << "with the gaps between their groups";
    const auto press = [this](const wxString& tip) {
        wxToolBar& tools = *m_frame->GetToolBar();
        m_frame->DoMenuUpdates();
        for (std::size_t i = 0; i < tools.GetToolsCount(); ++i) {
            const wxToolBarToolBase* tool = tools.GetToolByPos(static_cast<int>(i));
            if (!tool->IsButton() || !tools.GetToolShortHelp(tool->GetId()).StartsWith(tip))
                continue;
            EXPECT_TRUE(tool->GetNormalBitmap().IsOk()) << tip;
            wxCommandEvent event(wxEVT_TOOL, tool->GetId());
            event.SetEventObject(&tools);
            tools.ProcessWindowEvent(event);
            gui_test::Pump();
            return true;
        }
        return false;
    };
    EXPECT_FALSE(Water("balance.auto").GetBoolValue());
    EXPECT_TRUE(press("Balance"));
    EXPECT_TRUE(Water("balance.auto").GetBoolValue());
    EXPECT_TRUE(m_frame->Waters().IsBalanced());
    EXPECT_TRUE(press("Undo"));
    EXPECT_FALSE(Water("balance.auto").GetBoolValue()) << "one step of the history";
    m_frame->GetDocument().SetUnsaved(false);
    EXPECT_TRUE(press("New project"));
    EXPECT_EQ(Water("na.orig").GetDoubleValue(), 0.0);
    for (const app::MenuTable& menu : app::Menus()) {
        for (const app::MenuRow& row : menu.rows) {
            // Where a check mark may stand there is none.
            if (row.text == nullptr || (row.checked != nullptr && row.icon == nullptr))
                continue;
            ASSERT_NE(row.icon, nullptr) << row.text;
            EXPECT_TRUE(
                ImageLoader::LoadTinted("icons/" + wxString(row.icon) + ".svg", wxSize(16, 16), *wxRED)
                    .IsOk())
                << row.icon;
        }
    }
}

TEST_F(WorkAreaTest, WatersAreRenamedDuplicatedAndMovedInTheNavigator)
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

TEST_F(WorkAreaTest, CopiesOfWatersGoOnCounting)
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

TEST_F(WorkAreaTest, TheStartPageBeginsProjects)
{
    m_frame->ShowStart();
    gui_test::Pump();
    ASSERT_TRUE(Area().IsCoverShown());
    const std::size_t waters = OpenProject().GetLiquidCount();
    gui_test::Press('D', wxMOD_CONTROL);
    EXPECT_EQ(OpenProject().GetLiquidCount(), waters) << "nobody changes a water behind the page";
    auto& softener = gui_test::Find<wxButton>(*m_frame, "Softener");
    softener.SetFocus();
    gui_test::Press(WXK_SPACE);
    gui_test::Pump();
    EXPECT_FALSE(Area().IsCoverShown());
    EXPECT_EQ(OpenProject().GetModuleType(), "SOFT");
    // From any page of the tree back to the pages.
    m_frame->ShowStart();
    m_frame->GetMessageArea().AddMessage(app::MessageArea::Severity::Info, wxString("x"));
    Tree().SelectItem(Item("Project"));
    EXPECT_FALSE(Area().IsCoverShown());
}

TEST_F(WorkAreaTest, ExamplesHaveAPictureOfTheirIons)
{
    const DetailList& water = *OpenProject().GetLiquid(0).GetDetails();
    const auto pieces = water_diagram::PiecesOf(diagrams::IonsOf(water));
    const diagrams::WaterIons ions = diagrams::IonsOf(water);
    const wxImage strip = app::IonStrip(water, wxSize(200, 40)).ConvertToImage();
    const auto count = [&strip](int y, const chartdir::Colour& colour) {
        int pixels = 0;
        for (int x = 0; x < strip.GetWidth(); ++x)
            pixels += strip.GetRed(x, y) == colour.red && strip.GetGreen(x, y) == colour.green &&
                      strip.GetBlue(x, y) == colour.blue && strip.GetAlpha(x, y) == wxIMAGE_ALPHA_OPAQUE;
        return pixels;
    };
    const double longest = std::max(ions.CationSum(), ions.AnionSum());
    EXPECT_NEAR(count(10, pieces.cations.front().colour), 200.0 * ions.calcium / longest, 1.0);
    EXPECT_NEAR(count(30, pieces.anions.front().colour), 200.0 * ions.bicarbonate / longest, 1.0);
    const auto empty = app::NewEmptyProject();
    EXPECT_EQ(
        app::IonStrip(*empty->GetLiquid(0).GetDetails(), wxSize(20, 8)).ConvertToImage().GetAlpha(10, 2),
        wxIMAGE_ALPHA_TRANSPARENT);
}

TEST_F(WorkAreaTest, APageBehindTheStartPageShowsWhatWasChangedMeanwhile)
{
    TvTextCtrl& sodium = *WaterPage().FindField("liquid/na.orig");
    const wxString before = sodium.GetValue();
    gui_test::Enter(sodium, "4321");
    gui_test::Pump();
    EXPECT_TRUE(MenuItem(wxID_UNDO).IsEnabled());
    m_frame->ShowStart();
    EXPECT_FALSE(MenuItem(wxID_UNDO).IsEnabled()) << "nobody would see what is undone";
    m_frame->Undo();
    gui_test::Pump();
    m_frame->ShowPages();
    gui_test::Pump();
    EXPECT_EQ(sodium.GetValue(), before);
}

TEST_F(WorkAreaTest, TheProgramOpensWithItsStartPage)
{
    // As the program does without a file: the page stands there before the window.
    auto* second = new app::MainFrame(std::make_unique<app::Document>(app::NewEmptyProject()));
    second->ShowStart();
    second->Show();
    gui_test::Pump();
    EXPECT_TRUE(second->IsStartShown());
    second->Files().New();
    gui_test::Pump();
    EXPECT_FALSE(second->IsStartShown());
    const auto& page = dynamic_cast<FeedWaterPanel&>(*second->GetBook().GetCurrentPanel());
    EXPECT_EQ(wxWindow::FindFocus(), page.FindField("liquid/na.orig")) << "typing begins at once";
    second->GetDocument().SetUnsaved(false);
    second->Close();
    gui_test::Pump();
}

TEST_F(WorkAreaTest, EveryPlantOfTheStartPageHasItsDrawing)
{
    const tncommon::ZipArchive drawings(tncommon::DataDir() / "graphics.zrc");
    for (const app::PlantTemplate& plant : app::PlantTemplates()) {
        EXPECT_TRUE(drawings.Read(plant.drawing, std::size_t{1} << 20).has_value()) << plant.drawing;
        // Of the exchangers that the project begins with.
        const auto project = app::NewProjectFrom(plant);
        std::string exchangers;
        for (std::size_t i = 0; i < project->NumberSteps(); ++i)
            exchangers +=
                "_" +
                project->GetStep(i).GetDetails()->At("step/kind").GetStringValue().Lower().utf8_string();
        EXPECT_NE(std::string(plant.drawing).find(exchangers + ".svg"), std::string::npos)
            << plant.drawing << " " << exchangers;
    }
}

TEST_F(WorkAreaTest, ACompactFormShowsAWholeAnalysisAtOnce)
{
    m_frame->SetSize(1600, 1000);
    for (const app::WorkPane pane :
         {app::WorkPane::Navigator, app::WorkPane::Results, app::WorkPane::Diagram})
        Area().ShowPane(pane, false);
    const auto height = [this] {
        gui_test::Pump();
        int top = 10000;
        int bottom = 0;
        for (const char* key : {"na.orig", "h.plus.orig", "oh.minus.orig", "sum.c.meql", "sum.a.meql",
                                "na.plus.meql", "cl.plus.meql", "ph", "co2.orig"}) {
            const wxRect field = WaterPage().FindField(std::string("liquid/") + key)->GetScreenRect();
            top = std::min(top, field.y);
            bottom = std::max(bottom, field.GetBottom());
        }
        return bottom - top;
    };
    m_frame->View().SetDensity("comfortable");
    const int comfortable = height();
    m_frame->View().SetDensity("compact");
    const int compact = height();
    // With the line of the folded boxes and the heads above.
    EXPECT_LE(compact, m_frame->FromDIP(700 - 90));
    EXPECT_LT(compact, comfortable);
    for (const char* title :
         {"Feed water", "Organics input", "Origin of the water", "Analysis", "Automatic balancing"}) {
        gui_test::Find<wxButton>(WaterPage(), title).SetFocus();
        gui_test::Press(WXK_SPACE);
    }
    const int inPage =
        WaterPage().FindField("liquid/na.orig")->GetScreenPosition().y - WaterPage().GetScreenPosition().y;
    EXPECT_LE(inPage + compact, m_frame->FromDIP(700));
}

TEST_F(WorkAreaTest, WarningsOfAdviceAreMessagesThatLeadToTheirValue)
{
    FeedWaterPanel& page = WaterPage();
    app::MessageArea& messages = m_frame->GetMessageArea();
    OpenProject().GetLiquid(0).GetDetails()->At("liquid/turbidity").SetValue(4.0);
    EXPECT_EQ(messages.CountProblems(), 0U) << "a note only";
    OpenProject().GetLiquid(0).GetDetails()->At("liquid/turbidity").SetValue(6.0);
    ASSERT_EQ(messages.GetItemCount(), 1);
    EXPECT_TRUE(Strip().IsExpanded());
    EXPECT_EQ(messages.GetItemText(0, 0), "Warning");
    EXPECT_TRUE(messages.GetItemText(0, 1).Contains("Turbidity 6 NTU")) << messages.GetItemText(0, 1);
    m_frame->View().SetLanguage("de");
    EXPECT_TRUE(messages.GetItemText(0, 1).Contains("6 NTU"));
    EXPECT_FALSE(messages.GetItemText(0, 1).Contains("Turbidity"));
    m_frame->View().SetLanguage("en");
    const auto& further = gui_test::Find<AdvancedInputOptions>(page);
    EXPECT_FALSE(further.IsOpen());
    messages.SetFocus();
    gui_test::Press(WXK_DOWN);
    gui_test::Press(WXK_RETURN);
    gui_test::Pump();
    EXPECT_TRUE(further.IsOpen()) << "nobody types where he sees nothing";
    EXPECT_TRUE(page.FindField("liquid/turbidity")->HasFocus());
    // By another limit of the user's it is none.
    m_frame->View().ApplySettings(
        {"en", "iso", "compact", 5, ""},
        {"en", "iso", "compact", 5, "", "SM1030E", {{"limit.turbidity.soft.warn", 7.0}}});
    EXPECT_EQ(messages.CountProblems(), 0U);
    m_frame->Undo();
    EXPECT_EQ(messages.CountProblems(), 0U);
    Settings::Reset("limit.turbidity.soft.warn");
}

TEST_F(WorkAreaTest, ResultsSayWhoseTheyAre)
{
    m_frame->SetDocument(std::make_unique<app::Document>(app::NewProjectFrom(
        *std::ranges::find(app::PlantTemplates(), std::string_view("softener"), &app::PlantTemplate::id))));
    auto& results = gui_test::Find<wateranalysis::WaterResultsPanel>(Area());
    const auto& name = gui_test::Find<wxStaticText>(results);
    EXPECT_FALSE(name.IsShown()) << "there is one";
    m_frame->Waters().Add();
    EXPECT_EQ(name.GetLabelText(), "Water");
    EXPECT_TRUE(name.IsShown());
    m_frame->GetBook().Show("design", {});
    EXPECT_EQ(name.GetLabelText(), OpenProject().GetLiquid(0).GetName()) << "the plant's";
    OpenProject().GetDetails().At("project/water").SetValue(2L);
    EXPECT_EQ(name.GetLabelText(), "Water");
}

TEST_F(WorkAreaTest, KeysLeadIntoTheResults)
{
    Area().ShowPane(app::WorkPane::Results, false);
    WaterPage().FindField("liquid/na.orig")->SetFocus();
    gui_test::Pump();
    m_frame->View().SetLanguage("de");
    gui_test::Pump();
    EXPECT_EQ(m_frame->GetStatusBar()->GetStatusText(2), "Wert: 6.3 mg/l")
        << "of the field that has the focus";
    m_frame->View().SetLanguage("en");
    Menu("View", "Read the results");
    gui_test::Pump();
    EXPECT_TRUE(Area().IsPaneShown(app::WorkPane::Results));
    const wxWindow* const results = gui_test::Find<wateranalysis::ResultCard>(Area(), {}, 1).GetParent();
    EXPECT_TRUE(results->IsDescendant(wxWindow::FindFocus()));
}

TEST_F(WorkAreaTest, TheNavigatorTellsOfTheBalance)
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

TEST_F(WorkAreaTest, AWideWindowHasRoomForTheNamesOfTheNavigator)
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

TEST_F(WorkAreaTest, TheWindowOutlivesTheProgram)
{
    m_frame->SetSize(20, 30, 1300, 850);
    gui_test::Pump();
    Menu("View", "Navigator");
    EXPECT_FALSE(Area().IsPaneShown(app::WorkPane::Navigator));
    const auto place = [this] {
        return WaterPage().FindField("liquid/na.orig")->GetScreenPosition().y -
               WaterPage().GetScreenPosition().y;
    };
    const int open = place();
    auto& title = gui_test::Find<wxButton>(WaterPage(), "Origin of the water");
    title.SetFocus();
    gui_test::Press(WXK_SPACE);
    EXPECT_LT(place(), open) << "what is folded gives its room to the ions";
    const int folded = place();
    EXPECT_GT(folded, title.GetPosition().y);
    const auto further = [this]() -> AdvancedInputOptions& {
        return gui_test::Find<AdvancedInputOptions>(WaterPage());
    };
    WaterPage().FocusDetail({OpenProject().GetLiquid(0).GetOwner(), "liquid/turbidity"});
    gui_test::Pump();
    EXPECT_TRUE(further().IsOpen());
    Restart();
    EXPECT_FALSE(further().IsOpen()) << "nobody opened it but to show a field";
    further().SetFocus();
    gui_test::Press(WXK_SPACE);
    ASSERT_TRUE(gui_test::PumpUntil([&] { return further().IsOpen(); }));
    m_frame->SetSize(20, 30, 1300, 850);
    gui_test::Pump();
    Restart();
    EXPECT_TRUE(further().IsOpen());
    EXPECT_EQ(m_frame->GetSize(), wxSize(1300, 850));
    EXPECT_FALSE(Area().IsPaneShown(app::WorkPane::Navigator));
    EXPECT_EQ(place(), folded);
    Menu("View", "Usual arrangement");
    EXPECT_TRUE(Area().IsPaneShown(app::WorkPane::Navigator));
    EXPECT_GE(Tree().GetSize().x, m_frame->FromDIP(120));
    // The usual arrangement follows the width also at the next start.
    m_frame->SetSize(1600, 900);
    gui_test::Pump();
    Restart();
    EXPECT_TRUE(Area().IsPaneShown(app::WorkPane::Diagram));
    m_frame->SetSize(1024, 768);
    gui_test::Pump();
    EXPECT_FALSE(Area().IsPaneShown(app::WorkPane::Diagram));
}
