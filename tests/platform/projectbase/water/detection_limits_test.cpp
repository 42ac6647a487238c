// SPDX-License-Identifier: MIT
// "<0.05" of a laboratory, from the text to what it makes of a water.
#include "projectbase/water/detection_limits.h"

#include "core/detection_limit.h"
#include "core/ion_table.h"
#include "projectbase/advice/balance_judgement.h"
#include "projectbase/advice/water_numbers.h"
#include "projectbase/project/range_faults.h"
#include "projectbase/water/blend.h"
#include "projectbase/water/units_of_ions.h"
#include "tests/support/water_fixture.h"

#include <gtest/gtest.h>

#include <cmath>

using testing_support::WaterUnderTest;

TEST(DetectionLimit, IsReadAndWritten)
{
    const numbertext::Separators german{",", "."};
    const struct
    {
        const char* text;
        double typed;  ///< not a number where the text states no amount
    } cases[]{{"0,05", 0.05},
              {"<0,05", -0.05},
              {" < 0,05 ", -0.05},
              {"<=1.000,5", -1000.5},
              {"\u22641e-3", -0.001},
              {"0", 0.0},
              {"<0", 0.0},
              {"-0,05", std::nan("")},
              {"<-0,05", std::nan("")},
              {"<<1", std::nan("")},
              {"<", std::nan("")},
              {"n.d.", std::nan("")}};
    for (const auto& [text, typed] : cases) {
        const auto read = detection_limit::Parse(text, german);
        ASSERT_EQ(read.has_value(), !std::isnan(typed)) << text;
        if (!read)
            continue;
        EXPECT_EQ(*read, typed) << text;
        EXPECT_FALSE(std::signbit(*read) && *read == 0.0) << text;
        EXPECT_EQ(detection_limit::Parse(detection_limit::Format(*read, {.precision = 10}, german), german),
                  read)
            << text;
    }
    EXPECT_EQ(detection_limit::Format(-0.05, {.precision = 4}, german), "<0,05");
}

TEST(DetectionLimits, CountWithTheirShare)
{
    for (const auto& [code, share] : {std::pair("ZERO", 0.0), {"HALF", 0.5}, {"LIMIT", 1.0}}) {
        WaterUnderTest water;
        water.Type("na", 1.0, "meq/l")
            .Type("ca", -0.2, "meq/l")
            .Type("ba", -6.867, "mg/l")
            .Type("cl", 1.0, "meq/l");
        water.Type("x1", -0.3, "meq/l").Set("x1.name", "Li").Type("x2", -0.3, "meq/l");
        water.Set("co2.orig", -8.0).Set("limits", code).Update();
        EXPECT_NEAR(water["ca.meql"], 0.2 * share, 1e-12) << code;
        EXPECT_NEAR(water["ba.meql"], 0.1 * share, 1e-4) << code;
        EXPECT_NEAR(water["x1.meql"], 0.3 * share, 1e-12) << code;
        EXPECT_NEAR(water["co2.mgl"], 8.0 * share, 1e-12) << code;
        EXPECT_NEAR(water["sum.c.meql"], 1.0 + 0.6 * share, 1e-4) << code;
        EXPECT_EQ(water["ca.orig"], -0.2) << "what was typed stays";
        EXPECT_EQ(water["x2.orig"], 0.0) << "a row without a name is unused";
        for (const RangeFault& fault : RangeFaults(water.Details(), {}))
            EXPECT_FALSE(fault.address.key.ends_with(".orig")) << "not a negative amount";
        const auto sums = water::LimitSums(water.Details());
        EXPECT_NEAR(sums.cations, 0.6, 1e-4) << code;
        EXPECT_EQ(sums.anions, 0.0);
    }
    WaterUnderTest water;
    water.Type("ca", -30000.0, "meq/l").Update();
    EXPECT_EQ(RangeFaults(water.Details(), {}).size(), 1u) << "nobody has a limit beyond all waters";
}

TEST(DetectionLimits, BalanceTellsWhatHangsOnThem)
{
    WaterUnderTest water;
    water.Type("na", 2.0, "meq/l").Type("cl", 2.0, "meq/l").Type("k", -0.04, "meq/l").Update();
    const auto judge = [&water] {
        return advice::JudgeBalance(water.Details(), advice::BalanceRule::StandardMethods);
    };
    EXPECT_TRUE(std::isnan(judge().leastError)) << "1 % of the ions does no harm";
    water.Type("no3", -0.4, "meq/l").Update();
    // 2.02 : 2.2; without the limits 2.0 : 2.0; with all of them 2.04 : 2.4.
    EXPECT_NEAR(judge().error, 100.0 * -0.18 / 4.22, 1e-9);
    EXPECT_NEAR(judge().leastError, 100.0 * -0.36 / 4.44, 1e-9);
    EXPECT_NEAR(judge().greatestError, 0.0, 1e-9);
}

TEST(DetectionLimits, LoadsTakeThemInFull)
{
    WaterUnderTest water;
    water.Type("na", 2.0, "meq/l").Type("cl", 1.0, "meq/l").Type("hco3", 1.0, "meq/l").Set("ph", 7.5);
    water.Set("temp.orig", 20.0).Update();
    const advice::WaterNumbers before = advice::NumbersOf(water.Details());
    water.Type("k", -0.1, "meq/l")
        .Type("so4", -0.2, "meq/l")
        .Type("sio2", -ions::FindIon("sio2")->molarMass, "mg/l");
    water.Update();
    const advice::WaterNumbers numbers = advice::NumbersOf(water.Details());
    EXPECT_NEAR(numbers.cations - before.cations, 0.1, 1e-9);
    EXPECT_NEAR(numbers.acidity - before.acidity, 0.2, 1e-9);
    EXPECT_NEAR(numbers.silica, 1.0, 1e-9);
    EXPECT_NEAR(numbers.anionLoad - before.anionLoad, 1.2, 1e-3) << "the pH splits carbon a little otherwise";
}

