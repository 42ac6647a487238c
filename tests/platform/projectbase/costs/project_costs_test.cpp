// SPDX-License-Identifier: MIT
#include "projectbase/costs/project_costs.h"

#include "tests/support/plant_fixture.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using support::Detail;
using support::Get;
using support::Put;
using support::SetFlow;
using support::SetWater;

/// 20 m³/h for 12 h in two lines of a cation exchanger and an anion exchanger.
std::unique_ptr<iex::IEXProject> MakePlant()
{
    auto project = std::make_unique<iex::IEXProject>("DEMI");
    const ProjectEdit edit(*project);
    SetWater(*project, {{"ca", 2.0}, {"mg", 1.0}, {"na", 0.5}, {"hco3", 2.0}, {"cl", 0.8}, {"so4", 0.7}});
    SetFlow(*project);
    project->GetDetails().At("project/nlines").SetValue(2L);
    Put(*project, "ex.1.comp.1", "stepcomp/capacity.typed", 1.0);
    Put(*project, "ex.1.comp.1", "stepcomp/level", 70.0);
    return project;
}

wxString Name(Project& project, const char* key)
{
    return Detail(project, "", key).GetStringValue();
}

TEST(ProjectCosts, QuantitiesAreThoseOfAllLines)
{
    const auto project = MakePlant();
    // 840 eq at 0.9 · 1.0 eq/l are 933.3 l a line.
    EXPECT_EQ(Name(*project, "cost/cc.name.resin1"), "Strong-acid cation resin, gel");
    EXPECT_NEAR(Get(*project, "", "cost/cc.volume.resin1"), 2 * 0.93333, 1e-4);
    EXPECT_EQ(Name(*project, "cost/cc.name.resin2"), "Strong-base anion resin, type 1");
    EXPECT_TRUE(Name(*project, "cost/cc.name.resin3").empty());
    EXPECT_EQ(Detail(*project, "", "cost/cc.volume.resin3").GetDoubleValue(), 0.0);
    // In the order of their names; 65.33 kg of acid a line for the cation exchanger.
    EXPECT_EQ(Name(*project, "cost/op.name.regen1"), "Hydrochloric acid");
    EXPECT_EQ(Name(*project, "cost/op.name.regen2"), "Sodium hydroxide");
    EXPECT_TRUE(Name(*project, "cost/op.name.regen3").empty());
    const double acidToNeutralise = Get(*project, "ex.1.comp.1", "stepcomp/m.neutral");
    EXPECT_NEAR(Get(*project, "", "cost/op.amount.regen1"),
                2 * (65.333 + (std::isfinite(acidToNeutralise) ? acidToNeutralise : 0.0)), 0.01);
    EXPECT_TRUE(Name(*project, "cost/op.name.cond1").empty());
}

