// SPDX-License-Identifier: MIT
#include "gui_base/report/water_diagram_report.h"

#include "report/pdf_writer.h"
#include "tests/support/pdf.h"
#include "tests/support/plant_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

TEST(WaterDiagramReport, HasAllFourDiagramsOfAllWaters)
{
    iex::IEXProject project("iex");
    const WaterDiagramReport source(project);
    EXPECT_TRUE(source.GetReportPages({}).empty()) << "a water without ions";
    EXPECT_THROW(source.BuildReportPage(0, {}), std::out_of_range);
    support::SetWater(project, {{"ca", 3}, {"hco3", 2}, {"cl", 1}});
    {
        const ProjectEdit edit(project);
        project.AddLiquid("Softened");
        project.GetLiquid(1).GetDetails()->At("liquid/na.orig").SetValue(50.0);
    }
    const auto pages = source.GetReportPages({});
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_EQ(pages[0].name, "diagrams");
    EXPECT_THROW(source.BuildReportPage(1, {}), std::out_of_range);
    report::Document document;
    document.sections.push_back(source.BuildReportPage(pages[0].id, {}));
    const support::PdfFile pdf(report::WritePdf(document));
    EXPECT_EQ(pdf.Pages(), 2);
    const std::string text = pdf.Text();
    for (const char* part : {"Diagrams", "Ion bars", "Stiff diagram", "Piper diagram", "Schoeller diagram",
                             "Softened", "Ca\u00b2\u207a", "meq/l"})
        EXPECT_THAT(text, testing::HasSubstr(part));
}

}  // namespace
