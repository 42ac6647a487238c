// SPDX-License-Identifier: MIT
// The what-if analysis under the hands of its user.
#include "gui_base/ionexchange/whatif/what_if_dialog.h"

#include "gui_base/ionexchange/whatif/panel_not_exist.h"
#include "gui_base/ionexchange/whatif/what_if_grid_pair_loader.h"
#include "projectbase/project/iex_project.h"
#include "tests/support/function_project.h"
#include "tests/support/gui_test.h"
#include "tests/support/project_fixture.h"
#include "tests/support/project_history.h"

#include <wx/button.h>
#include <wx/msgdlg.h>
#include <wx/stattext.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

#include <cmath>
#include <limits>
#include <memory>

namespace {

using namespace gui_test;
using support::FunctionProject;

constexpr int kFound = WifTable::kFoundValue;
constexpr int kEnter = WifTable::kEnterValue;

class WhatIfDialogTest : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        m_project.GetDetails().At("project/qbrutto").SetValue(20.0);
        m_project.GetDetails().At("project/lz").SetValue(12.0);
        m_history = std::make_unique<support::History>(m_project);
        Open();
    }
    void TearDown() override
    {
        m_dialog.reset();
        m_history.reset();
        GuiTest::TearDown();
    }
    /// Row 0 seeks the flow, row 1 the time, both for a volume.
    void Open()
    {
        m_dialog = std::make_unique<WhatIfDialog>(
            std::make_unique<WifTable>(WhatIfGridPairLoader::GetTable(m_project), m_project), &m_project,
            m_frame);
        m_dialog->Show();
        Pump();
        Focus(*m_dialog->GetGrid().GetGridWindow());
    }
    std::string Cell(int row, int column)
    {
        return m_dialog->GetGrid().GetCellValue(row, column).utf8_string();
    }
    void TypeInto(int row, int column, const char* text)
    {
        m_dialog->GetGrid().GoToCell(row, column);
        Pump();
        Type(text);
        Press(WXK_RETURN);
    }
    wxColour Colour(int row) { return m_dialog->GetGrid().GetCellBackgroundColour(row, kEnter); }
    bool IsRed(int row) { return Colour(row).GetRed() > 200 && Colour(row).GetGreen() < 150; }
    wxButton& Button(int id) { return dynamic_cast<wxButton&>(*m_dialog->FindWindow(id)); }
    void Push(int id)
    {
        EXPECT_TRUE(Button(id).IsEnabled()) << Button(id).GetLabel();
        wxCommandEvent event(wxEVT_BUTTON, id);
        event.SetEventObject(&Button(id));
        Button(id).ProcessWindowEvent(event);
        Pump();
    }
    double Flow() { return m_project.GetDetails().At("project/qbrutto").GetDoubleValue(); }

    iex::IEXProject m_project;
    std::unique_ptr<support::History> m_history;
    std::unique_ptr<WhatIfDialog> m_dialog;
};

TEST_F(WhatIfDialogTest, AValueThatIsTypedFindsTheOther)
{
    EXPECT_EQ(Cell(0, kFound), "20");
    EXPECT_EQ(Cell(0, kEnter), "240");
    EXPECT_EQ(m_dialog->GetPosition(), -1);
    TypeInto(0, kEnter, "300");
    EXPECT_EQ(Cell(0, kFound), "25");
    EXPECT_EQ(Cell(0, kEnter), "300");
    EXPECT_EQ(Cell(1, kEnter), "300") << "every row shows the design as it now is";
    EXPECT_EQ(m_dialog->GetStatusText(), "");
    EXPECT_EQ(m_dialog->GetPosition(), 0);
    EXPECT_EQ(Flow(), 20.0) << "the project knows nothing yet";
    TypeInto(1, kEnter, "600");
    EXPECT_EQ(Cell(1, kFound), "24");
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(Cell(1, kFound), "12");
    EXPECT_EQ(Cell(0, kFound), "25");
    Press('Z', wxMOD_CONTROL | wxMOD_SHIFT);
    EXPECT_EQ(Cell(1, kFound), "24");
    TypeInto(1, kEnter, "12a");
    EXPECT_EQ(Cell(1, kFound), "24");
    EXPECT_EQ(m_dialog->GetStatusText(), "Enter value: \"12a\" is no number; the value stays as it was");
    Push(wxID_BACKWARD);
    EXPECT_EQ(Cell(0, kEnter), "240");
    EXPECT_EQ(m_dialog->GetPosition(), -1);
    Push(wxID_FORWARD);
    EXPECT_EQ(Cell(0, kEnter), "600");
    Push(wxID_UNDO);
    EXPECT_EQ(Cell(0, kEnter), "300");
    Push(wxID_REDO);
    EXPECT_FALSE(m_dialog->RedoPossible());
    EXPECT_FALSE(Button(wxID_REDO).IsEnabled());
}

