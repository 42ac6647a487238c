// SPDX-License-Identifier: MIT
#include "projectbase/water/alkalization.h"

#include "dbinterfaces/master_database.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/water/normalization.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using water::CarbonateWater;

DBObjects::AlkalizingAgent Agent(const std::string& key)
{
    for (const auto& agent : MasterDatabase::GetAlkalizingAgents())
        if (agent.key == key)
            return agent;
    ADD_FAILURE() << key;
    return {};
}

TEST(Alkalization, PureWaterTakesThePhOfTextbooks)
{
    // At 25 °C, without carbon: strong bases by pH = pKw + log c, weak ones by the quadratic of the
    // dissociation with pKw 13.995; activity coefficients shift the last digit.
    struct Case
    {
        const char* agent;
        double mgPerLitre;
        double pH;
    };
    for (const auto& [key, dose, pH] :
         {Case{"naoh", 1.0, 9.39}, Case{"naoh", 40.0, 10.98}, Case{"caoh2", 3.705, 9.99},
          Case{"nh3", 1.0, 9.38}, Case{"nh3", 0.1, 8.66}, Case{"eta", 1.0, 9.08},
          Case{"morpholine", 10.0, 9.23}}) {
        const auto agent = Agent(key);
        const auto dosed = water::Dose(CarbonateWater{}, agent, dose / agent.molarMass);
        ASSERT_TRUE(dosed) << key;
        EXPECT_NEAR(dosed->state.pH, pH, 0.02) << key << ' ' << dose;
    }
    const auto air = water::Equilibrate({.totalCarbon = 0.01433 + 0.0025});
    ASSERT_TRUE(air);
    EXPECT_NEAR(air->pH, 5.60, 0.01) << "water in equilibrium with air of 420 ppm CO2";
}

TEST(Alkalization, ConstantsOfWeakBasesFollowTheTemperature)
{
    // Bates & Pinching 1949 measured ammonium: 10.081 at 0 °C, 9.246 at 25 °C, 8.539 at 50 °C.
    EXPECT_NEAR(water::PkaAt(9.246, 52.2, 0.0), 10.081, 0.01);
    EXPECT_DOUBLE_EQ(water::PkaAt(9.246, 52.2, 25.0), 9.246);
    EXPECT_NEAR(water::PkaAt(9.246, 52.2, 50.0), 8.539, 0.01);
}

TEST(Alkalization, DoseAndPhAreInversesAndTheBalancesHold)
{
    const CarbonateWater soft = water::WaterFromPh(6.8, 12.0, 1.2, 0.0, 0.002);
    const CarbonateWater acid = water::WaterFromPh(4.2, 25.0, 0.0, 0.4, 0.001);
    for (const CarbonateWater& start : {soft, acid}) {
        for (const auto& agent : MasterDatabase::GetAlkalizingAgents()) {
            for (const double millimoles : {0.01, 0.3, 2.0}) {
                const auto dosed = water::Dose(start, agent, millimoles);
                ASSERT_TRUE(dosed) << agent.key;
                const auto& state = dosed->state;
                EXPECT_NEAR(state.co2 + state.bicarbonate + state.carbonate,
                            start.totalCarbon + agent.carbon * millimoles, 1e-9)
                    << agent.key << ": carbon";
                EXPECT_NEAR(state.bicarbonate + 2.0 * state.carbonate + state.hydroxide - state.hydrogen -
                                state.baseCation,
                            start.alkalinity + agent.valency * millimoles, 1e-7)
                    << agent.key << ": charge";
                const auto back = water::DoseToPh(start, agent, state.pH);
                ASSERT_TRUE(back) << agent.key << ' ' << millimoles;
                EXPECT_NEAR(back->dose, millimoles, 1e-5 * millimoles) << agent.key;
            }
        }
    }
    const auto unchanged = water::Equilibrate(soft);
    ASSERT_TRUE(unchanged);
    EXPECT_NEAR(unchanged->pH, 6.8, 1e-4) << "no dose leaves the water as it is";
    EXPECT_NEAR(unchanged->bicarbonate, 1.2, 1e-4);
}

TEST(Alkalization, GoalsOutOfReachHaveNoSolution)
{
    const CarbonateWater start = water::WaterFromPh(7.5, 20.0, 3.0, 0.0, 0.004);
    EXPECT_FALSE(water::DoseToPh(start, Agent("naoh"), 7.4)) << "a base does not lower the pH";
    EXPECT_FALSE(water::DoseToPh(start, Agent("morpholine"), 12.5));
    EXPECT_FALSE(water::DoseToPh(start, Agent("naoh"), 14.5));
    EXPECT_FALSE(water::Dose(start, Agent("naoh"), -1.0));
    EXPECT_FALSE(water::Dose(start, Agent("naoh"), 1e6));
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(water::Dose(start, Agent("naoh"), nan));
    EXPECT_FALSE(water::Dose(water::WaterFromPh(nan, 20.0, 3.0, 0.0, 0.0), Agent("naoh"), 1.0));
    EXPECT_FALSE(water::Dose(water::WaterFromPh(7.0, 120.0, 3.0, 0.0, 0.0), Agent("naoh"), 1.0));
}

/// A project whose water can be alkalised; empty at 25 °C and pH 7.
class ProjectOfPureWater : public testing::Test
{
protected:
    ProjectOfPureWater()
    {
        Set("liquid/temp.orig", 25.0);
        Set("liquid/ph", 7.0);
    }
    DetailList& Details() { return *project.GetLiquid(0).GetDetails(); }
    void Set(const char* key, double value) { Details().At(key).SetValue(value); }
    double Get(const char* key) { return Details().At(key).GetDoubleValue(); }
    void Choose(const char* agent, const char* mode, double goal)
    {
        Details().At("liquid/alk.type").SetValue(agent);
        Details().At("liquid/alk.mode").SetValue(mode);
        Set(mode == std::string("DOSE") ? "liquid/alk.dose" : "liquid/alk.target", goal);
        project.CalculateDesign();
    }