TEST(ProjectCosts, LinesPricesAndResultsAgree)
{
    const auto project = MakePlant();
    const DetailList& details = project->GetDetails();
    {
        const ProjectEdit edit(*project);
        for (const auto& [key, value] :
             std::initializer_list<std::pair<const char*, double>>{{"cost/cc.cost.resin1", 2.5},
                                                                   {"cost/cc.cost.resin2", 6.0},
                                                                   {"cost/cc.cost.piping", 10000.0},
                                                                   {"cost/cc.cost.logistics", 500.0},
                                                                   {"cost/op.cost.regen1", 0.5},
                                                                   {"cost/op.cost.regen2", 0.9},
                                                                   {"cost/op.cost.servwater", 1.2},
                                                                   {"cost/op.cost.wastewater", 2.5}})
            Put(*project, "", key, value);
    }
    const auto number = [&details](const char* key) { return details.At(key).GetDoubleValue(); };
    const double capital =
        number("cost/cc.volume.resin1") * 2500.0 + number("cost/cc.volume.resin2") * 6000.0 + 10500.0;
    EXPECT_NEAR(number("cost/cost.system.total"), capital, 1e-6);
    const double cycle = number("cost/op.amount.regen1") * 0.5 + number("cost/op.amount.regen2") * 0.9 +
                         number("project/vol.serv.all") * 1.2 + number("project/vol.waste.all") * 2.5;
    // Every line makes its net volume in a cycle: the price of a m³ knows no time.
    EXPECT_NEAR(number("cost/op.watercost"), cycle / (2.0 * number("project/wnetto")), 1e-9);
    const double cycles = costs::CyclesPerYear(*project);
    EXPECT_LT(cycles, 8760.0 / 12.0);
    EXPECT_GT(cycles, 8760.0 / 24.0);
    EXPECT_NEAR(number("cost/cost.oper.annual"), cycles * cycle, 1e-6);
    EXPECT_NEAR(number("cost/cc.watercost"), capital / (cycles * 2.0 * number("project/wnetto")), 1e-9);
    EXPECT_NEAR(number("cost/system.watercost"), number("cost/cc.watercost") + number("cost/op.watercost"),
                1e-12);

    // The years add up to the present value.
    const auto years = costs::YearsOf(*project);
    ASSERT_EQ(years.size(), 20u);
    EXPECT_NEAR(years[0].cost, cycles * cycle, 1e-6);
    EXPECT_NEAR(years[9].cost, cycles * cycle * std::pow(1.02, 9), 1e-6);
    double sum = 0.0;
    for (const auto& [year, cost, discounted] : years)
        sum += discounted;
    EXPECT_NEAR(sum, number("cost/cost.npv"), 1e-6 * sum);

    // A capacity that is typed counts in the place of the design's.
    Put(*project, "", "cost/system.capacity", 1000.0);
    EXPECT_NEAR(number("cost/cc.watercost"), capital / 365000.0, 1e-12);
    EXPECT_NEAR(number("cost/cost.oper.annual"), cycles * cycle, 1e-6);
    Put(*project, "", "cost/system.capacity", 0.0);
    EXPECT_EQ(number("cost/cc.watercost"), 0.0);
    EXPECT_EQ(number("cost/cost.oper.annual"), 0.0);
}

TEST(ProjectCosts, WhatIsNotDesignedHasNoCosts)
{
    const auto project = MakePlant();
    Put(*project, "", "cost/cc.cost.piping", 10000.0);
    EXPECT_FALSE(std::isnan(Get(*project, "", "cost/cost.system.total")));
    Put(*project, "", "project/qbrutto", std::nan(""));
    Put(*project, "", "project/wbrutto", std::nan(""));
    for (const char* key : {"cost/cost.system.total", "cost/cost.oper.annual", "cost/cost.npv",
                            "cost/cc.watercost", "cost/op.watercost", "cost/system.watercost"})
        EXPECT_TRUE(std::isnan(Get(*project, "", key))) << key;
    EXPECT_TRUE(costs::YearsOf(*project).empty());
    EXPECT_EQ(Get(*project, "", "cost/op.amount.regen1"), 0.0);
    EXPECT_TRUE(Name(*project, "cost/op.name.regen1").empty()) << "what a former design needed";
}

TEST(ProjectCosts, ExtremeRatesGiveNumbersOrNothing)
{
    const auto project = MakePlant();
    Put(*project, "", "cost/op.cost.regen1", 1.0);
    const struct
    {
        double life, interest, escalation;
        bool isKnown;
        std::size_t years;
    } cases[] = {{20, 5, 5, true, 20},     {0, 5, 2, true, 0},      {200, 5, 2, true, 200},
                 {1.5, 5, 2, true, 1},     {20, -100, 2, false, 0}, {20, 5, -100, true, 20},
                 {200, 0, 1000, true, 200}};
    for (const auto& [life, interest, escalation, isKnown, years] : cases) {
        SCOPED_TRACE(testing::Message() << life << " " << interest << " " << escalation);
        Put(*project, "", "cost/cost.plant.life", life);
        Put(*project, "", "cost/cost.interest.rate", interest);
        Put(*project, "", "cost/cost.oper.escalation", escalation);
        EXPECT_EQ(std::isfinite(Get(*project, "", "cost/cost.npv")), isKnown);
        EXPECT_EQ(costs::YearsOf(*project).size(), years);
    }
}