TEST_F(WhatIfDialogTest, TabGoesFromInputToInputAndOut)
{
    wxGrid& grid = m_dialog->GetGrid();
    grid.GoToCell(0, WifTable::kFirstName);
    Press(WXK_TAB);
    EXPECT_EQ(grid.GetGridCursorCoords(), wxGridCellCoords(0, kEnter));
    Type("360");
    Press(WXK_TAB);
    EXPECT_EQ(Cell(0, kFound), "30") << "what was typed counts";
    EXPECT_EQ(grid.GetGridCursorCoords(), wxGridCellCoords(1, kEnter));
    Press(WXK_TAB, wxMOD_SHIFT);
    EXPECT_EQ(grid.GetGridCursorCoords(), wxGridCellCoords(0, kEnter));
    grid.GoToCell(1, kEnter);
    Press(WXK_TAB);
    EXPECT_TRUE(PumpUntil([this] {
        const wxWindow* focus = wxWindow::FindFocus();
        return focus != nullptr && focus->GetParent() == m_dialog.get();
    })) << "behind the last input comes the next control";
}

TEST_F(WhatIfDialogTest, AFailureIsShownAndChangesNothing)
{
    TypeInto(0, kEnter, "300");
    TypeInto(0, kEnter, "360");
    m_dialog->Undo();
    TypeInto(0, kEnter, "-1");
    EXPECT_TRUE(IsRed(0));
    EXPECT_FALSE(IsRed(1));
    EXPECT_EQ(m_dialog->GetStatusText(), "Could not converge");
    EXPECT_EQ(Cell(0, kEnter), "300");
    EXPECT_EQ(m_dialog->GetPosition(), 0) << "a failure is no step of the history";
    EXPECT_TRUE(m_dialog->RedoPossible()) << "and takes none away";
    TypeInto(0, kEnter, "3x");
    EXPECT_EQ(Cell(0, kEnter), "300") << "a text that is no number is passed over";
    TypeInto(0, kEnter, "312");
    EXPECT_FALSE(IsRed(0));
    EXPECT_EQ(m_dialog->GetStatusText(), "");
    EXPECT_EQ(Cell(0, kFound), "26");
}

TEST_F(WhatIfDialogTest, JudgesDeviations)
{
    struct
    {
        bool ok;
        double deviation;
        const char* text;
    } const cases[] = {{true, 0.0, ""},
                       {true, 1e-5, ""},
                       {true, std::nextafter(1e-5, 1.0), "Could not converge"},
                       {false, std::nextafter(1e-5, 1.0), "Could not converge"},
                       {true, std::numeric_limits<double>::quiet_NaN(), "Could not converge"},
                       {false, std::numeric_limits<double>::infinity(), "Could not converge"},
                       {false, 0.0, "Could not find starting values"},
                       {false, 1e-5, "Could not find starting values"}};
    for (const auto& each : cases) {
        EXPECT_EQ(m_dialog->CalculationErrorHandling(0, each.ok, each.deviation), *each.text == '\0');
        EXPECT_EQ(m_dialog->GetStatusText(), each.text);
        EXPECT_EQ(IsRed(0), *each.text != '\0') << each.deviation;
    }
}

TEST_F(WhatIfDialogTest, ARowIsTurnedRoundByItsMenu)
{
    m_dialog->GetGrid().GoToCell(0, kEnter);
    wxTimer timer;
    timer.Bind(wxEVT_TIMER, [](wxTimerEvent&) {
        wxUIActionSimulator simulator;
        simulator.Char(WXK_DOWN);
        simulator.Char(WXK_RETURN);
    });
    timer.StartOnce(300);
    Press(WXK_F10, wxMOD_SHIFT);
    ASSERT_TRUE(PumpUntil([this] { return !m_dialog->GetGrid().IsReadOnly(0, kFound); }));
    EXPECT_TRUE(m_dialog->GetGrid().IsReadOnly(0, kEnter));
    EXPECT_EQ(m_dialog->GetDetailToAdjust(0)->GetName(), "project/wbrutto");
    TypeInto(0, kFound, "30");
    EXPECT_EQ(Cell(0, kEnter), "360");
    TypeInto(0, kEnter, "5");
    EXPECT_EQ(Cell(0, kEnter), "360") << "what is found is not typed";
    EXPECT_TRUE(m_dialog->GetGrid().IsReadOnly(1, kFound)) << "the other rows stay as they are";
}

