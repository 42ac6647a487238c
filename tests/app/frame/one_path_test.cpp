// SPDX-License-Identifier: MIT
// The window, the command line and the history write the same project in the same way.
#include "app/command_line/calc_command.h"
#include "app/modules/base/module.h"
#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_radiobutton.h"
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/water/feedwater/organics_input_panel.h"
#include "projectbase/project/project_json.h"
#include "projectbase/project/range_faults.h"
#include "tests/support/program_fixture.h"
#include "tests/support/project_fixture.h"
#include "tests/support/random_edits.h"

#include <wx/bookctrl.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/collpane.h>
#include <wx/grid.h>
#include <wx/radiobut.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <sstream>

namespace {

using namespace gui_test;

class OnePathTest : public ProgramTest
{
protected:
    OnePathTest() : ProgramTest("brandenburg_fresh") {}

    static std::string Json(const Project& project) { return ProjectToJson(project, {}, {}); }

    void EnterField(const std::string& key, const wxString& text)
    {
        wxTextCtrl* field = WaterPage().FindField(key);
        ASSERT_NE(field, nullptr) << key;
        Enter(*field, text);
    }
    void EnterNamed(const char* name, const wxString& text)
    {
        Enter(Find<wxTextCtrl>(WaterPage(), name), text);
    }

    static void Toggle(wxWindow& box)
    {
        Focus(box);
        Press(WXK_SPACE);
    }

