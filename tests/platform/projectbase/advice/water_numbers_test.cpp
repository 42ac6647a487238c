// SPDX-License-Identifier: MIT
#include "projectbase/advice/water_numbers.h"

#include "core/ion_table.h"
#include "projectbase/advice/balance_judgement.h"
#include "projectbase/sequence/sequence_calculation.h"
#include "projectbase/water/alkalinity.h"
#include "tests/support/advice_waters.h"
#include "tests/support/plant_fixture.h"

#include <gtest/gtest.h>

#include <cmath>

using testing_support::GroundWater;
using testing_support::RiverWater;
using testing_support::WaterUnderTest;

namespace {

/// Within half a percent, as the figures were worked out by hand.
void ExpectNear(double found, double expected, const char* what)
{
    EXPECT_NEAR(found, expected, 0.005 * std::abs(expected) + 1e-12) << what;
}

}  // namespace

TEST(WaterNumbers, OfAHardGroundwater)
{
    WaterUnderTest water = GroundWater();
    const advice::WaterNumbers numbers = advice::NumbersOf(water.Details());
    ExpectNear(numbers.hardness, 8.851, "hardness");
    ExpectNear(advice::HardnessIn(numbers.hardness, "ppm CaCO3"), 442.9, "hardness as CaCO3");
    ExpectNear(advice::HardnessIn(numbers.hardness, "°d"), 24.8, "degrees");
    ExpectNear(numbers.carbonate, 5.555, "carbonate hardness");
    ExpectNear(numbers.nonCarbonate, 3.296, "non-carbonate hardness");
    EXPECT_EQ(numbers.sodiumAlkalinity, 0.0);
    ExpectNear(numbers.acidity, 4.181, "acidity");
    ExpectNear(numbers.carbon, 5.686, "carbon");
    ExpectNear(numbers.anionLoad, 10.23, "anions");
    ExpectNear(advice::AnionLoadBehindDegasser(numbers, 8.0), 4.73, "behind a degasser");
    EXPECT_DOUBLE_EQ(advice::AnionLoadBehindDegasser(numbers, 1000.0), numbers.anionLoad) << "less is there";
    EXPECT_TRUE(std::isnan(advice::AnionLoadBehindDegasser(numbers, std::nan(""))));
    ExpectNear(numbers.acidityByCations, 9.636 - 5.555, "the other face of the balance");
    const auto judged = advice::JudgeBalance(water.Details(), advice::BalanceRule::StandardMethods);
    EXPECT_NEAR(judged.error, -0.52, 0.01);
    EXPECT_EQ(judged.verdict, advice::BalanceVerdict::InOrder);

    const advice::DailyLoads loads = advice::LoadsOfDay(numbers, 30.0 * 20.0);
    ExpectNear(loads.anions, 6138.0, "anions a day");
    ExpectNear(loads.anions * advice::kKilogramCaCo3PerEquivalent, 307.0, "as CaCO3");
    ExpectNear(loads.hardness, 5311.0, "hardness a day");
    ExpectNear(loads.cations, 600.0 * 9.636, "cations a day");
    ExpectNear(loads.acidity, 600.0 * 4.181, "acids a day");
    ExpectNear(loads.carbonate, 600.0 * 5.555, "carbonate hardness a day");
}

TEST(WaterNumbers, FreeCo2IsThatOfTheCalculator)
{
    for (const double pH : {6.5, 7.79, 8.3, 8.9}) {
        WaterUnderTest water;
        water.Type("ca", 4.0, "meq/l").Type("cl", 1.0, "meq/l").Type("hco3", 3.0, "meq/l");
        water.Set("ph", pH).Set("temp.orig", 12.0).Set("calculate.co2", true).Update();
        const double calculated = water["co2.mgl"] / ions::FindIon("co2")->molarMass;
        ExpectNear(advice::NumbersOf(water.Details()).co2, calculated, "CO2");
    }
}

