// SPDX-License-Identifier: MIT
// The window around the pages: panes, messages, tools, results, and what outlives the program.
#include "app/document/plant_templates.h"
#include "app/frame/menu_table.h"
#include "app/frame/settings_dialog.h"
#include "gui_base/input/panel/advanced_input_options.h"
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/support/image_loader.h"
#include "gui_base/water/results/result_card.h"
#include "gui_base/water/results/water_results_panel.h"
#include "projectbase/project/iex_project.h"
#include "tests/app/frame/work_area_fixture.h"

#include <wx/button.h>
#include <wx/stattext.h>
#include <wx/stopwatch.h>

namespace {

class WorkAreaTest : public gui_test::WorkAreaFixture
{
protected:
    app::MessageStrip& Strip() { return Area().GetMessages(); }

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

/// Counts the changes that the project tells of while the window has all its pages.
class ChangesOfWholeWindow : public ProjectObserver
{
public:
    explicit ChangesOfWholeWindow(app::MainFrame& frame)
        : m_frame(frame), m_pages(frame.GetNotebook().GetPageCount())
    {
        m_frame.GetProject().AddObserver(*this);
    }
    ChangesOfWholeWindow(const ChangesOfWholeWindow&) = delete;
    ~ChangesOfWholeWindow() { m_frame.GetProject().RemoveObserver(*this); }
    void OnProjectChanged(const ProjectChanges&) override
    {
        m_count += m_frame.GetNotebook().GetPageCount() == m_pages ? 1 : 0;
    }
    int GetCount() const { return m_count; }

private:
    app::MainFrame& m_frame;
    std::size_t m_pages;
    int m_count = 0;
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

TEST_F(WorkAreaTest, TheClosedStripTellsTheNewestAsItStandsNow)
{
    const auto& newest = gui_test::Find<wxStaticText>(Strip());
    const auto set = [this](double sodium, double chloride) {
        Water("na.orig").SetValue(sodium);
        Water("cl.orig").SetValue(chloride);
        gui_test::Pump();
        if (Strip().IsExpanded())
            gui_test::Click(gui_test::Find<wxButton>(Strip()));
    };
    set(6.3, 1e9);
    const wxString chloride = newest.GetLabelText();
    set(1e9, 1e9);
    const wxString sodium = newest.GetLabelText();
    EXPECT_FALSE(chloride.empty());
    EXPECT_NE(sodium, chloride);
    set(2e9, 1e9);
    EXPECT_NE(newest.GetLabelText(), sodium) << "another figure";
    m_frame->View().SetLanguage("de");
    const auto lines = Messages();
    EXPECT_NE(std::ranges::find(lines, newest.GetLabelText().utf8_string()), lines.end())
        << newest.GetLabelText();
    m_frame->View().SetLanguage("en");
    set(6.3, 1e9);
    const auto left = Messages();
    EXPECT_NE(std::ranges::find(left, newest.GetLabelText().utf8_string()), left.end())
        << newest.GetLabelText() << " is settled";
    set(6.3, 7.8);
    EXPECT_EQ(newest.GetLabelText(), "");
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
    EXPECT_TRUE(messages.GetItemText(0, 1).Contains(wxString::FromUTF8("Turbidity 6\u00a0NTU")))
        << messages.GetItemText(0, 1);
    m_frame->View().SetLanguage("de");
    EXPECT_TRUE(messages.GetItemText(0, 1).Contains(wxString::FromUTF8("6\u00a0NTU")));
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

TEST_F(WorkAreaTest, WhatIsBeingTypedOutlivesAnotherTextSize)
{
    const wxString before = WaterPage().FindField("liquid/na.orig")->GetValue();
    gui_test::Focus(*WaterPage().FindField("liquid/na.orig"));
    gui_test::Type("12.5");
    const ChangesOfWholeWindow changes(*m_frame);
    density::Set(Density::Comfortable);
    EXPECT_TRUE(gui_test::PumpUntil([this] { return Water("na.orig").GetDoubleValue() == 12.5; }));
    EXPECT_EQ(changes.GetCount(), 1) << "told while pages go";
    EXPECT_EQ(WaterPage().FindField("liquid/na.orig")->GetValue(), "12.5");
    m_frame->Undo();
    EXPECT_EQ(WaterPage().FindField("liquid/na.orig")->GetValue(), before);
    density::Set(Density::Compact);
    gui_test::Pump();
}

TEST_F(WorkAreaTest, AFieldThatGetsTheKeyboardIsDrawnAtOnceAndNotFaded)
{
    gui_test::Focus(*WaterPage().FindField("liquid/na.orig"));
    // The page is painted once more while it closes.
    const auto paints = std::make_shared<int>(0);
    WaterPage().Bind(wxEVT_PAINT, [paints](wxPaintEvent& event) {
        ++*paints;
        event.Skip();
    });
    gui_test::Press(WXK_TAB);
    const wxStopWatch watch;
    gui_test::PumpUntil([&watch] { return watch.Time() > 400; });
    EXPECT_GE(*paints, 1);
    EXPECT_LE(*paints, 8) << "each step of a fade lays all of the window out";
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

TEST_F(WorkAreaTest, APaneThatFloatsDoesSoAtTheNextStart)
{
    const auto results = [this]() -> wxAuiPaneInfo& {
        return wxAuiManager::GetManager(Area().GetDesk())->GetPane("results");
    };
    results().Float().FloatingPosition(700, 300);
    wxAuiManager::GetManager(Area().GetDesk())->Update();
    gui_test::Pump();
    EXPECT_EQ(results().frame->GetParent(), m_frame) << "stays in front of the window";
    Restart();
    ASSERT_TRUE(results().IsFloating());
    EXPECT_EQ(results().frame->GetParent(), m_frame);
    EXPECT_TRUE(results().frame->IsShown());
    EXPECT_TRUE(WaterPage().FindField("liquid/na.orig")->HasFocus()) << "typing begins at once";
    Menu("View", "Usual arrangement");
    EXPECT_TRUE(results().IsDocked());
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