    static void AddShown(wxWindow& window, std::vector<wxString>& shown)
    {
        // Which page of a book is in front, or open, says nothing of the project.
        const bool isBook = dynamic_cast<wxBookCtrlBase*>(&window) != nullptr ||
                            dynamic_cast<wxCollapsiblePane*>(&window) != nullptr ||
                            dynamic_cast<wxCollapsiblePane*>(window.GetParent()) != nullptr;
        for (wxWindow* child : window.GetChildren()) {
            if (!child->IsShown() && !isBook)
                continue;
            if (const auto* field = dynamic_cast<const wxTextCtrl*>(child))
                shown.push_back(field->GetName() + ": " + field->GetValue());
            else if (const auto* choice = dynamic_cast<const wxChoice*>(child))
                shown.push_back(choice->GetName() + ": " + choice->GetStringSelection());
            else if (const auto* box = dynamic_cast<const wxCheckBox*>(child))
                shown.push_back(box->GetLabel() + (box->GetValue() ? ": yes" : ": no"));
            else if (const auto* button = dynamic_cast<const wxRadioButton*>(child))
                shown.push_back(button->GetLabel() + (button->GetValue() ? ": yes" : ": no"));
            else if (auto* grid = dynamic_cast<wxGrid*>(child))
                AddCells(*grid, shown);
            else
                AddShown(*child, shown);
        }
    }
    static void AddCells(wxGrid& grid, std::vector<wxString>& shown)
    {
        for (int row = 0; row < grid.GetNumberRows(); ++row) {
            for (int column = 0; column < grid.GetNumberCols(); ++column)
                shown.push_back(grid.GetCellValue(row, column));
        }
    }
    void ShowPage(const app::Module& module, const OwnerNode& owner, std::vector<wxString>& shown)
    {
        ModulePanelBase* const page = m_frame->GetBook().Show(module.id, owner.GetOwner());
        ASSERT_NE(page, nullptr) << module.id;
        Pump();
        shown.push_back(wxString::FromUTF8(module.id + " " + owner.GetName()));
        AddShown(*page, shown);
    }
    /// The first text in which two views differ.
    static std::string Unlike(const std::vector<wxString>& a, const std::vector<wxString>& b)
    {
        const auto [first, second] = std::ranges::mismatch(a, b);
        if (first == a.end() || second == b.end())
            return a.size() == b.size() ? "" : "more texts";
        return (*first + " / " + *second).utf8_string();
    }
    /// What stands on every page, in the order of the windows.
    std::vector<wxString> Shown()
    {
        std::vector<wxString> shown;
        for (const app::Module& module : app::Modules()) {
            if (!module.isFor(OpenProject()))
                continue;
            if (module.pageOf == OwnerKind::Project) {
                ShowPage(module, OpenProject().GetRoot(), shown);
                continue;
            }
            for (const auto& owner : OpenProject().GetRoot().GetChildren(module.pageOf)) {
                if (module.hasPage == nullptr || module.hasPage(*owner))
                    ShowPage(module, *owner, shown);
            }
        }
        return shown;
    }
};

TEST_F(OnePathTest, TheSameEditsGiveTheSameProject)
{
    const std::string path = (m_folder / "before.tarnvik").string();
    ASSERT_TRUE(m_frame->Files().SaveTo(path));
    EnterField("liquid/na.orig", "20.5");
    EnterField("liquid/ph", "5.25");
    Toggle(Find<TvCheckBox>(WaterPage(), "Include H+ and OH- in automatic balancing"));
    EnterField("liquid/mg.orig", "11");
    EnterNamed("Source flow rate [m\u00b3/h]", "12");
    EnterNamed("Running time [h]", "10");
    EnterNamed("Water volume [m\u00b3]", "60");
    Enter(Find<wxTextCtrl>(Find<OrganicsInputPanel>(WaterPage()), "Temperature [\u00b0C]"), "35");
    FeedPage();
    Toggle(Find<TvCheckBox>(FeedPage(), "Adjust pH"));
    Toggle(Find<TvRadioButton>(WaterPage(), "Short analysis based on TDS"));
    Pump();

    std::ostringstream out;
    std::ostringstream err;
    std::vector<std::string> words{path, "--json"};
    for (const char* setting :
         {"na=20.5", "ph=5.25", "balance.ph=true", "mg=11", "project/qbrutto=12", "project/lz=10",
          "project/wbrutto=60", "feed/medium.temp=35", "feed/adjust.ph=true", "analysis.type=SHORT_TDS"}) {
        words.push_back("--set");
        words.push_back(setting);
    }
    ASSERT_EQ(app::RunCalc(words, out, err), 0) << err.str();
    const auto body = [](const std::string& json) {
        return json.substr(json.find("\"module\""), json.find("\"messages\"") - json.find("\"module\""));
    };
    EXPECT_EQ(body(Json(OpenProject())), body(out.str()));
    EXPECT_NEAR(Water("h.plus.orig").GetDoubleValue(), 0.0066, 0.0005)
        << "filled as the pH says: 0.0056 free, the rest bound to sulfate";
    EXPECT_EQ(OpenProject().GetDetails().At("project/qbrutto").GetDoubleValue(), 6.0);
}

TEST_F(OnePathTest, NoModuleKeepsACopyOfTheProject)
{
    Enter(Find<wxTextCtrl>(Find<OrganicsInputPanel>(WaterPage()), "Temperature [\u00b0C]"), "35");
    EXPECT_EQ(FeedPage().GetData().medium.temperature.In(TemperatureUnit::Celsius), 35.0);
    Toggle(Find<TvCheckBox>(FeedPage(), "Adjust pH"));
    EXPECT_EQ(OpenProject().GetDetails().At("feed/medium.temp").GetDoubleValue(), 35.0);
    EXPECT_EQ(Find<wxTextCtrl>(Find<OrganicsInputPanel>(WaterPage()), "Temperature [\u00b0C]").GetValue(),
              "35");
}

TEST_F(OnePathTest, EachMessageLeadsToItsOwnWater)
{
    Menu("Tools", "Add water");
    for (const std::size_t water : {0u, 1u}) {
        Enter(*WaterPage(water).FindField("liquid/temp.orig"), "150");
        Pump();
    }
    ASSERT_EQ(Messages().size(), 2u);
    EXPECT_NE(Messages()[0], Messages()[1]);
    m_frame->GetBook().Show("feed", {});
    FollowMessage(1);
    EXPECT_TRUE(PumpUntil([this] {
        return m_frame->GetBook().GetCurrent()->GetOwner() == OpenProject().GetLiquid(1).GetOwner();
    }));
    EXPECT_TRUE(PumpUntil([this] { return WaterPage(1).FindField("liquid/temp.orig")->HasFocus(); }));
}

TEST_F(OnePathTest, TheMenuSaysWhatIsUndone)
{
    const auto shown = [this](int id) {
        const wxMenuItem& item = MenuItem(id);
        return (item.IsEnabled() ? wxString() : wxString("grey ")) + item.GetItemLabelText();
    };
    EXPECT_EQ(shown(wxID_UNDO), "grey Undo");
    EnterField("liquid/na.orig", "20.5");
    EXPECT_EQ(shown(wxID_UNDO), "Undo change of Sodium");
    Menu("Tools", "Add water");
    EXPECT_EQ(shown(wxID_UNDO), "Undo add water");
    m_dialogs.Expect([](wxDialog& dialog) {
        Find<wxTextCtrl>(dialog, "Name").SetValue("Well");
        return wxID_OK;
    });
    Menu("Tools", "Rename water...");
    EXPECT_EQ(OpenProject().GetLiquid(1).GetName(), "Well");
    Menu("Tools", "Move water up");
    EXPECT_EQ(OpenProject().GetLiquid(0).GetName(), "Well");
    Menu("Tools", "Remove water");
    EXPECT_EQ(OpenProject().GetLiquidCount(), 1u);
    EXPECT_EQ(shown(wxID_UNDO), "Undo remove water");
    for (int i = 0; i < 5; ++i)
        Menu(wxID_UNDO);
    EXPECT_EQ(shown(wxID_UNDO), "grey Undo");
    EXPECT_EQ(shown(wxID_REDO), "Redo change of Sodium");
    EXPECT_EQ(OpenProject().GetLiquidCount(), 1u);
    EXPECT_EQ(Water("na.orig").GetDoubleValue(), 16.3);
    m_frame->View().SetLanguage("de");
    EXPECT_EQ(shown(wxID_REDO), wxString::FromUTF8("Wiederholen: \u00c4nderung von Natrium"));
}

TEST_F(OnePathTest, PagesFollowRandomEditsBackAndForth)
{
    constexpr int kEdits = 15;
    auto& project = dynamic_cast<iex::IEXProject&>(OpenProject());
    UndoRedoDetailStack& history = m_frame->GetDocument().GetHistory();
    const auto start = project.Clone();
    const std::vector<wxString> shownAtStart = Shown();
    for (const std::uint32_t seed : {1u, 2u}) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        support::RandomEdits edits(project, seed);
        for (int i = 0; i < kEdits; ++i)
            edits.Edit();
        const auto end = project.Clone();
        const std::vector<wxString> shownAtEnd = Shown();
        EXPECT_NE(Unlike(shownAtEnd, shownAtStart), "");
        EXPECT_EQ(support::Difference(*end, project, true), "") << "a page that is shown writes nothing";
        while (history.CanUndo())
            m_frame->Undo();
        EXPECT_EQ(support::Difference(*start, project, true), "") << "undone";
        EXPECT_EQ(Unlike(Shown(), shownAtStart), "");
        while (history.CanRedo())
            m_frame->Redo();
        EXPECT_EQ(support::Difference(*end, project, true), "") << "done again";
        EXPECT_EQ(Unlike(Shown(), shownAtEnd), "");
        while (history.CanUndo())
            m_frame->Undo();
        history.Clear();
    }
}

}  // namespace