TEST(WaterNumbers, HydroxideOfATitrationIsClosed)
{
    WaterUnderTest water;
    water.Type("na", 1.0, "meq/l").Type("cl", 0.2, "meq/l").Type("alkalinity.m", 2.0, "mmol/l");
    water.Type("alkalinity.p", 1.4, "mmol/l").Set("balance.auto", true).Update();
    // OH 0.8, CO3 1.2 and Cl 0.2 against Na 1.0.
    EXPECT_NEAR(water["na.plus.meql"], 1.2, 1e-9);
    EXPECT_NEAR(water["cl.plus.meql"], 0.0, 1e-9);
}

TEST(WaterNumbers, WhatWasNotAnalysedIsNotNothing)
{
    WaterUnderTest water;
    water.Type("ca", 3.0, "meq/l").Type("na", 1.0, "meq/l").Update();
    advice::WaterNumbers numbers = advice::NumbersOf(water.Details());
    EXPECT_DOUBLE_EQ(numbers.hardness, 3.0);
    for (const double unknown : {numbers.m, numbers.acidity, numbers.carbonate, numbers.anionLoad})
        EXPECT_TRUE(std::isnan(unknown)) << "no anion was typed yet";
    water.Set("balance.auto", true).Update();
    numbers = advice::NumbersOf(water.Details());
    EXPECT_DOUBLE_EQ(numbers.acidity, 4.0) << "chloride closes the balance";
}

TEST(WaterNumbers, OfARiver)
{
    const advice::WaterNumbers numbers = advice::NumbersOf(RiverWater().Details());
    ExpectNear(numbers.hardness, 1.086, "hardness");
    ExpectNear(numbers.carbonate, 0.957, "carbonate hardness");
    EXPECT_NEAR(numbers.nonCarbonate, 0.129, 0.001);
    ExpectNear(numbers.acidity, 0.469, "acidity");
    ExpectNear(numbers.anionLoad, 1.707, "anions");
    const auto judged = advice::JudgeBalance(RiverWater().Details(), advice::BalanceRule::StandardMethods);
    EXPECT_NEAR(judged.difference, 0.016, 0.002);
    EXPECT_TRUE(judged.isLimitOfDifference);
    EXPECT_EQ(judged.verdict, advice::BalanceVerdict::InOrder);
}

TEST(WaterNumbers, CarbonWithoutPh)
{
    struct Case
    {
        double m, p, co2Typed;                     // mmol/l, mg/l
        double carbonate, bicarbonate, hydroxide;  // meq/l
        double carbon, co2;                        // mmol/l
    };
    const Case cases[]{
        {3.60, 0.50, 0.0, 1.00, 2.60, 0.0, 3.10, 0.0},
        {2.0, 1.4, 0.0, 1.20, 0.0, 0.80, 0.60, 0.0},
        {2.4, -0.30, 0.0, 0.0, 2.40, 0.0, 2.70, 13.2 / 44.01},
        {2.4, 0.0, 0.0, 0.0, 2.40, 0.0, 2.40, std::nan("")},
        {2.4, 0.0, 22.005, 0.0, 2.40, 0.0, 2.90, 0.5},
    };
    for (const Case& c : cases) {
        WaterUnderTest water;
        water.Type("na", c.m, "meq/l")
            .Type("alkalinity.m", c.m, "mmol/l")
            .Type("alkalinity.p", c.p, "mmol/l");
        water.Set("co2.orig", c.co2Typed).Update();
        const auto forms = water::FormsByTitration(c.m, c.p);
        EXPECT_NEAR(forms.carbonate, c.carbonate, 1e-9) << c.m;
        EXPECT_NEAR(forms.bicarbonate, c.bicarbonate, 1e-9) << c.m;
        EXPECT_NEAR(forms.hydroxide, c.hydroxide, 1e-9) << c.m;
        const advice::WaterNumbers numbers = advice::NumbersOf(water.Details());
        EXPECT_NEAR(numbers.m, c.m, 1e-9);
        EXPECT_NEAR(numbers.carbon, c.carbon, 1e-9) << c.m << " " << c.p;
        if (std::isnan(c.co2))
            EXPECT_TRUE(std::isnan(numbers.co2));
        else
            EXPECT_NEAR(numbers.co2, c.co2, 1e-3) << c.m << " " << c.p;
    }
    ExpectNear(advice::HardnessIn(3.60, "ppm CaCO3"), 180.2, "m as CaCO3");
    ExpectNear(advice::HardnessIn(3.60, "°d"), 10.09, "degrees");
}

