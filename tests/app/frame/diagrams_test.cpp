// SPDX-License-Identifier: MIT
// The diagrams of waters in the program.
#include "app/modules/base/module.h"
#include "chartdir/plane_chart.h"
#include "chartdir/stiff_chart.h"
#include "gui_base/graphics/diagrams/diagram_page.h"
#include "gui_base/graphics/diagrams/water_diagram_panel.h"
#include "gui_base/report/water_diagram_report.h"
#include "projectbase/project/project_edit.h"
#include "projectbase/settings/settings.h"
#include "report/pdf_writer.h"
#include "tests/support/pdf.h"
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

TEST_F(DiagramsInTheProgram, OptionsOfThePageHoldForPaneAndReportAndAfterARestart)
{
    const auto report = [this] {
        report::Document document;
        document.sections.push_back(WaterDiagramReport(OpenProject()).BuildReportPage(0, {}));
        return support::PdfFile(report::WritePdf(document)).Text();
    };
    {
        const ProjectEdit edit(OpenProject());
        DetailList& water = *OpenProject().GetLiquid(0).GetDetails();
        for (const char* none : {"liquid/no3.orig", "liquid/fe2.orig"})
            water.At(none).SetValue(0.0);
    }
    DiagramPage& page = Diagrams();
    auto& pane = Find<WaterDiagramPanel>(*m_frame);
    auto& kind = Find<tvChoice>(pane);
    kind.SetSelection(static_cast<int>(Kind::Stiff));
    wxCommandEvent event(wxEVT_CHOICE, kind.GetId());
    event.SetEventObject(&kind);
    kind.ProcessWindowEvent(event);
    const auto rowsOfPane = [&pane] {
        return dynamic_cast<const chartdir::StiffChart&>(*pane.GetViewer().GetChart()).getRows().size();
    };
    EXPECT_EQ(rowsOfPane(), 3U);
    EXPECT_THAT(report(), testing::Not(testing::HasSubstr("NO\u2083")));
    Click(Labelled<wxCheckBox>(page, "Stiff: Fe and NO3"));
    EXPECT_EQ(Stiff().getRows().size(), 4U);
    EXPECT_EQ(rowsOfPane(), 4U);
    EXPECT_THAT(report(), testing::HasSubstr("NO\u2083"));
    Settings::Save();
    Settings::Reset();
    EXPECT_EQ(water_diagram::ChosenOptions(), water_diagram::Options{});
    Settings::Load();
    EXPECT_EQ(water_diagram::ChosenOptions(), water_diagram::Options{.fourthRowInStiff = true});
    ASSERT_TRUE(Settings::SetFromText("diagram.piper.size", "true")) << "as the command line sets it";
    EXPECT_TRUE(water_diagram::ChosenOptions().sizeByDissolved);
}

}  // namespace