TEST_F(WhatIfDialogTest, ApplyIsOneStepOfTheProject)
{
    TypeInto(0, kEnter, "300");
    TypeInto(1, kEnter, "600");
    EXPECT_TRUE(m_dialog->HasUnappliedChanges());
    Push(wxID_APPLY);
    EXPECT_NEAR(Flow(), 25.0, 1e-9);
    EXPECT_EQ(m_history->told, 1);
    EXPECT_FALSE(m_dialog->HasUnappliedChanges());
    EXPECT_FALSE(Button(wxID_APPLY).IsEnabled());
    const auto applied = m_project.Clone();
    ASSERT_TRUE(m_history->stack.Undo());
    EXPECT_EQ(Flow(), 20.0);
    EXPECT_FALSE(m_history->stack.CanUndo());
    m_history->stack.Redo();
    support::ExpectSameProject(m_project, *applied);
    m_dialog->Close();
    EXPECT_FALSE(m_dialog->IsShown()) << "nothing to ask about";
}

TEST_F(WhatIfDialogTest, AsksBeforeItGivesUpChanges)
{
    TypeInto(0, kEnter, "300");
    const auto answer = [this](int id, const char* text) {
        m_dialogs.Expect([id, text](wxDialog& dialog) {
            EXPECT_EQ(dynamic_cast<wxMessageDialog&>(dialog).GetMessage(), text);
            return id;
        });
    };
    answer(wxID_NO, "Do you really want to discard all changes?");
    Push(wxID_REVERT);
    EXPECT_EQ(Cell(0, kEnter), "300");
    answer(wxID_YES, "Do you really want to discard all changes?");
    Push(wxID_REVERT);
    EXPECT_EQ(Cell(0, kEnter), "240");
    EXPECT_FALSE(m_dialog->HasUnappliedChanges());

    m_dialog->Redo();
    for (const int id : {wxID_NO, wxID_CANCEL}) {
        answer(id, "Do you want to close without applying your changes to the design?");
        m_dialog->Close();
        EXPECT_TRUE(m_dialog->IsShown()) << "anything but yes";
    }
    answer(wxID_YES, "Do you want to close without applying your changes to the design?");
    Push(wxID_CANCEL);
    EXPECT_FALSE(m_dialog->IsShown());
    EXPECT_EQ(Flow(), 20.0);
    EXPECT_EQ(m_history->told, 0);
}

TEST_F(WhatIfDialogTest, ShowsAndTakesValuesAsTheUserWritesThem)
{
    m_dialog.reset();
    m_project.SetUnitSystemDisplay("us");
    const LocaleGuard german("de_DE.UTF-8");
    Open();
    EXPECT_EQ(Cell(0, WifTable::kFirstUnit), "gpm");
    const double gallons = 240.0 * 264.172052;
    EXPECT_EQ(Cell(0, kFound).substr(0, 6), "88,057");
    TypeInto(0, kEnter, wxString::Format("%d,5", static_cast<int>(gallons * 2.0)).utf8_str());
    EXPECT_EQ(Cell(0, kFound).substr(0, 4), "176,");
    EXPECT_EQ(m_dialog->GetPosition(), 0);
}