TEST(WaterNumbers, FormsByPhCoexist)
{
    WaterUnderTest water;
    water.Type("na", 1.2, "meq/l").Type("cl", 2.8, "meq/l").Type("k", 2.8, "meq/l");
    water.Type("alkalinity.m", 1.2, "mmol/l").Set("ph", 10.0).Set("temp.orig", 20.0).Update();
    EXPECT_NEAR(water["hco3.meql"], 0.554, 0.02 * 0.554);
    EXPECT_NEAR(water["co3.meql"] / 2.0, 0.286, 0.02 * 0.286);
    EXPECT_NEAR(advice::NumbersOf(water.Details()).p, 0.359, 0.02 * 0.359);
}

TEST(WaterNumbers, WhatIsNotKnownStaysUnknown)
{
    WaterUnderTest empty;
    empty.Set("ph", 7.0).Update();
    const advice::WaterNumbers none = advice::NumbersOf(empty.Details());
    EXPECT_TRUE(std::isnan(none.hardness) && std::isnan(none.anionLoad) && std::isnan(none.m));

    WaterUnderTest shortened = GroundWater();
    shortened.Set("analysis.type", "SHORT_TDS").Set("tds.short", 500.0).Update();
    EXPECT_TRUE(std::isnan(advice::NumbersOf(shortened.Details()).anionLoad));

    WaterUnderTest noSilica = GroundWater();
    for (const double missing : {std::nan(""), 0.0}) {
        noSilica.Set("sio2.orig", missing).Update();
        const advice::WaterNumbers numbers = advice::NumbersOf(noSilica.Details());
        EXPECT_TRUE(std::isnan(numbers.silica));
        EXPECT_NEAR(numbers.anionLoad, numbers.acidity + numbers.carbon, 1e-12) << "of what is known";
    }

    WaterUnderTest begun;
    begun.Type("na", 2.0, "meq/l").Type("cl", 2.0, "meq/l").Update();
    const advice::WaterNumbers first = advice::NumbersOf(begun.Details());
    EXPECT_TRUE(std::isnan(first.hardness) && std::isnan(first.m) && std::isnan(first.carbonate));
    EXPECT_NEAR(first.acidity, 2.0, 1e-12);
    EXPECT_TRUE(std::isnan(first.carbon) && std::isnan(first.anionLoad) && std::isnan(first.co2))
        << "nobody looked for bicarbonate";
    begun.Set("ph", 7.0).Update();
    const advice::WaterNumbers measured = advice::NumbersOf(begun.Details());
    EXPECT_TRUE(std::isnan(measured.m) && std::isnan(measured.carbon) && std::isnan(measured.co2))
        << "a pH is no alkalinity";
    begun.Set("ph", 2.0).Update();
    EXPECT_NEAR(advice::NumbersOf(begun.Details()).carbon, 0.0, 1e-9) << "nor has an acid water any";
    EXPECT_LT(advice::NumbersOf(begun.Details()).m, -5.0);
    begun.Set("ph", std::nan(""));
    begun.Type("hco3", -0.1, "meq/l").Type("ca", -0.2, "meq/l").Set("limits", "ZERO").Update();
    EXPECT_EQ(advice::NumbersOf(begun.Details()).m, 0.0) << "looked for";
    EXPECT_EQ(advice::NumbersOf(begun.Details()).hardness, 0.0);

    WaterUnderTest contradictory = GroundWater();
    contradictory.Set("ph", std::nan("")).Type("alkalinity.m", 1.0, "mmol/l");
    contradictory.Type("alkalinity.p", 1.5, "mmol/l").Update();
    EXPECT_TRUE(std::isnan(advice::NumbersOf(contradictory.Details()).carbon)) << "p above m";
    EXPECT_TRUE(std::isnan(advice::NumbersOf(contradictory.Details()).anionLoad));

    WaterUnderTest soft;
    soft.Type("na", 3.0, "meq/l").Type("hco3", 3.0, "meq/l").Type("ca", 1.0, "meq/l").Update();
    EXPECT_NEAR(advice::NumbersOf(soft.Details()).sodiumAlkalinity, 2.0, 1e-9);
    EXPECT_NEAR(advice::NumbersOf(soft.Details()).nonCarbonate, 0.0, 1e-9);
}

