// SPDX-License-Identifier: MIT
// The regeneration of an exchanger in a window: driven by keys and buttons, the project holds what comes of
// it.
#include "gui_base/ionexchange/regeneration/regeneration_panel.h"

#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_choiceadv.h"
#include "gui_base/input/controls/tv_radiobutton.h"
#include "gui_base/input/events.h"
#include "gui_base/input/validation/double_validator.h"
#include "gui_base/ionexchange/regeneration/chemical_dilution_panel.h"
#include "gui_base/ionexchange/regeneration/mb_regeneration_type.h"
#include "gui_base/ionexchange/regeneration/tv_regseq_mediums.h"
#include "gui_base/ionexchange/regeneration/tv_regseq_seq.h"
#include "gui_base/ionexchange/regeneration/tv_regseq_seq_controller.h"
#include "gui_base/support/events.h"
#include "tests/support/gui_test.h"
#include "tests/support/plant_fixture.h"
#include "tests/support/project_history.h"

#include <gmock/gmock.h>

namespace {

using namespace gui_test;
using testing::ElementsAre;

class RegenerationTest : public GuiTest
{
protected:
    void Open(const char* type)
    {
        m_project = std::make_unique<iex::IEXProject>(type);
        support::SetWater(*m_project, {{"na", 1.0}, {"ca", 3.0}, {"hco3", 2.5}, {"cl", 1.5}, {"sio2", 0.2}});
        support::SetFlow(*m_project);
        m_history = std::make_unique<support::History>(*m_project);
        m_panel = new RegenerationPanel(*m_project, m_project->GetStep(0), m_frame);
        m_frame->SetClientSize(1200, 900);
        m_panel->SetSize(m_frame->GetClientSize());
        Pump();
    }
    void TearDown() override
    {
        GuiTest::TearDown();
        m_history.reset();
    }

    TVRegSeqGrid& Grid() { return m_panel->GetSequence().GetGrid(); }
    std::vector<std::string> Types()
    {
        std::vector<std::string> types;
        for (const RegSeqStep& step : m_project->GetRegSeqData(0).steps)
            types.push_back(step.type.substr(7));
        return types;
    }
    void Cursor(int row, int column)
    {
        Grid().SetFocus();
        Grid().ClearSelection();
        Grid().GoToCell(row, column);
        Pump();
    }
    double Row(std::size_t row, const char* key)
    {
        return support::Get(*m_project, "ex.1.seq." + std::to_string(row + 1), key);
    }