TEST(WifTable, CellsAreOfTheTypeOfTheirValue)
{
    FunctionProject project([](double x) { return 2.0 * x; }, 21.5);
    DetailList& details = project.GetDetails();
    DetailData& flag = details.Add(DetailData("test/flag", DetailType::Bool));
    const auto point = [](DetailData& detail) {
        return WifDataPoint{"n", "u", &detail, detail.GetTypeName()};
    };
    WifTable table({{point(project.Input()), point(project.Output())},
                    {point(details.At("test/n")), point(flag)},
                    {point(details.At("test/text")), {"lost", "", nullptr, "double"}}},
                   project);
    ASSERT_EQ(table.GetNumberRows(), 2) << "a pair without one of its values is none";
    ASSERT_EQ(table.GetNumberCols(), 6);
    const char* const labels[] = {"Name", "Found value", "Unit", "Name", "Enter value", "Unit"};
    for (int column = 0; column < 6; ++column)
        EXPECT_EQ(table.GetColLabelValue(column), labels[column]);
    struct
    {
        int row;
        int column;
        const char* type;
        const char* also;
    } const cases[] = {{0, 1, "double", "long"},   {0, 4, "double", "long"},   {1, 1, "long", "long"},
                       {1, 4, "bool", "bool"},     {0, 0, "string", "string"}, {0, 2, "string", "string"},
                       {1, 3, "string", "string"}, {1, 5, "string", "string"}};
    for (const auto& each : cases) {
        EXPECT_EQ(table.GetTypeName(each.row, each.column), each.type);
        for (const char* type : {"double", "long", "bool", "string"}) {
            EXPECT_EQ(table.CanGetValueAs(each.row, each.column, type),
                      std::string(type) == each.type || std::string(type) == each.also)
                << each.row << each.column << type;
        }
    }
    EXPECT_EQ(table.GetValueAsDouble(0, 1), 21.5);
    EXPECT_EQ(table.GetValueAsLong(0, 1), 22);
    EXPECT_EQ(table.GetValueAsLong(0, 4), 43);
    project.Input().SetValue(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(table.GetValue(0, 1), "");
    EXPECT_EQ(table.GetValueAsLong(0, 1), 0);
    table.SetFoundSide(0, WifTable::Side::Second);
    table.SetValue(0, 1, "7.25");
    EXPECT_EQ(project.Output().GetDoubleValue(), 14.5) << "without a handler it is stored";
}

TEST(WhatIfGridPairLoader, NamesTheStepsOfEverySequence)
{
    iex::IEXProject project("DEMI");
    project.SetUnitSystemDisplay("us");
    const auto add = [&project](std::size_t exchanger, const char* kind) -> OwnerNode& {
        OwnerNode& row = project.AddOwner(project.GetStep(exchanger), OwnerKind::SequenceRow);
        row.GetDetails()->At("regseqstep/type").SetValue(kind);
        return row;
    };
    add(0, "REGSEQ_SETTLE");
    OwnerNode& cation = add(0, "REGSEQ_REG_FIRST");
    OwnerNode& anion = add(1, "REGSEQ_REG");
    const auto first = WhatIfGridPairLoader::GetTableForStep(project, cation);
    ASSERT_FALSE(first.empty());
    EXPECT_EQ(first[0].first.name,
              wxString::Format("Flow rate (%d), exchanger 1", static_cast<int>(cation.GetPosition()) + 1));
    EXPECT_EQ(first[0].first.unit, "gpm");
    EXPECT_EQ(first[0].second.detail, cation.FindDetail("regseqstep/v"));
    EXPECT_EQ(first[0].second.type, "double");
    EXPECT_EQ(WhatIfGridPairLoader::GetTableForStep(project, anion).size(), first.size());
    std::size_t all = 0;
    for (std::size_t i = 0; i < project.NumberSteps(); ++i) {
        for (const auto& row : project.GetStep(i).GetChildren(OwnerKind::SequenceRow))
            all += WhatIfGridPairLoader::GetTableForStep(project, *row).size();
    }
    EXPECT_GT(all, 2 * first.size());
    EXPECT_EQ(WhatIfGridPairLoader::GetTableForSteps(project).size(), all);
    EXPECT_TRUE(WhatIfGridPairLoader::GetTableForAnionerOnlyStep(project, cation).empty());
    EXPECT_EQ(WhatIfGridPairLoader::GetTableForAnionerOnlyStep(project, anion).size(), first.size());

    iex::IEXProject bed("MB");
    bool hasCompartment = false;
    for (const WifPair& pair : WhatIfGridPairLoader::GetTable(bed))
        hasCompartment = hasCompartment || pair.first.name == "Regenerant level, compartment 2";
    EXPECT_TRUE(hasCompartment);
}

TEST_F(WhatIfDialogTest, AMissingPanelSaysSo)
{
    m_dialog.reset();
    m_project.ResetStatus(StatusDesigned);
    auto* panel = new PanelNotExist(&m_project, m_frame, wxID_ANY, "Overview");
    EXPECT_EQ(Find<wxStaticText>(*panel).GetLabel(), "This panel doesn't exist for this configuration");
    EXPECT_EQ(m_project.GetStatus(), StatusDesigned);
    EXPECT_FALSE(panel->HasWhatIf());
    EXPECT_NO_THROW(panel->SynchronizeProject());
    Open();
}

}  // namespace
