// SPDX-License-Identifier: MIT
#include "projectbase/costs/line_costs.h"

#include "projectbase/costs/project_costs.h"
#include "tests/support/plant_fixture.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using support::Get;
using support::Put;

TEST(LineCosts, AddUpToTheResultsOfTheProject)
{
    iex::IEXProject project("DEMI");
    support::SetWater(project, {{"ca", 2.0}, {"na", 1.5}, {"hco3", 2.0}, {"cl", 1.5}});
    support::SetFlow(project);
    {
        const ProjectEdit edit(project);
        for (const char* key : {"cost/cc.cost.resin1", "cost/cc.cost.piping", "cost/op.cost.regen1",
                                "cost/op.cost.regen2", "cost/op.cost.servwater", "cost/op.cost.wastewater"})
            Put(project, "", key, 1.5);
    }
    double capital = 0.0;
    for (const auto& [price, cost] : costs::CapitalCosts(project))
        capital += cost;
    EXPECT_NEAR(capital, Get(project, "", "cost/cost.system.total"), 1e-9 * capital);
    const auto lines = costs::OperatingCosts(project);
    costs::OperatingCost sum;
    for (const auto& [price, cost] : lines) {
        sum.year += cost.year;
        sum.share += cost.share;
        sum.product += cost.product;
    }
    EXPECT_NEAR(sum.year, Get(project, "", "cost/cost.oper.annual"), 1e-9 * sum.year);
    EXPECT_NEAR(sum.share, 100.0, 1e-9);
    EXPECT_NEAR(sum.product, Get(project, "", "cost/op.watercost"), 1e-9);
    // The service water counts by its volume.
    EXPECT_NEAR(lines.at("cost/op.cost.servwater").cycle, 1.5 * Get(project, "", "project/vol.serv.all"),
                1e-9);
    const iex::IEXProject undesigned("DEMI");
    EXPECT_TRUE(std::isnan(costs::OperatingCosts(undesigned).at("cost/op.cost.regen1").cycle));
    EXPECT_TRUE(std::isnan(costs::CapitalCosts(undesigned).at("cost/cc.cost.resin1")));
}

}  // namespace