    void Type(const char* ion, double meq)
    {
        Set(("liquid/" + std::string(ion) + ".orig").c_str(), meq);
        Details().At("liquid/" + std::string(ion) + ".unit").SetValue("meq/l");
    }

    iex::IEXProject project;
};

class AlkalizedProject : public ProjectOfPureWater
{
protected:
    AlkalizedProject()
    {
        Set("liquid/temp.orig", 15.0);
        Set("liquid/na.orig", 6.3);
        Set("liquid/ca.orig", 15.0);
        Set("liquid/hco3.orig", 58.4);
        Set("liquid/cl.orig", 7.8);
        project.CalculateDesign();
    }
};

TEST_F(ProjectOfPureWater, EveryDerivedValueIsThatOfTheWaterAsTreated)
{
    // Measured at 25 °C (Robinson & Stokes 1959): NaOH 1 mmol/l 244.7 µS/cm, NaCl 1 mmol/l 123.7.
    for (const bool isBalanced : {false}) {
        Details().At("liquid/balance.auto").SetValue(isBalanced);
        Type("cl", 0.0);
        Set("liquid/ph", 7.0);
        Choose("naoh", "DOSE", 39.997);
        EXPECT_NEAR(Get("liquid/alk.ph"), 10.98, 0.02);
        EXPECT_NEAR(Get("liquid/cond"), 244.7, 3.0) << isBalanced;
        EXPECT_NEAR(Get("liquid/cond25"), 244.7, 3.0) << isBalanced;
        EXPECT_NEAR(Get("liquid/ionic.strength"), 1e-3, 1e-6) << isBalanced;
        EXPECT_NEAR(Get("liquid/p.osmotic"), 2e-3 * 24.79 * 0.988, 1e-4) << isBalanced;
        EXPECT_NEAR(water::AlkalinityM(water::AnalysedComposition(Details())), 1.0, 1e-3) << isBalanced;

        Type("cl", 1.0);
        Set("liquid/ph", 3.0155);
        Choose("naoh", "DOSE", 39.997);
        EXPECT_NEAR(Get("liquid/cond25"), 123.7, 0.5) << isBalanced;
        EXPECT_NEAR(Get("liquid/ionic.strength"), 1e-3, 2e-6) << isBalanced;
    }
}

TEST_F(AlkalizedProject, ReachesTheTargetAndComesBackUnchanged)
{
    std::vector<std::pair<std::string, DetailData::Value>> before;
    for (const auto& [name, detail] : Details())
        before.emplace_back(name, detail.GetStoredValue());
    const double sodium = Get("liquid/na.meql");

    Choose("naoh", "PH", 8.3);
    EXPECT_NEAR(Get("liquid/alk.ph"), 8.3, 1e-4);
    EXPECT_DOUBLE_EQ(Get("liquid/ph"), 7.0) << "what was typed stays";
    const double dosed = Get("liquid/alk.dosed");
    EXPECT_NEAR(Get("liquid/na.meql") - sodium, dosed / 39.997, 1e-9);
    EXPECT_GT(Get("liquid/co3.meql"), 0.0);
    const double difference = Get("liquid/sum.c.meql") - Get("liquid/sum.a.meql");

    project.CalculateDesign();
    EXPECT_DOUBLE_EQ(Get("liquid/alk.dosed"), dosed) << "calculating again adds nothing";
    Choose("naoh", "DOSE", dosed);
    EXPECT_NEAR(Get("liquid/alk.ph"), 8.3, 1e-4);
    EXPECT_NEAR(Get("liquid/sum.c.meql") - Get("liquid/sum.a.meql"), difference, 1e-6);

    for (const char* agent : {"nh3", "morpholine"}) {
        Choose(agent, "PH", 8.6);
        EXPECT_NEAR(Get("liquid/alk.ph"), 8.6, 1e-4) << agent;
        EXPECT_GT(agent == std::string("nh3") ? Get("liquid/nh4.meql") : Get("liquid/alk.cation.meql"), 0.0);
        EXPECT_NEAR(Get("liquid/sum.c.meql") - Get("liquid/sum.a.meql"), difference, 0.02) << agent;
    }

    Choose("", "PH", std::numeric_limits<double>::quiet_NaN());
    Set("liquid/alk.dose", std::numeric_limits<double>::quiet_NaN());
    for (const auto& [name, value] : before)
        EXPECT_TRUE(SameDetailValue(Details().At(name).GetStoredValue(), value)) << name;
}

TEST_F(AlkalizedProject, WhatCannotBeSolvedSaysSoAndLeavesTheWater)
{
    using Result = water::AlkalizationResult;
    const double sodium = Get("liquid/na.meql");
    const auto expect = [&](Result result) {
        project.NormalizeLiquid(0);
        EXPECT_EQ(project.CalculateAlkalization(0), result);
        EXPECT_TRUE(std::isnan(Get("liquid/alk.ph")));
        EXPECT_DOUBLE_EQ(Get("liquid/na.meql"), sodium);
    };
    expect(Result::None);
    Choose("naoh", "PH", 6.0);
    expect(Result::Unreachable);
    Choose("naoh", "PH", std::numeric_limits<double>::quiet_NaN());
    expect(Result::UnknownGoal);
    Choose("soap", "PH", 8.0);
    expect(Result::UnknownAgent);
    Choose("naoh", "PH", 8.0);
    Set("liquid/ph", std::numeric_limits<double>::quiet_NaN());
    expect(Result::UnknownWater);
}

}  // namespace
