// SPDX-License-Identifier: MIT
#include "projectbase/water/alkalization.h"

#include "dbinterfaces/master_database.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/water/normalization.h"

#include <fmt/format.h>
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
        fmt::print("{:<12} {:>6.4g} mg/l  pH {:>5.2f}  computed {:>6.3f}  {:+.3f}\n", key, dose, pH,
                   dosed->state.pH, dosed->state.pH - pH);
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
    const auto soft = water::WaterFromPh(
        {.pH = 6.8, .celsius = 12.0, .carbonateAlkalinity = 1.2, .backgroundStrength = 0.002});
    const auto acid = water::WaterFromPh({.pH = 4.2, .co2 = 0.4, .backgroundStrength = 0.001});
    const auto sulfuric = water::WaterFromPh({.pH = 2.6, .backgroundStrength = 0.004, .sulfate = 2.0});
    for (const CarbonateWater& start : {soft, acid, sulfuric}) {
        for (const auto& agent : MasterDatabase::GetAlkalizingAgents()) {
            for (const double millimoles : {0.01, 0.3, 2.0}) {
                const auto dosed = water::Dose(start, agent, millimoles);
                ASSERT_TRUE(dosed) << agent.key;
                const auto& state = dosed->state;
                EXPECT_NEAR(state.co2 + state.bicarbonate + state.carbonate,
                            start.totalCarbon + agent.carbon * millimoles, 1e-9)
                    << agent.key << ": carbon";
                EXPECT_NEAR(state.bicarbonate + 2.0 * state.carbonate + state.hydroxide - state.hydrogen -
                                state.bisulfate - state.baseCations,
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
    EXPECT_NEAR(unchanged->bicarbonate + 2.0 * unchanged->carbonate, 1.2, 1e-6);
}

TEST(Alkalization, GoalsOutOfReachHaveNoSolution)
{
    const CarbonateWater start = water::WaterFromPh(
        {.pH = 7.5, .celsius = 20.0, .carbonateAlkalinity = 3.0, .backgroundStrength = 0.004});
    EXPECT_FALSE(water::DoseToPh(start, Agent("naoh"), 7.4)) << "a base does not lower the pH";
    EXPECT_FALSE(water::DoseToPh(start, Agent("morpholine"), 12.5));
    EXPECT_FALSE(water::DoseToPh(start, Agent("naoh"), 14.5));
    EXPECT_FALSE(water::Dose(start, Agent("naoh"), -1.0));
    EXPECT_FALSE(water::Dose(start, Agent("naoh"), 1e6));
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(water::Dose(start, Agent("naoh"), nan));
    EXPECT_FALSE(
        water::Dose(water::WaterFromPh({.pH = nan, .carbonateAlkalinity = 3.0}), Agent("naoh"), 1.0));
    const water::PhWater steam{.pH = 7.0, .celsius = 120.0, .carbonateAlkalinity = 3.0};
    EXPECT_FALSE(water::Dose(water::WaterFromPh(steam), Agent("naoh"), 1.0));
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

TEST_F(ProjectOfPureWater, TypedCarbonateTakesPart)
{
    struct Case
    {
        double hco3, co3, pH;  // meq/l
    };
    for (const auto& [hco3, co3, pH] : {Case{0.0, 2.0, 11.0}, Case{1.5, 0.5, 8.0}, Case{3.0, 0.0, 7.5}}) {
        Type("na", hco3 + co3);
        Type("hco3", hco3);
        Type("co3", co3);
        Set("liquid/ph", pH);
        Choose("naoh", "DOSE", 0.0);
        EXPECT_NEAR(Get("liquid/alk.ph"), pH, 1e-6) << "nothing was dosed";
        EXPECT_NEAR(Get("liquid/hco3.meql"), hco3, 1e-6) << pH;
        EXPECT_NEAR(Get("liquid/co3.meql"), co3, 1e-6) << pH;
        const auto before = water::WholeComposition(Details());
        Choose("naoh", "DOSE", 39.997);
        const auto after = water::WholeComposition(Details());
        EXPECT_NEAR(water::AlkalinityM(after) - water::AlkalinityM(before), 1.0, 2e-3) << pH;
        EXPECT_NEAR(Get("liquid/na.meql"), hco3 + co3 + 1.0, 1e-4) << pH;
    }
}

TEST_F(ProjectOfPureWater, HydrogenIsNotBalancedTwice)
{
    Details().At("liquid/balance.auto").SetValue(true);
    struct Case
    {
        const char* ion;
        double meq, pH, conductivity;
    };
    // Acids whose pH and conductivity are known: HCl (Robinson & Stokes 1959), H2SO4 (CRC Handbook; its pH
    // by the second constant 1.99).
    for (const auto& [ion, meq, pH, conductivity] :
         {Case{"cl", 1.0, 3.0155, 421.4}, Case{"cl", 10.0, 2.044, 4120.0}, Case{"so4", 1.0, 3.037, 399.5},
          Case{"so4", 10.0, 2.13, 3364.0}}) {
        Type("cl", 0.0);
        Type("so4", 0.0);
        Type(ion, meq);
        Set("liquid/ph", pH);
        project.CalculateDesign();
        EXPECT_LT(Get("liquid/na.plus.meql") + Get("liquid/cl.plus.meql"), 0.025 * meq) << ion << meq;
        EXPECT_NEAR(Get("liquid/cond25"), conductivity, 0.05 * conductivity) << ion << meq;
    }
    // What the ions of the pH leave open is closed: half of the acid is its sodium salt.
    Type("so4", 0.0);
    Type("cl", 2.0);
    Set("liquid/ph", 3.017);
    project.CalculateDesign();
    EXPECT_NEAR(Get("liquid/na.plus.meql"), 1.0, 0.02);
    Details().At("liquid/balance.auto").SetValue(false);
    project.CalculateDesign();
    EXPECT_DOUBLE_EQ(Get("liquid/na.plus.meql"), 2.0) << "by the sums, which leave them out";
}

TEST(Alkalization, SulfateHoldsHydrogenBelowPh4)
{
    // H2SO4 5 mmol/l: pH 2.13 with the constant 1.99 (2.1, CRC Handbook); 2.05 if all of it were free.
    const water::CarbonateWater acid{.alkalinity = -10.0, .backgroundStrength = 0.010, .sulfate = 5.0};
    const auto state = water::Equilibrate(acid);
    ASSERT_TRUE(state);
    EXPECT_NEAR(state->pH, 2.13, 0.01);
    EXPECT_NEAR(state->bisulfate, 1.7, 0.1);
    const auto neutralised = water::Dose(acid, Agent("naoh"), 9.9);
    ASSERT_TRUE(neutralised);
    // Of the 0.1 mmol/l of acid that is left a fifth is bound even here.
    EXPECT_NEAR(neutralised->state.pH, 4.17, 0.01);
    EXPECT_NEAR(neutralised->state.bisulfate, 0.022, 0.002);
}

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
    for (const bool isBalanced : {false, true}) {
        Details().At("liquid/balance.auto").SetValue(isBalanced);
        Type("cl", 0.0);
        Set("liquid/ph", 7.0);
        Choose("naoh", "DOSE", 39.997);
        EXPECT_NEAR(Get("liquid/alk.ph"), 10.98, 0.02);
        EXPECT_NEAR(Get("liquid/cond"), 244.7, 3.0) << isBalanced;
        EXPECT_NEAR(Get("liquid/cond25"), 244.7, 3.0) << isBalanced;
        EXPECT_NEAR(Get("liquid/ionic.strength"), 1e-3, 1e-6) << isBalanced;
        EXPECT_NEAR(Get("liquid/p.osmotic"), 2e-3 * 24.79 * 0.988, 1e-4) << isBalanced;
        EXPECT_NEAR(water::AlkalinityM(water::WholeComposition(Details())), 1.0, 1e-3) << isBalanced;

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
    Set("liquid/ph", 4.0);
    expect(Result::Contradictory);
}

}  // namespace
