// SPDX-License-Identifier: MIT
#include "gui_base/report/cost_report.h"

#include "dbinterfaces/project_database.h"
#include "gui_base/report/range_report.h"
#include "projectbase/costs/currency.h"
#include "projectbase/project/range_faults.h"
#include "tests/support/plant_fixture.h"
#include "tests/support/report_lines.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace {

using support::LinesOf;
using support::Put;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

class CostReportTest : public testing::Test
{
protected:
    CostReportTest()
    {
        ProjectDatabase::Open("sqlite3://" + (m_folder / "user.db").string());
        const ProjectEdit edit(m_project);
        support::SetWater(m_project, {{"ca", 2.0}, {"mg", 1.0}, {"na", 0.5}, {"hco3", 2.0}, {"cl", 1.5}});
        support::SetFlow(m_project);
        Put(m_project, "ex.1.comp.1", "stepcomp/capacity.typed", 1.0);
        Put(m_project, "ex.1.comp.1", "stepcomp/level", 70.0);
        Put(m_project, "", "cost/cc.cost.resin1", 3.0);
        Put(m_project, "", "cost/cc.cost.piping", 10000.0);
        Put(m_project, "", "cost/op.cost.wastewater", 2.0);
    }
    ~CostReportTest() override { ProjectDatabase::Close(); }

    std::vector<std::string> Lines() const
    {
        return LinesOf(CostReport(m_project).BuildReportPage(0, m_context));
    }

    support::TempFolder m_folder;
    iex::IEXProject m_project{"DEMI"};
    Project m_empty{"WATER"};
    ReportContext m_context;
};

TEST_F(CostReportTest, LinesHaveQuantityPriceAndCost)
{
    const auto lines = Lines();
    // 933.33 l a line at 3 EUR.
    EXPECT_THAT(lines, Contains("Strong-acid cation resin, gel 0.93333 m³ 3 EUR/l 2800"));
    EXPECT_THAT(lines, Contains("Piping     10000"));
    EXPECT_THAT(lines, Contains("Total     12800"));
    EXPECT_THAT(lines, Contains("Total system cost 12800 EUR"));
    EXPECT_THAT(lines, Contains("Projected plant life 20 a"));
    EXPECT_THAT(lines, Not(Contains(HasSubstr("Pumps")))) << "no price, no line";
    EXPECT_THAT(lines, Not(Contains(HasSubstr("nan"))));
    EXPECT_THROW(CostReport(m_project).BuildReportPage(1, m_context), std::out_of_range);
}

TEST_F(CostReportTest, MoneyIsWrittenInTheCurrencyOnDisplay)
{
    ProjectDatabase::SetConversionRate("USD", 1.25);
    ProjectDatabase::SetUserParameter(costs::kCurrencyParameter, "USD");
    EXPECT_THAT(Lines(), Contains("1 EUR = 1.25 USD"));
    EXPECT_THAT(Lines(), Contains("Strong-acid cation resin, gel 0.93333 m³ 3.75 USD/l 3500"));
    EXPECT_THAT(Lines(), Contains("Total system cost 16000 USD"));
    // The project's own rate comes first.
    Put(m_project, "", "cost/currency", "USD");
    Put(m_project, "", "cost/currency.rate", 2.0);
    EXPECT_THAT(Lines(), Contains("Total system cost 25600 USD"));
    // 3 EUR/l are 84.9505 EUR/ft³.
    m_context.unitSystem = "us";
    EXPECT_THAT(Lines(), Contains(HasSubstr("gal 169.901 USD/ft³ 5600")));
    EXPECT_THAT(Lines(), Contains("Total     122.17"));
    // Without a rate there is no other money than that of the project.
    ProjectDatabase::SetUserParameter(costs::kCurrencyParameter, "XAU");
    EXPECT_THAT(Lines(), Contains("Total system cost 12800 EUR"));
}

TEST_F(CostReportTest, APlantThatIsNotDesignedHasNoCosts)
{
    Put(m_project, "", "project/qbrutto", std::nan(""));
    Put(m_project, "", "project/wbrutto", std::nan(""));
    EXPECT_THAT(Lines(), testing::ElementsAre("The costs follow as soon as the plant is designed."));
}

TEST_F(CostReportTest, ThePageIsChosenAsTheProjectSays)
{
    EXPECT_TRUE(CostReport(m_project).GetReportPages(m_context).at(0).chosen);
    Put(m_project, "", "cost/used", false);
    EXPECT_FALSE(CostReport(m_project).GetReportPages(m_context).at(0).chosen);
    EXPECT_TRUE(CostReport(m_empty).GetReportPages(m_context).empty());
}

TEST_F(CostReportTest, WhatIsOutOfRangeStandsTogether)
{
    EXPECT_TRUE(RangeReport(m_empty).GetReportPages(m_context).empty());
    Put(m_project, "ex.1.comp.1", "stepcomp/level", 500.0);
    m_project.GetLiquid(0).GetDetails()->At("liquid/temp.orig").SetValue(200.0);
    const RangeReport report(m_project);
    ASSERT_EQ(report.GetReportPages(m_context).size(), 1u);
    const auto lines = LinesOf(report.BuildReportPage(0, m_context));
    EXPECT_EQ(lines.size(), RangeFaults(m_project).size());
    EXPECT_THAT(lines, Contains(HasSubstr("Temperature")));
    EXPECT_THROW(report.BuildReportPage(1, m_context), std::out_of_range);
}

}  // namespace
