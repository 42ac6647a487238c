// SPDX-License-Identifier: MIT
#include "gui_base/report/design_report.h"

#include "gui_base/report/range_sentence.h"
#include "tests/support/plant_fixture.h"
#include "tests/support/report_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using support::LinesOf;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

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
    EXPECT_THAT(lines, Contains("Resin volume 0.9333 m³"));
    EXPECT_THAT(lines, Contains("Capacity: as typed 1 eq/l"));
    EXPECT_THAT(lines, Contains(HasSubstr("Correction: share of chloride")));
    EXPECT_THAT(lines, Contains(HasSubstr("Leakage: Sodium 0.01")));
    EXPECT_THAT(lines, Contains(HasSubstr("Neutralised with: ")));
    EXPECT_THAT(lines, Contains(HasSubstr("is above the usual range")));
    EXPECT_THAT(lines, Not(Contains(HasSubstr("nan"))));
    context.unitSystem = "us";
    EXPECT_THAT(LinesOf(report.BuildReportPage(0, context)), Not(Contains("Resin volume 0.9333 m³")));
    EXPECT_THROW(report.BuildReportPage(1, context), std::out_of_range);
    EXPECT_TRUE(DesignReport(iex::IEXProject()).GetReportPages(context).empty());
}

TEST(DesignReport, APartHasTheNameThatTheUserReads)
{
    iex::IEXProject project("SOFT");
    const auto title = [](iex::IEXProject& plant, const std::string& path) {
        return designtext::PartTitle(*plant.FindOwner(path), {});
    };
    EXPECT_EQ(title(project, "ex.1"), "1 Softener");
    EXPECT_EQ(title(project, "ex.1.comp.1.resin.1"), "1 Softener");
    EXPECT_EQ(title(project, "ex.1.seq.1"), "1 Softener, row 1 (Backwash)");
    project.AddResin(*project.FindOwner("ex.1.comp.1"), 1);
    EXPECT_EQ(title(project, "ex.1.comp.1.resin.2"), "1 Softener, layer 2 (Inert resin)");
}

TEST(RangeSentence, HasTheDigitsThatTellAValueFromItsLimit)
{
    ReportContext context;
    context.separators.decimal = ",";
    const auto sentence = [&context](double value) {
        return RangeSentence(
            RangeFault{.address = {}, .label = "Velocity", .value = value, .limit = 40.0, .unit = "m/h"},
            context);
    };
    EXPECT_EQ(sentence(101.859164), "Velocity 101,86\u00a0m/h is above the maximum of 40\u00a0m/h");
    EXPECT_EQ(sentence(40.00001), "Velocity 40,00001\u00a0m/h is above the maximum of 40\u00a0m/h");
}

TEST(RangeSentence, CallsACompoundAsTheLanguageDoes)
{
    const RangeFault fault{
        .address = {}, .label = "nitrate", .value = -1.0, .isBelow = true, .unit = "mg/l", .formula = "NO3"};
    const auto sentence = [&fault](const char* language) {
        return RangeSentence(fault, ReportContext{.language = language});
    };
    EXPECT_EQ(sentence("en"), "nitrate -1\u00a0mg/l is below the minimum of 0\u00a0mg/l");
    EXPECT_EQ(sentence("de"), "Nitrat -1\u00a0mg/l is below the minimum of 0\u00a0mg/l");
}

}  // namespace
