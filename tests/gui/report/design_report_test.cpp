// SPDX-License-Identifier: MIT
#include "gui_base/report/design_report.h"

#include "tests/support/plant_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

/// All lines of a page: the cells of tables beside each other, headings and paragraphs.
std::vector<std::string> LinesOf(const report::Section& section)
{
    std::vector<std::string> lines;
    for (const report::Block& block : section.blocks) {
        if (const auto* heading = std::get_if<report::Heading>(&block))
            lines.push_back("# " + heading->text);
        if (const auto* paragraph = std::get_if<report::Paragraph>(&block))
            lines.push_back(paragraph->text);
        const auto* table = std::get_if<report::Table>(&block);
        if (table == nullptr)
            continue;
        for (const report::Row& row : table->rows) {
            std::string line;
            for (const report::Cell& cell : row.cells)
                line += (line.empty() ? "" : " ") + cell.text;
            lines.push_back(line);
        }
    }
    return lines;
}

TEST(DesignReport, TellsEachExchangerWithItsCorrectionsWasteAndMessages)
{
    iex::IEXProject project("DEMI");
    support::SetWater(project, {{"ca", 2.0}, {"mg", 1.0}, {"na", 0.5}, {"hco3", 2.0}, {"cl", 1.5}});
    support::SetFlow(project);
    support::Put(project, "ex.1.comp.1", "stepcomp/capacity.typed", 1.0);
    support::Put(project, "ex.1.comp.1", "stepcomp/level", 100.0);
    const DesignReport report(project);
    ReportContext context;
    ASSERT_EQ(report.GetReportPages(context).size(), 1u);
    const auto lines = LinesOf(report.BuildReportPage(0, context));
    EXPECT_THAT(lines, Contains("# 1 Strong-acid cation exchanger"));
    EXPECT_THAT(lines, Contains("# 2 Strong-base anion exchanger"));
    EXPECT_THAT(lines, Contains("Load 840 eq"));
    EXPECT_THAT(lines, Contains("Resin volume 0.93333 m³"));
    EXPECT_THAT(lines, Contains("Capacity: as typed 1 eq/l"));
    EXPECT_THAT(lines, Contains(HasSubstr("Correction: share of chloride")));
    EXPECT_THAT(lines, Contains(HasSubstr("Leakage: Sodium 0.01")));
    EXPECT_THAT(lines, Contains(HasSubstr("Neutralised with: ")));
    EXPECT_THAT(lines, Contains(HasSubstr("is above the usual range")));
    EXPECT_THAT(lines, Not(Contains(HasSubstr("nan"))));
    context.unitSystem = "us";
    EXPECT_THAT(LinesOf(report.BuildReportPage(0, context)), Not(Contains("Resin volume 0.93333 m³")));
    EXPECT_THROW(report.BuildReportPage(1, context), std::out_of_range);
    EXPECT_TRUE(DesignReport(iex::IEXProject()).GetReportPages(context).empty());
}

}  // namespace