    std::unique_ptr<iex::IEXProject> m_project;
    std::unique_ptr<support::History> m_history;
    RegenerationPanel* m_panel = nullptr;
};

TEST_F(RegenerationTest, ColumnsOfChoicesTakeWhatTheNumbersLeave)
{
    Open("DEMI");
    const auto widthAt = [this](int width) {
        Grid().SetSize(width, Grid().GetSize().y);
        Pump();
        return Grid().GetColSize(kRegSeqType);
    };
    const int wide = widthAt(2000);
    const int narrow = widthAt(500);
    for (int row = 0; row < Grid().GetNumberRows(); ++row)
        EXPECT_GT(narrow, Grid().GetTextExtent(Grid().GetCellValue(row, kRegSeqType)).x);
    EXPECT_GT(wide, narrow);
    EXPECT_EQ(widthAt(2000), wide);
    Grid().SetColSize(kRegSeqType, wide + 50);
    wxGridSizeEvent sized(Grid().GetId(), wxEVT_GRID_COL_SIZE, &Grid(), kRegSeqType);
    Grid().ProcessWindowEvent(sized);
    EXPECT_EQ(widthAt(500), wide + 50) << "sized by the user";
}

TEST_F(RegenerationTest, ACellIsTypedAndTheRestFollows)
{
    Open("DEMI");
    const double area = support::Get(*m_project, "ex.1", "step/area");
    Cursor(0, kRegSeqFlow);
    Type("12.5\r");
    Pump();
    EXPECT_EQ(Row(0, "regseqstep/q"), 12.5);
    EXPECT_NEAR(Row(0, "regseqstep/v"), 12.5 / area, 1e-9);
    Cursor(0, kRegSeqMinutes);
    Type("30\r");
    Pump();
    EXPECT_EQ(Row(0, "regseqstep/t"), 0.5);
    EXPECT_EQ(Grid().GetCellValue(0, kRegSeqHours), "0.5");
    EXPECT_EQ(Grid().GetCellValue(0, kRegSeqVolume), "6.25") << "shown as soon as it is known";
    Cursor(0, kRegSeqMinutes);
    std::vector<std::string> messages;
    m_frame->Bind(tv_MESSAGE, [&messages](MessageEvent& event) { messages = event.GetMessages(); });
    Type("abc\r");
    Pump();
    EXPECT_EQ(messages,
              std::vector<std::string>{"Time min: \"abc\" is no number; the value stays as it was"});
    EXPECT_EQ(Row(0, "regseqstep/t"), 0.5) << "no number";
    m_history->stack.Undo();
    Pump();
    EXPECT_EQ(Row(0, "regseqstep/t"), 0.25);
    EXPECT_EQ(Grid().GetCellValue(0, kRegSeqMinutes), "15");

    const auto colour = [this] { return Grid().GetCellBackgroundColour(0, kRegSeqVelocity); };
    const wxColour usual = colour();
    Grid().GetRegSeqTable().SetValue(0, kRegSeqVelocity, "500");
    EXPECT_EQ(colour(), DoubleValidator(nullptr).GetAboveMaxColour());
    Grid().GetRegSeqTable().SetValue(0, kRegSeqVelocity, "10");
    EXPECT_EQ(colour(), usual);

    // The dose of the chemical settles its volume; what nothing flows in has no flow.
    EXPECT_FALSE(Grid().GetRegSeqTable().IsEditable(1, kRegSeqVolume));
    EXPECT_FALSE(Grid().GetRegSeqTable().IsEditable(1, kRegSeqType)) << "required";
    EXPECT_TRUE(Grid().GetRegSeqTable().IsEditable(0, kRegSeqType));
    Grid().SetCellValue(0, kRegSeqType, "Settling");
    Grid().GetRegSeqTable().SetValue(0, kRegSeqType, "Settling");
    EXPECT_FALSE(Grid().GetRegSeqTable().IsEditable(0, kRegSeqVelocity));
    EXPECT_TRUE(Grid().GetRegSeqTable().IsEditable(0, kRegSeqHours));
    EXPECT_EQ(Types()[0], "SETTLE");
    const auto types = Grid().GetRegSeqTable().TextsOf(kRegSeqType);
    EXPECT_EQ(std::ranges::count(types, "Conditioning"), 0) << "without a conditioner";
}

TEST_F(RegenerationTest, RowsComeGoAndMoveByKeysAndButtons)
{
    Open("DEMI");
    ASSERT_THAT(Types(), ElementsAre("BW", "REG", "DISP", "RINSE"));
    Cursor(0, kRegSeqVelocity);
    Press(WXK_INSERT);
    Pump();
    EXPECT_THAT(Types(), ElementsAre("BW", "REG", "DISP", "RINSE", "BW"));
    EXPECT_THAT(m_panel->GetSequence().GetSelectedRows(), ElementsAre(4));
    EXPECT_GT(Row(4, "regseqstep/vol"), 0.0) << "with the usual figures";
    Press(WXK_UP, wxMOD_ALT);
    Pump();
    EXPECT_THAT(Types(), ElementsAre("BW", "REG", "DISP", "BW", "RINSE"));
    EXPECT_THAT(m_panel->GetSequence().GetSelectedRows(), ElementsAre(3)) << "the selection follows";
    m_history->stack.Undo();
    Pump();
    EXPECT_THAT(m_panel->GetSequence().GetSelectedRows(), ElementsAre(4)) << "back, too";
    m_history->stack.Redo();
    Pump();
    EXPECT_THAT(m_panel->GetSequence().GetSelectedRows(), ElementsAre(3));

    const auto& remarks = Find<TvTextCtrl>(*m_panel, "Remarks");
    const wxRect inside(m_panel->GetSequence().GetClientSize());
    EXPECT_TRUE(inside.Contains(wxRect(remarks.GetPosition(), remarks.GetSize()))) << "has room";

    // By the rule of the swap: row 0 stays, row 1 then changes places with it.
    m_panel->GetSequence().SelectRows({0, 1});
    Click(Labelled<TvButton>(*m_panel, "Move up"));
    Pump();
    EXPECT_THAT(Types(), ElementsAre("REG", "BW", "DISP", "BW", "RINSE"));
    EXPECT_THAT(m_panel->GetSequence().GetSelectedRows(), ElementsAre(0, 1));
    m_panel->GetSequence().SelectRows({0, 1});
    Click(Labelled<TvButton>(*m_panel, "Move down"));
    Pump();
    EXPECT_THAT(Types(), ElementsAre("DISP", "REG", "BW", "BW", "RINSE"));
    EXPECT_THAT(m_panel->GetSequence().GetSelectedRows(), ElementsAre(1, 2));

    // What is required stays.
    m_panel->GetSequence().SelectRows({0, 1, 2, 3});
    EXPECT_THAT(m_panel->GetSequence().GetSelectedAndRemoveableRows(), ElementsAre(2, 3));
    Grid().SetFocus();
    Press(WXK_DELETE);
    Pump();
    EXPECT_THAT(Types(), ElementsAre("DISP", "REG", "RINSE"));
    m_panel->GetSequence().SelectRows({0});
    m_panel->GetSequence().UpdateWindowUI();
    EXPECT_FALSE(Labelled<TvButton>(*m_panel, "Remove").IsEnabled());
    EXPECT_FALSE(Labelled<TvButton>(*m_panel, "Move up").IsEnabled());
    EXPECT_TRUE(Labelled<TvButton>(*m_panel, "Move down").IsEnabled());
    m_history->stack.UndoAll();
    Pump();
    EXPECT_THAT(Types(), ElementsAre("BW", "REG", "DISP", "RINSE"));
    EXPECT_EQ(Grid().GetNumberRows(), 4);
}

TEST_F(RegenerationTest, TheWheelScrollsThePageWhereverThePointerIs)
{
    Open("MB");
    m_panel->SetSize(600, 300);
    Pump();
    wxWindow* const places[] = {Grid().GetGridWindow(), &Find<TvTextCtrl>(*m_panel, "Remarks"),
                                &m_panel->GetSequence()};
    for (wxWindow* place : places) {
        m_panel->Scroll(0, 0);
        wxMouseEvent wheel(wxEVT_MOUSEWHEEL);
        wheel.SetEventObject(place);
        wheel.m_wheelRotation = -120;
        wheel.m_wheelDelta = 120;
        place->GetEventHandler()->ProcessEvent(wheel);
        EXPECT_GT(m_panel->GetViewStart().y, 0) << place->GetName();
    }
}

TEST_F(RegenerationTest, RemarksAreOneStepForEachStayInTheirField)
{
    Open("SOFT");
    auto& remarks = Find<TvTextCtrl>(*m_panel, "Remarks");
    Focus(remarks);
    Type("warm");
    Pump();
    EXPECT_TRUE(Labelled<wxStaticText>(*m_panel, "4/4000").IsShown());
    EXPECT_EQ(remarks.GetInsertionPoint(), 4) << "nobody moves the caret";
    EXPECT_FALSE(m_history->stack.CanUndo());
    Focus(Grid());
    Pump();
    EXPECT_EQ(m_project->GetRegSeqData(0).remarks, "warm");
    m_history->stack.Undo();
    Pump();
    EXPECT_EQ(remarks.GetValue(), "");
    EXPECT_FALSE(m_history->stack.CanUndo());
    remarks.SetValue(wxString(L'\u00e4', 5'000));
    remarks.SetModified(true);
    Pump();
    EXPECT_EQ(remarks.GetValue().length(), 4'000u) << "letters, not bytes";
}

TEST_F(RegenerationTest, ADilutionFollowsItsPanel)
{
    Open("DEMI");
    const auto& details = *m_project->FindOwner("ex.1.comp.1")->GetDetails();
    const double volume = Row(1, "regseqstep/vol");
    Enter(*Find<TvChemicalDiliutionPanel>(*m_panel).FindField(details.At("stepcomp/level")), "120");
    Pump();
    EXPECT_EQ(details.At("stepcomp/level").GetDoubleValue(), 120.0);
    EXPECT_GT(Row(1, "regseqstep/vol"), volume);
    const auto second = [&] {
        return Find<TvChemicalDiliutionPanel>(*m_panel).FindField(details.At("stepcomp/rm.portion2"));
    };
    ASSERT_NE(second(), nullptr);
    EXPECT_FALSE(second()->IsEditable());
    Click(Find<TvCheckBox>(*m_panel, "Progressive"));
    Pump();
    EXPECT_TRUE(details.At("stepcomp/rm.progressive").GetBoolValue());
    EXPECT_TRUE(second()->IsEditable());
    Enter(*second(), "60");
    Pump();
    EXPECT_EQ(details.At("stepcomp/rm.portion2").GetDoubleValue(), 60.0);
    EXPECT_EQ(details.At("stepcomp/rm.portion").GetDoubleValue(), 40.0) << "together they are all";
    Click(Find<TvCheckBox>(*m_panel, "Progressive"));
    Pump();
    EXPECT_EQ(details.At("stepcomp/rm.portion").GetDoubleValue(), 100.0) << "alone it is all";
    Click(Find<TvCheckBox>(*m_panel, "Progressive"));
    Pump();
    auto& chemical = Find<tvChoiceAdv>(*m_panel, "Kind of regeneration");
    EXPECT_EQ(chemical.GetKey(), "HCL");
    Focus(chemical);
    chemical.SelectKey("H2SO4");
    wxCommandEvent chosen(wxEVT_CHOICE, chemical.GetId());
    chosen.SetInt(chemical.GetSelection());
    chosen.SetEventObject(&chemical);
    chemical.GetEventHandler()->ProcessEvent(chosen);
    Pump();
    EXPECT_THAT(Types(), ElementsAre("BW", "REG_FIRST", "REG", "DISP", "RINSE")) << "stepwise";
    EXPECT_EQ(Grid().GetCellValue(1, kRegSeqMedium), "Sulfuric acid");
}

TEST_F(RegenerationTest, UnitsAndLanguageChangeInTheOpenWindow)
{
    Open("DEMI");
    Grid().GetRegSeqTable().SetValue(0, kRegSeqFlow, "10");
    m_project->SetUnitSystemDisplay("us");
    wxCommandEvent units(tvCHANGEUNITSYSTEM_EVENT);
    m_panel->GetEventHandler()->ProcessEvent(units);
    EXPECT_NE(Grid().GetCellValue(0, kRegSeqFlow), "10");
    Grid().GetRegSeqTable().SetValue(0, kRegSeqFlow, Grid().GetCellValue(0, kRegSeqFlow));
    EXPECT_EQ(Row(0, "regseqstep/q"), 10.0) << "what nobody typed keeps its digits";
    const TestCatalogue catalogue({{"Backwash", "Spuelen"}, {"Type", "Art"}});
    wxCommandEvent language(tvLOCALIZE_EVENT);
    m_panel->GetEventHandler()->ProcessEvent(language);
    EXPECT_EQ(Grid().GetCellValue(0, kRegSeqType), "Spuelen");
    EXPECT_EQ(Grid().GetColLabelValue(kRegSeqType), "Art");
    EXPECT_EQ(Types()[0], "BW");
    Grid().GetRegSeqTable().SetValue(0, kRegSeqMinutes, "6");
    EXPECT_EQ(Types()[0], "BW") << "cells hold keys";
}

TEST_F(RegenerationTest, MediumVolumesAddUp)
{
    Open("SOFT");
    auto& sums = Find<TVRegSeqMediumsGrid>(*m_panel);
    const int last = sums.GetNumberRows() - 1;
    ASSERT_EQ(last, 2);
    EXPECT_EQ(sums.GetCellValue(0, 0), "Raw water");
    EXPECT_EQ(sums.GetCellValue(1, 0), "Sodium chloride");
    double volume = 0.0;
    for (const RegSeqStep& step : m_project->GetRegSeqData(0).steps)
        volume += step.values.vol;
    double shown = 0.0;
    ASSERT_TRUE(sums.GetCellValue(last, 1).ToCDouble(&shown));
    EXPECT_NEAR(shown, volume, 0.001 * volume);
    Grid().GetRegSeqTable().SetValue(0, kRegSeqVolume, "100");
    ASSERT_TRUE(sums.GetCellValue(last, 1).ToCDouble(&shown));
    EXPECT_GT(shown, 100.0) << "at once";
}

TEST_F(RegenerationTest, AMixedBedKnowsItsOwnButtons)
{
    Open("MB");
    auto& first = Find<MBRegenerationType>(*m_panel);
    const DetailList& details = *m_project->GetStep(0).GetDetails();
    DetailData other("step/mb.type", DetailType::String);
    other.SetValue(std::string("neither"));
    MBRegenerationType second(&other, nullptr, m_panel);
    EXPECT_TRUE(Find<TvRadioButton>(first, "Parallel").GetValue());
    for (const char* label : {"Parallel", "Serial (1. acid / 2. caustic)", "Serial (1. caustic / 2. acid)"})
        EXPECT_FALSE(Find<TvRadioButton>(second, label).GetValue()) << label;
    const auto choose = [](wxWindow& panel, const char* label) {
        auto& button = Find<TvRadioButton>(panel, label);
        button.SetValue(true);
        wxCommandEvent event(wxEVT_RADIOBUTTON, button.GetId());
        event.SetEventObject(&button);
        button.GetEventHandler()->ProcessEvent(event);
    };
    choose(first, "Serial (1. caustic / 2. acid)");
    EXPECT_EQ(details.At("step/mb.type").GetStdStringValue(), "serial2");
    EXPECT_EQ(other.GetStdStringValue(), "neither");
    choose(second, "Serial (1. acid / 2. caustic)");
    EXPECT_EQ(other.GetStdStringValue(), "serial1");
    EXPECT_EQ(details.At("step/mb.type").GetStdStringValue(), "serial2");
    m_history->stack.Undo();
    Pump();
    EXPECT_TRUE(Find<TvRadioButton>(first, "Parallel").GetValue());
}

TEST_F(RegenerationTest, ACopyOfTheControllerAnswersOnlyWhileItLives)
{
    Open("SOFT");
    TVRegSeqSubPanel& view = m_panel->GetSequence();
    {
        const TVRegSeqSubPanelController original(&view, m_project.get());
        TVRegSeqSubPanelController copy = original;
        copy.AddStep();
        EXPECT_EQ(copy.GetData().steps.size(), original.GetData().steps.size() + 1);
        copy.RegisterCallbacks();
    }
    view.PostAddStepEvent();
    EXPECT_EQ(Types().size(), 5u) << "one row, of the one that lives";
}

TEST_F(RegenerationTest, AMessageLeadsToItsCell)
{
    Open("DEMI");
    const DetailAddress address{m_project->FindOwner("ex.1.seq.3")->GetOwner(), "regseqstep/q"};
    EXPECT_TRUE(m_panel->FocusDetail(address));
    EXPECT_EQ(Grid().GetGridCursorRow(), 2);
    EXPECT_EQ(Grid().GetGridCursorCol(), kRegSeqFlow);
    EXPECT_TRUE(m_panel->FocusDetail({m_project->FindOwner("ex.1.comp.1")->GetOwner(), "stepcomp/level"}));
    EXPECT_FALSE(m_panel->FocusDetail({m_project->FindOwner("ex.2.comp.1")->GetOwner(), "stepcomp/level"}));
}

}  // namespace
