// SPDX-License-Identifier: MIT
#include "gui_base/report/chart_report.h"

#include "gui_base/report/resin_chart.h"
#include "projectbase/design/plant_design.h"
#include "projectbase/project/iex_project.h"
#include "report/pdf_writer.h"
#include "tests/support/pdf.h"
#include "tests/support/plant_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <stdexcept>

namespace {

using testing::HasSubstr;
using testing::Not;

std::unique_ptr<iex::IEXProject> Plant()
{
    auto project = std::make_unique<iex::IEXProject>("DEMI");
    support::SetWater(*project, {{"ca", 3.0}, {"na", 1.0}, {"cl", 2.0}, {"hco3", 2.0}}, 12.0);
    support::SetFlow(*project);
    return project;
}

ReportContext UsInAnotherLanguage()
{
    ReportContext context;
    context.unitSystem = "us";
    context.separators.decimal = ",";
    context.translate = [](const char* source) {
        const std::map<std::string, std::string> texts{{"Charts", "Diagramme"}, {"Velocity", "Tempo"}};
        const auto found = texts.find(source);
        return found == texts.end() ? std::string(source) : found->second;
    };
    return context;
}

TEST(ChartReport, HasBothDiagramsOfEachResinOfThePlantAsTexts)
{
    const auto project = Plant();
    const ChartReport source(*project);
    const ReportContext context = UsInAnotherLanguage();
    const auto pages = source.GetReportPages(context);
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_EQ(pages[0].title, "Diagramme");
    report::Document document;
    document.sections.push_back(source.BuildReportPage(pages[0].id, context));
    std::vector<std::string> headings;
    int figures = 0;
    for (const report::Block& block : document.sections[0].blocks) {
        if (const auto* heading = std::get_if<report::Heading>(&block))
            headings.push_back(heading->text);
        figures += std::holds_alternative<report::Figure>(block) ? 1 : 0;
    }
    EXPECT_THAT(headings, testing::ElementsAre(design::FindResin("sac_gel")->name,
                                               testing::StartsWith("Strong-base anion")));
    EXPECT_EQ(figures, 4);
    const std::string text = support::PdfFile(report::WritePdf(document)).Text();
    for (const char* expected : {"Tempo [gpm/ft\u00b2]", "Pressure drop [psi/ft]", "Bed expansion [%]",
                                 "41 \u00b0F", "(53,6 \u00b0F)"})
        EXPECT_THAT(text, HasSubstr(expected));
    EXPECT_THAT(text, Not(HasSubstr("No data")));
}

TEST(ChartReport, HasNoPageWithoutAPlant)
{
    const iex::IEXProject project;
    const ChartReport source(project);
    EXPECT_TRUE(source.GetReportPages({}).empty());
    EXPECT_THROW(source.BuildReportPage(0, {}), std::out_of_range);
    const auto plant = Plant();
    EXPECT_THROW(ChartReport(*plant).BuildReportPage(1, {}), std::out_of_range);
}

}  // namespace