TEST(WaterNumbers, DegreesAreThoseOfTheirDefinitions)
{
    for (const auto& [unit, amount] :
         {std::pair("ppm CaCO3", 50.043), {"°d", 2.804}, {"°f", 5.004}, {"°e", 3.511}})
        EXPECT_NEAR(advice::HardnessIn(1.0, unit), amount, 5e-4) << unit;
    EXPECT_TRUE(std::isnan(advice::HardnessIn(1.0, "mg/l")));
}

TEST(WaterNumbers, ClosingIonsCountWithAutomaticBalancing)
{
    WaterUnderTest water;
    water.Type("na", 5.0, "meq/l").Type("cl", 4.0, "meq/l").Set("balance.auto", true).Update();
    const advice::WaterNumbers numbers = advice::NumbersOf(water.Details());
    EXPECT_NEAR(numbers.acidity, 5.0, 1e-9);
    EXPECT_NEAR(numbers.cations, 5.0, 1e-9);
    water.Type("cl", 7.0, "meq/l").Update();
    EXPECT_NEAR(advice::NumbersOf(water.Details()).cations, 7.0, 1e-9);
}

TEST(WaterNumbers, ADayIsAsLongAsThePlantRuns)
{
    iex::IEXProject project("SOFT");
    EXPECT_TRUE(std::isnan(advice::VolumeOfDay(project)));
    support::SetWater(project, {{"ca", 5.0}, {"cl", 5.0}});
    support::SetFlow(project, 30.0, 20.0);
    support::RemoveRows(project, 0);
    EXPECT_NEAR(advice::VolumeOfDay(project), 30.0 * 20.0, 1e-9) << "nothing is regenerated";
    support::SetFlow(project, 30.0, 70.0);
    EXPECT_NEAR(advice::VolumeOfDay(project), 30.0 * 24.0, 1e-9);
    support::SetFlow(project, 30.0, 20.0);
    {
        const ProjectEdit edit(project);
        OwnerNode& row = support::AddRow(project, 0, "REGSEQ_BW", "REGSEQ_RAW_WATER", 1.0);
        row.GetDetails()->At("regseqstep/amount.typed").SetValue("t");
        row.GetDetails()->At("regseqstep/v").SetValue(10.0);
        row.GetDetails()->At("regseqstep/t").SetValue(4.0);
    }
    const double pause = sequence::TotalsOf(project).time;
    ASSERT_GE(pause, 4.0);
    const double volume = 720.0 * 20.0 / (20.0 + pause);
    EXPECT_NEAR(advice::VolumeOfDay(project), volume, 1e-6) << "a pause for each 20 hours";
    support::Put(project, "", "project/nlines", 3L);
    EXPECT_NEAR(advice::VolumeOfDay(project), 3.0 * volume, 1e-6);
    EXPECT_TRUE(std::isnan(advice::ResidualCo2Of(project)));
    iex::IEXProject demi("DEMI");
    demi.AddStep("DEGAS", 1);
    EXPECT_EQ(advice::ResidualCo2Of(demi), 8.0);
}