TEST(DetectionLimits, LoadsOfSoftenersAndWeakAcidTakeThemInFull)
{
    // As counted: hardness 0.2 + 0.1, m 0.15. In full: hardness 0.6, m 0.3; 2.6 meq/l of cations against 2.3
    // of strong acids and the m-value.
    for (const auto& [code, share] : {std::pair("ZERO", 0.0), {"HALF", 0.5}, {"LIMIT", 1.0}}) {
        WaterUnderTest water;
        water.Type("na", 2.0, "meq/l").Type("cl", 2.3, "meq/l").Type("ca", -0.4, "meq/l");
        water.Type("mg", -0.2, "meq/l").Type("hco3", -0.3, "meq/l").Set("co2.orig", -4.401);
        water.Set("limits", code).Update();
        const advice::WaterNumbers numbers = advice::NumbersOf(water.Details());
        EXPECT_NEAR(numbers.hardness, 0.6 * share, 1e-9) << "as the analysis shows it, " << code;
        EXPECT_NEAR(numbers.m, 0.3 * share, 1e-9) << code;
        EXPECT_NEAR(numbers.carbonate, 0.3 * share, 1e-9) << code;
        EXPECT_NEAR(numbers.carbon, 0.3 + 0.1, 1e-4) << code;
        EXPECT_NEAR(numbers.acidity, 2.3, 1e-9) << code;
        EXPECT_NEAR(numbers.acidityByCations, 2.6 - 0.3, 1e-9) << "balanced: one figure, " << code;
        const advice::DailyLoads loads = advice::LoadsOfDay(numbers, 100.0);
        EXPECT_NEAR(loads.hardness, 60.0, 1e-6) << code;
        EXPECT_NEAR(loads.carbonate, 30.0, 1e-6) << code;
        EXPECT_NEAR(loads.cations, 260.0, 1e-6) << code;
    }
    // What closes the balance makes way for what was not found: 2.3 of chloride, sodium and calcium.
    WaterUnderTest closed;
    closed.Type("na", 2.0, "meq/l").Type("cl", 2.3, "meq/l").Type("ca", -0.2, "meq/l");
    closed.Set("balance.auto", true).Update();
    EXPECT_NEAR(advice::NumbersOf(closed.Details()).cations, 2.3, 1e-9);
    // A reported m-value stands in place of a limit of bicarbonate.
    closed.Type("hco3", -1.0, "meq/l").Type("alkalinity.m", 0.1, "mmol/l").Update();
    EXPECT_NEAR(advice::NumbersOf(closed.Details()).carbonateLoad, 0.1, 1e-9);
}

TEST(DetectionLimits, GoThroughUnitsAndBlends)
{
    WaterUnderTest water;
    water.Type("ca", -20.039, "mg/l").Set("fe.total", -0.1).Set("temp.orig", 10.0).Update();
    water::SetUnitOfIons(water.Details(), "meq/l", water::TypedNumbers::Convert);
    EXPECT_NEAR(water["ca.orig"], -1.0, 1e-4);
    water.Update();
    WaterUnderTest mixture;
    water::Blend(std::array{water::BlendSource{water.Details(), 1.0}}, mixture.Details());
    mixture.Update();
    EXPECT_NEAR(mixture["ca.orig"], -1.0, 1e-4) << "found in none of its waters";
    EXPECT_NEAR(mixture["ca.meql"], 0.5, 1e-4) << "and counts as it did there";
    EXPECT_NEAR(mixture["fe.total"], -0.1, 1e-12);

    WaterUnderTest without;
    without.Type("na", 4.0, "meq/l").Type("cl", -1.0, "meq/l").Set("fe.total", 0.0);
    without.Set("temp.orig", 10.0).Update();
    WaterUnderTest with;
    with.Type("ca", 2.0, "meq/l").Type("cl", -3.0, "meq/l").Type("sio2", -6.0, "mg/l").Set("fe.total", 0.3);
    with.Set("temp.orig", 10.0).Update();
    const auto blend = [&mixture](WaterUnderTest& a, WaterUnderTest& b) {
        water::Blend(std::array{water::BlendSource{a.Details(), 0.25}, water::BlendSource{b.Details(), 0.75}},
                     mixture.Details());
        mixture.Update();
    };
    blend(water, without);
    EXPECT_NEAR(mixture["ca.orig"], -0.25, 1e-4);
    EXPECT_NEAR(mixture["fe.total"], -0.025, 1e-12) << "none at all was found in the other one";
    blend(water, with);
    EXPECT_NEAR(mixture["ca.orig"], 0.25 * 0.5 + 0.75 * 2.0, 1e-4) << "found in one of them";
    EXPECT_NEAR(mixture["sio2.orig"], -4.5, 1e-9) << "by mass";
    blend(without, with);
    EXPECT_NEAR(mixture["cl.orig"], -2.5, 1e-9);
    EXPECT_NEAR(mixture["fe.total"], 0.225, 1e-12);
    without.Set("limits", "ZERO").Update();
    with.Set("limits", "ZERO").Update();
    blend(without, with);
    EXPECT_NEAR(mixture["cl.orig"], -2.5, 1e-9);
    EXPECT_EQ(mixture["cl.meql"], 0.0) << "counted as in both of them";
}
