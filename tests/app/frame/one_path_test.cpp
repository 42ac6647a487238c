// SPDX-License-Identifier: MIT
// The window, the command line and the history write the same project in the same way.
#include "app/command_line/calc_command.h"
#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_radiobutton.h"
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/water/feedwater/organics_input_panel.h"
#include "projectbase/project/project_file.h"
#include "projectbase/project/project_json.h"
#include "projectbase/project/range_faults.h"
#include "tests/support/program_fixture.h"
#include "tncommon/atomic_file.h"

#include <wx/textctrl.h>

#include <random>
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

    /// The texts of all fields in view, in the order of the windows.
    static void AddShown(const wxWindow& window, std::vector<wxString>& texts)
    {
        for (const wxWindow* child : window.GetChildren()) {
            if (const auto* field = dynamic_cast<const wxTextCtrl*>(child))
                texts.push_back(field->GetValue());
            else
                AddShown(*child, texts);
        }
    }
    std::vector<wxString> Shown()
    {
        std::vector<wxString> texts;
        AddShown(WaterPage(0), texts);
        AddShown(FeedPage(), texts);
        return texts;
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
    m_frame->GetMessageArea().Select(1);
    EXPECT_TRUE(PumpUntil([this] {
        return m_frame->GetBook().GetCurrent()->GetOwner() == OpenProject().GetLiquid(1).GetOwner();
    }));
    EXPECT_TRUE(PumpUntil([this] { return WaterPage(1).FindField("liquid/temp.orig")->HasFocus(); }));
}

TEST_F(OnePathTest, TheMenuSaysWhatIsUndone)
{
    EXPECT_FALSE(m_frame->GetDocument().GetHistory().CanUndo());
    EXPECT_EQ(m_frame->UndoText(), "&Undo");
    EnterField("liquid/na.orig", "20.5");
    EXPECT_EQ(m_frame->UndoText(), "&Undo change of Sodium");
    Menu("Tools", "Add water");
    EXPECT_EQ(m_frame->UndoText(), "&Undo add water");
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
    EXPECT_EQ(m_frame->UndoText(), "&Undo remove water");
    for (int i = 0; i < 5; ++i)
        m_frame->Undo();
    EXPECT_FALSE(m_frame->GetDocument().GetHistory().CanUndo());
    EXPECT_EQ(m_frame->RedoText(), "&Redo change of Sodium");
    EXPECT_EQ(OpenProject().GetLiquidCount(), 1u);
    EXPECT_EQ(Water("na.orig").GetDoubleValue(), 16.3);
    m_frame->View().SetLanguage("de");
    EXPECT_EQ(m_frame->RedoText(), wxString::FromUTF8("&Wiederholen: \u00c4nderung von Natrium"));
}

TEST_F(OnePathTest, RandomEditsAreUndoneToTheStart)
{
    const std::string before = Json(OpenProject());
    const std::vector<wxString> shown = Shown();
    std::mt19937 random(20240229);
    const auto pick = [&random](std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
    };
    for (int edit = 0; edit < 60; ++edit) {
        OwnerNode& owner = pick(3) == 0 ? OpenProject().GetRoot()
                                        : OpenProject().GetLiquid(pick(OpenProject().GetLiquidCount()));
        std::vector<DetailData*> inputs;
        for (auto& [name, detail] : *owner.GetDetails()) {
            if (!detail.IsDerived())
                inputs.push_back(&detail);
        }
        DetailData& detail = *inputs[pick(inputs.size())];
        switch (pick(12)) {
            case 0:
                OpenProject().AddLiquid("Water " + std::to_string(edit));
                break;
            case 1:
                if (OpenProject().GetLiquidCount() > 1)
                    OpenProject().RemoveLiquid(pick(OpenProject().GetLiquidCount()));
                break;
            case 2:
                OpenProject().MoveOwner(OpenProject().GetLiquid(pick(OpenProject().GetLiquidCount())),
                                        pick(3));
                break;
            default:
                if (detail.GetType() == DetailType::Double)
                    detail.SetValue(static_cast<double>(pick(1000)) / 7.0);
                else if (detail.GetType() == DetailType::Bool)
                    detail.SetValue(!detail.GetBoolValue());
                break;
        }
    }
    Pump();
    EXPECT_NE(Json(OpenProject()), before);
    const std::string after = Json(OpenProject());
    UndoRedoDetailStack& history = m_frame->GetDocument().GetHistory();
    while (history.CanUndo())
        history.Undo();
    Pump();
    EXPECT_EQ(Json(OpenProject()), before) << "every value";
    EXPECT_EQ(Shown(), shown) << "every field";
    while (history.CanRedo())
        history.Redo();
    EXPECT_EQ(Json(OpenProject()), after);

    const auto bytes = [this](const Project& project) {
        const auto path = m_folder / "round.tarnvik";
        ProjectFile::Save(project, path);
        return tncommon::ReadWholeFile(path, ProjectFile::kMaxSize);
    };
    const std::string saved = bytes(OpenProject());
    EXPECT_EQ(bytes(*ProjectFile::Load(m_folder / "round.tarnvik")), saved);
}

}  // namespace