/// "Hydrochloric acid 0.6", of a line that has a name.
std::string Line(Project& project, const std::string& kind, int n)
{
    const std::string number = kind + std::to_string(n);
    const bool isResin = kind == "resin";
    const std::string name =
        Name(project, ((isResin ? "cost/cc.name." : "cost/op.name.") + number).c_str()).utf8_string();
    const double price = Get(project, "", (isResin ? "cost/cc.cost." : "cost/op.cost.") + number);
    return name.empty() ? name : name + wxString::Format(" %g", price).utf8_string();
}

TEST(ProjectCosts, PricesFollowTheNamesOfTheirLines)
{
    const auto project = MakePlant();
    Put(*project, "", "cost/op.cost.regen1", 0.6);
    Put(*project, "", "cost/op.cost.regen2", 0.7);
    Put(*project, "", "cost/cc.cost.resin1", 2.5);
    Put(*project, "", "cost/cc.cost.resin2", 6.5);
    Put(*project, "ex.1.comp.1", "stepcomp/rm.chemical", "H2SO4");
    EXPECT_EQ(Line(*project, "regen", 1), "Sodium hydroxide 0.7");
    EXPECT_EQ(Line(*project, "regen", 2), "Sulfuric acid 0") << "nobody said what it costs";
    Put(*project, "", "cost/op.cost.regen2", 0.25);
    // Without a design there are no amounts; prices wait.
    const double flow = Get(*project, "", "project/qbrutto");
    Put(*project, "", "project/qbrutto", std::nan(""));
    Put(*project, "", "project/wbrutto", std::nan(""));
    EXPECT_EQ(Line(*project, "regen", 1), "");
    Put(*project, "", "project/qbrutto", flow);
    EXPECT_EQ(Line(*project, "regen", 1), "Sodium hydroxide 0.7");
    EXPECT_EQ(Line(*project, "regen", 2), "Sulfuric acid 0.25");
    Put(*project, "ex.1.comp.1", "stepcomp/rm.chemical", "HCL");
    EXPECT_EQ(Line(*project, "regen", 1), "Hydrochloric acid 0.6");
    EXPECT_EQ(Line(*project, "regen", 2), "Sodium hydroxide 0.7");

    Put(*project, "ex.1.comp.1.resin.1", "compcomp/resin", "inert");
    EXPECT_EQ(Line(*project, "resin", 1), "Strong-base anion resin, type 1 6.5");
    Put(*project, "ex.1.comp.1.resin.1", "compcomp/resin", "sac_gel");
    EXPECT_EQ(Line(*project, "resin", 1), "Strong-acid cation resin, gel 2.5");
    EXPECT_EQ(Line(*project, "resin", 2), "Strong-base anion resin, type 1 6.5");
}

TEST(ProjectCosts, ALineOfNothingCostsNothing)
{
    const auto project = MakePlant();
    Put(*project, "", "cost/cc.cost.piping", 1000.0);
    Put(*project, "", "cost/cc.cost.resin5", std::nan(""));
    Put(*project, "", "cost/op.cost.cond6", std::nan(""));
    EXPECT_EQ(Get(*project, "", "cost/cost.system.total"), 1000.0);
    EXPECT_EQ(Get(*project, "", "cost/cost.oper.annual"), 0.0);
    // A resin that is there and has no price leaves the total unknown.
    Put(*project, "", "cost/cc.cost.resin1", std::nan(""));
    EXPECT_TRUE(std::isnan(Get(*project, "", "cost/cost.system.total")));
}

TEST(ProjectCosts, PricesDoNotTouchTheDesign)
{
    const auto project = MakePlant();
    const double status = static_cast<double>(project->GetStatus());
    project->ResetStatus(StatusCosts);
    Put(*project, "", "cost/cc.cost.piping", 10000.0);
    EXPECT_EQ(project->GetStatus(), StatusCosts);
    Put(*project, "ex.1.comp.1", "stepcomp/level", 80.0);
    EXPECT_EQ(project->GetStatus(), status) << "another design has other costs";
}

}  // namespace
