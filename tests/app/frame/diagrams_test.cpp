// SPDX-License-Identifier: MIT
// The diagrams of waters in the program.
#include "app/modules/base/module.h"
#include "chartdir/plane_chart.h"
#include "chartdir/stiff_chart.h"
#include "gui_base/graphics/diagrams/diagram_page.h"
#include "projectbase/project/project_edit.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace {

using namespace gui_test;
using water_diagram::Kind;

class DiagramsInTheProgram : public ProgramTest
{
protected:
    DiagramsInTheProgram() : ProgramTest("world_river_livingstone") {}

    DiagramPage& Diagrams()
    {
        m_frame->GetBook().Show("diagrams", {});
        Pump();
        return dynamic_cast<DiagramPage&>(*m_frame->GetBook().GetCurrentPanel());
    }
    const chartdir::StiffChart& Stiff()
    {
        return dynamic_cast<const chartdir::StiffChart&>(
            *Diagrams().GetGrid().GetViewer(Kind::Stiff).GetChart());
    }
    /// Calcium of a water as Stiff draws it.
    double Calcium(std::size_t water = 0) { return Stiff().getFigures().at(water).rows[1].left; }
};

TEST_F(DiagramsInTheProgram, FollowWhatIsTypedUndoneAndAddedElsewhere)
{
    // 15 mg/l of calcium.
    EXPECT_NEAR(Calcium(), 15.0 / 20.04, 1e-9);
    Enter(Find<wxTextCtrl>(WaterPage(), "Calcium [mg/l]"), "80.16");
    EXPECT_NEAR(Calcium(), 4.0, 1e-9);
    m_frame->Undo();
    Pump();
    EXPECT_NEAR(Calcium(), 15.0 / 20.04, 1e-9);
    {
        const ProjectEdit edit(OpenProject());
        OpenProject().AddLiquid("Well");
    }
    Pump();
    EXPECT_EQ(Stiff().getFigures().size(), 2U);
}

TEST_F(DiagramsInTheProgram, SwitchLanguageAndAreAPageOfTheReport)
{
    DiagramPage& page = Diagrams();
    m_frame->View().SetLanguage("de");
    Pump();
    EXPECT_EQ(page.GetGrid().GetViewer(Kind::Piper).GetChart()->getTitle(), "Piper-Diagramm");
    m_frame->View().SetLanguage("en");
    const auto sources = app::ReportSources(OpenProject());
    const bool hasPage = std::ranges::any_of(sources, [](const auto& source) {
        return std::ranges::any_of(source->GetReportPages({}),
                                   [](const ReportPage& report) { return report.name == "diagrams"; });
    });
    EXPECT_TRUE(hasPage);
}

}  // namespace
