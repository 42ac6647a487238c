// SPDX-License-Identifier: MIT
#include "gui_base/report/cost_chart.h"

#include "tests/support/plant_fixture.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using support::Put;

class CostChart : public testing::Test
{
protected:
    CostChart()
    {
        support::SetWater(m_project, {{"ca", 2.5}, {"na", 1.0}, {"hco3", 2.5}, {"cl", 1.0}});
        support::SetFlow(m_project);
        Put(m_project, "", "cost/op.cost.servwater", 2.0);
        Put(m_project, "", "cost/op.cost.regen1", 0.5);
    }
    void Project(double life, double interest, double escalation)
    {
        const ProjectEdit edit(m_project);
        Put(m_project, "", "cost/cost.plant.life", life);
        Put(m_project, "", "cost/cost.interest.rate", interest);
        Put(m_project, "", "cost/cost.oper.escalation", escalation);
    }
    std::shared_ptr<chartdir::XYChart> Chart(const costs::ShownCurrency& currency = {})
    {
        ReportContext context;
        context.translate = [](const char* text) { return std::string(text); };
        return cost_chart::Make(m_project, context, currency);
    }

    iex::IEXProject m_project{"DEMI"};
};

TEST_F(CostChart, HasTwoBarsForEachYearInTheCurrency)
{
    Project(3.0, 10.0, 5.0);
    const double annual = support::Get(m_project, "", "cost/cost.oper.annual");
    ASSERT_GT(annual, 0.0);
    const auto chart = Chart({"USD", 2.0});
    EXPECT_EQ(chart->yAxis().getTitle(), "USD");
    EXPECT_EQ(chart->xAxis().getLabels(), (std::vector<std::string>{"1", "2", "3"}));
    const auto& sets = chart->getLayers().at(0)->getDataSets();
    ASSERT_EQ(sets.size(), 2U);
    EXPECT_NEAR(sets[0].values[2], 2.0 * annual * 1.05 * 1.05, 1e-6 * annual);
    EXPECT_NEAR(sets[1].values[0], 2.0 * annual / 1.1, 1e-6 * annual);
}

TEST_F(CostChart, StandsWhateverTheYearsAre)
{
    const struct
    {
        double life;
        double interest;
        std::size_t years;
    } cases[] = {{0.0, 5.0, 0}, {std::nan(""), 5.0, 0}, {20.0, -100.0, 0}, {1.0, 5.0, 1}, {200.0, 5.0, 200}};
    for (const auto& [life, interest, years] : cases) {
        Project(life, interest, 2.0);
        const auto chart = Chart();
        EXPECT_EQ(chart->hasData(), years > 0) << life << ", " << interest;
        EXPECT_EQ(chart->getImageMap().spots.size(), 2 * years) << life << ", " << interest;
        EXPECT_NO_THROW(chart->makePixels());
    }
}

TEST_F(CostChart, BarsOfTwoHundredYearsStayApart)
{
    Project(200.0, 5.0, 5.0);
    const auto chart = Chart();
    const auto spots = chart->getImageMap().spots;
    ASSERT_EQ(spots.size(), 400U);
    // Those of one kind, from year to year.
    for (std::size_t i = 1; i < 200; ++i)
        ASSERT_GE(spots[i].from.x, spots[i - 1].to.x - 1e-9) << i;
}

}  // namespace
