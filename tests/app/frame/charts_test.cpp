// SPDX-License-Identifier: MIT
// The charts in the program.
#include "gui_base/graphics/chart/chart_page.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace {

using namespace gui_test;

class ChartsInTheProgram : public ProgramTest
{
protected:
    ChartsInTheProgram() : ProgramTest(nullptr) {}

    ChartPage& Charts()
    {
        m_frame->GetBook().Show("charts", {});
        Pump();
        return dynamic_cast<ChartPage&>(*m_frame->GetBook().GetCurrentPanel());
    }
    static const chartdir::XYChart& ChartOf(ChartPage& page)
    {
        return dynamic_cast<const chartdir::XYChart&>(*page.GetChartPanel().GetViewer().GetChart());
    }
};

TEST_F(ChartsInTheProgram, AreThereWithoutAPlantAndFollowUnitsAndLanguageOfTheProgram)
{
    ChartPage& page = Charts();
    EXPECT_TRUE(ChartOf(page).hasData());
    m_frame->View().SetUnitSystem("us");
    Pump();
    EXPECT_EQ(ChartOf(page).xAxis().getTitle(), "Velocity [gpm/ft\u00b2]");
    m_frame->View().SetLanguage("de");
    Pump();
    EXPECT_EQ(ChartOf(page).xAxis().getTitle(), "Geschwindigkeit [gpm/ft\u00b2]");
    EXPECT_EQ(ChartOf(page).getTitle(), "Stark saures Kationenharz, Gel");
    m_frame->View().SetUnitSystem("iso");
    // What is looked at is no edit.
    Enter(Find<TvTextCtrl>(page, "Endwert [m/h]"), "60");
    EXPECT_EQ(page.GetController().GetContents().end, 60.0);
    EXPECT_FALSE(m_frame->GetDocument().GetHistory().CanUndo());
    EXPECT_FALSE(m_frame->GetDocument().IsUnsaved());
}

TEST_F(ChartsInTheProgram, CatchUpWithWhatWasEditedOnAnotherPage)
{
    ChartPage& page = Charts();
    WaterPage();
    m_frame->View().SetUnitSystem("us");
    Pump();
    Charts();
    EXPECT_EQ(ChartOf(page).yAxis().getTitle(), "Pressure drop [psi/ft]");
    m_frame->View().SetUnitSystem("iso");
}

}  // namespace
