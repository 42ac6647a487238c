// SPDX-License-Identifier: MIT
#include "projectbase/water/normalization.h"

#include "projectbase/water/carbonic_acid.h"
#include "projectbase/water/conductivity.h"
#include "tests/support/water_fixture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using testing_support::WaterUnderTest;

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

constexpr const char* kDerived[]{"sum.c.meql", "sum.a.meql", "na.plus.meql",   "cl.plus.meql", "tds",
                                 "cond",       "cond25",     "ionic.strength", "p.osmotic"};

/// 2 meq/l Ca, 1 meq/l Na, 2.5 meq/l HCO3, 20 mg/l SiO2 at 15 °C: anions lack 0.5 meq/l.
void TypeShortOfAnions(WaterUnderTest& water)
{
    water.Type("ca", 2.0, "meq/l")
        .Type("na", 22.99, "mg/l")
        .Type("hco3", 2.5, "meq/l")
        .Type("sio2", 20.0, "mg/l");
    water.Set("temp.orig", 15.0).Set("temp.unit", "\u00b0C");
}

}  // namespace

TEST(Normalization, OneIonAtATime)
{
    WaterUnderTest water;
    water.Type("mg", 1.0, "\u00b0d");
    water::NormalizeIon(water.Details(), "mg", false);
    EXPECT_DOUBLE_EQ(water["mg.meql"], 0.357143);
    EXPECT_DOUBLE_EQ(water["mg.mgl"], 0.357143 * 12.16);
    EXPECT_EQ(water["mg.orig"], 1.0);

    water.Type("x1", 3.0, "mg/l").Set("x1.name", "  ");
    water::NormalizeIon(water.Details(), "x1", false);
    EXPECT_DOUBLE_EQ(water["x1.mgl"], 3.0 * 22.99) << "the name is looked at only when asked for";
    water::NormalizeIon(water.Details(), "x1", true);
    EXPECT_EQ(water["x1.orig"], 0.0);
    EXPECT_EQ(water["x1.meql"], 0.0);
    EXPECT_EQ(water["x1.mgl"], 0.0);

    EXPECT_THROW(water::NormalizeIon(water.Details(), "unobtainium", false), std::runtime_error);
    DetailList empty;
    EXPECT_THROW(water::NormalizeIon(empty, "na", false), std::runtime_error);
    EXPECT_THROW(water::NormalizeEveryIon(empty), std::runtime_error);
    EXPECT_THROW(water::UpdateDerivedValues(empty), std::runtime_error);
}

TEST(Normalization, TemperatureAndCo2FromTheirUnits)
{
    struct Case
    {
        double typed;
        const char* unit;
        double celsius;
    };
    WaterUnderTest water;
    for (const auto& c :
         {Case{12.5, "\u00b0C", 12.5}, Case{59.0, "\u00b0F", 15.0}, Case{298.15, "K", 25.0},
          Case{7.0, "", 7.0}, Case{7.0, "\u00b0R", kUnknown}, Case{kUnknown, "\u00b0C", kUnknown}}) {
        water.Set("temp.orig", c.typed).Set("temp.unit", c.unit).Update();
        if (std::isnan(c.celsius))
            EXPECT_TRUE(std::isnan(water["temp"])) << c.unit;
        else
            EXPECT_NEAR(water["temp"], c.celsius, 1e-12) << c.unit;
    }
    water.Type("co2", 13.1, "mg/l").Update();
    EXPECT_EQ(water["co2.mgl"], 13.1);
    water.Type("co2", 0.5, "meq/l").Update();
    EXPECT_NEAR(water["co2.mgl"], 22.005, 1e-12);
    water.Type("co2", 700.0, "ppb").Update();
    EXPECT_NEAR(water["co2.mgl"], 0.7, 1e-12);
}

TEST(DerivedValues, SumsAndTheAmountThatClosesTheBalance)
{
    WaterUnderTest water;
    TypeShortOfAnions(water);
    water.Type("b", 5.0, "mg/l").Type("co2", 10.0, "mg/l").Update();
    EXPECT_NEAR(water["sum.c.meql"], 3.0, 1e-12);
    EXPECT_NEAR(water["sum.a.meql"], 2.5, 1e-12) << "silica and boron carry no charge";
    EXPECT_NEAR(water["cl.plus.meql"], 0.5, 1e-12);
    EXPECT_EQ(water["na.plus.meql"], 0.0);
    const double tds = 2.0 * 20.04 + 22.99 + 2.5 * 61.02 + 20.0 + 5.0;
    EXPECT_NEAR(water["tds"], tds, 1e-9) << "CO2 is a gas and leaves no solids";
    EXPECT_NEAR(water["ionic.strength"], 0.5e-3 * (1.0 * 4 + 1.0 + 2.5), 1e-12);
    const double openConductivity = water["cond"];

    water.Set("balance.auto", true).Update();
    EXPECT_NEAR(water["sum.a.meql"], 2.5, 1e-12) << "the sums show what was analysed";
    EXPECT_NEAR(water["cl.plus.meql"], 0.5, 1e-12);
    EXPECT_NEAR(water["tds"], tds + 0.5 * 35.45, 1e-9);
    EXPECT_NEAR(water["ionic.strength"], 0.5e-3 * (1.0 * 4 + 1.0 + 2.5 + 0.5), 1e-12);
    EXPECT_GT(water["cond"], openConductivity + 0.5 * 55.0);

    water.Type("so4", 2.0, "meq/l").Update();
    EXPECT_NEAR(water["na.plus.meql"], 1.5, 1e-12);
    EXPECT_EQ(water["cl.plus.meql"], 0.0);
}

TEST(DerivedValues, NamedIonsTakePart)
{
    WaterUnderTest named;
    WaterUnderTest plain;
    named.Set("x1.name", "NH4").Set("x2.name", "Cs").Set("y1.name", "I").Set("temp.orig", 25.0);
    named.Type("x1", 1.0, "meq/l").Type("x2", 2.0, "meq/l").Type("y1", 3.0, "meq/l").Update();
    plain.Type("nh4", 1.0, "meq/l")
        .Type("na", 2.0, "meq/l")
        .Type("cl", 3.0, "meq/l")
        .Set("temp.orig", 25.0)
        .Update();
    for (const auto* key : kDerived)
        EXPECT_DOUBLE_EQ(named[key], plain[key]) << key;
    EXPECT_GT(named["cond"], 300.0);

    named.Set("y1.name", "").Update();
    EXPECT_EQ(named["sum.a.meql"], 0.0);
    EXPECT_EQ(named["y1.orig"], 0.0);
}

TEST(DerivedValues, EveryIonRowCounts)
{
    // One row at a time: a row that some list forgets changes nothing.
    for (const auto* ion :
         {"na",  "ca",  "mg",   "k",   "sr", "ba",  "nh4", "fe2", "mn",  "al", "x1", "x2",     "cl",
          "so4", "co3", "hco3", "no3", "f",  "po4", "br",  "as3", "as5", "y1", "y2", "h.plus", "oh.minus"}) {
        WaterUnderTest water;
        for (const auto* named : {"x1", "x2", "y1", "y2"})
            water.Set(std::string(named) + ".name", "ion");
        water.Set("balance.ph", true).Type(ion, 2.0, "meq/l").Update();
        EXPECT_DOUBLE_EQ(water["sum.c.meql"] + water["sum.a.meql"], 2.0) << ion;
        EXPECT_DOUBLE_EQ(water["na.plus.meql"] + water["cl.plus.meql"], 2.0) << ion;
        EXPECT_DOUBLE_EQ(water["tds"], water[std::string(ion) + ".mgl"]) << ion;
        EXPECT_GT(water["tds"], 0.0) << ion;
        EXPECT_GT(water["cond"], 20.0) << ion;
        EXPECT_GT(water["p.osmotic"], 0.01) << ion;
        EXPECT_GE(water["ionic.strength"], 0.001) << ion;
    }
}

TEST(DerivedValues, HydrogenAndHydroxideFollowTheSwitch)
{
    WaterUnderTest water;
    water.Type("cl", 1.0, "meq/l").Set("temp.orig", 25.0).Set("ph", 3.0);
    water.Type("h.plus", 7.0, "\u00b0d").Update();
    EXPECT_EQ(water["h.plus.orig"], 0.0) << "the row is reset while it takes no part";
    EXPECT_EQ(water.Details().At("liquid/h.plus.unit").GetStdStringValue(), "meq/l");
    EXPECT_EQ(water["h.plus.meql"], 0.0);
    EXPECT_EQ(water["sum.c.meql"], 0.0);
    // Yet acid of pH 3 conducts: about 1 mmol/l of HCl (measured 421 µS/cm).
    EXPECT_NEAR(water["cond"], 430.0, 15.0);

    water.Set("balance.ph", true);
    EXPECT_TRUE(water::FillHydrogenAndHydroxide(water.Details()));
    water.Update();
    EXPECT_NEAR(water["h.plus.meql"], 1.03, 0.01);
    EXPECT_NEAR(water["h.plus.mgl"], water["h.plus.meql"] * 1.01, 1e-12);
    EXPECT_NEAR(water["oh.minus.meql"], 1.04e-8, 2e-10);
    EXPECT_DOUBLE_EQ(water["sum.c.meql"], water["h.plus.meql"]);

    water.Type("h.plus", 0.9, "meq/l").Set("ph", 4.0).Update();
    EXPECT_EQ(water["h.plus.meql"], 0.9) << "a typed value stays";

    water.Set("ph", kUnknown);
    EXPECT_FALSE(water::FillHydrogenAndHydroxide(water.Details()));
    EXPECT_EQ(water["h.plus.orig"], 0.0);
    water.Set("balance.ph", false).Update();
    EXPECT_EQ(water["h.plus.meql"], 0.0);
    EXPECT_EQ(water["oh.minus.mgl"], 0.0);
}

TEST(DerivedValues, CalculatedCo2)
{
    WaterUnderTest water;
    TypeShortOfAnions(water);
    water.Type("co2", 99.0, "mg/l").Set("calculate.co2", true).Set("ph", 7.2).Update();
    // 2.5 mmol/l of HCO3 at 15 °C: pK1 6.4188, γ 0.93 (I = 3.8 mmol/l).
    EXPECT_NEAR(water["co2.mgl"], 2.5 * std::pow(10.0, 6.4188 - 7.2) * 0.935 * 44.01, 0.15);
    const double cold = water["co2.mgl"];
    water.Set("temp.orig", 40.0).Update();
    EXPECT_LT(water["co2.mgl"], 0.9 * cold);
    water.Set("ph", kUnknown).Update();
    EXPECT_TRUE(std::isnan(water["co2.mgl"])) << "no pH, no CO2";
    EXPECT_TRUE(std::isfinite(water["p.osmotic"])) << "an unknown gas must not hide the salts";
    water.Set("calculate.co2", false).Update();
    EXPECT_EQ(water["co2.mgl"], 99.0) << "the typed value is still there";
}

TEST(DerivedValues, OfAnEmptyWater)
{
    WaterUnderTest water;
    water.Set("temp.orig", 25.0).Set("ph", kUnknown).Update();
    for (const auto* key : kDerived)
        EXPECT_EQ(water[key], 0.0) << key;
    water.Set("ph", 7.0).Update();
    EXPECT_EQ(water["tds"], 0.0);
    EXPECT_NEAR(water["cond"], 0.055, 0.001);
    EXPECT_NEAR(water["cond25"], 0.055, 0.001);
}

TEST(DerivedValues, WhatCannotBeKnownIsUnknown)
{
    WaterUnderTest water;
    TypeShortOfAnions(water);
    water.Set("temp.orig", kUnknown).Update();
    EXPECT_TRUE(std::isnan(water["cond"]));
    EXPECT_TRUE(std::isnan(water["p.osmotic"]));
    EXPECT_NEAR(water["cond25"], 240.0, 25.0) << "needs no temperature";
    EXPECT_GT(water["tds"], 0.0);

    water.Set("temp.orig", 20.0).Type("k", kUnknown, "mg/l").Update();
    EXPECT_TRUE(std::isnan(water["k.meql"]));
    EXPECT_NEAR(water["sum.c.meql"], 3.0, 1e-12) << "an ion that was not analysed is left out";

    water.Type("na", 200.0, "g/l").Type("cl", 300.0, "g/l").Update();
    EXPECT_TRUE(std::isnan(water["cond"])) << "a brine beyond the method";
    EXPECT_GT(water["tds"], 5e5);
    // Nonsense is computed through without harm.
    water.Type("na", -5.0, "meq/l")
        .Type("cl", 1e300, "meq/l")
        .Type("ca", std::numeric_limits<double>::infinity(), "");
    water.Set("ph", -400.0).Set("balance.auto", true).Update();
    EXPECT_TRUE(std::isnan(water["cond"]));
}

TEST(DerivedValues, ShortAnalyses)
{
    WaterUnderTest water;
    TypeShortOfAnions(water);
    water.Set("ph", 4.0).Set("x1.name", "Cs").Type("x1", 1.0, "meq/l");
    water.Set("analysis.type", "SHORT_TDS").Set("tds.short", 584.4).Update();
    EXPECT_DOUBLE_EQ(water["na.meql"], 10.0);
    EXPECT_DOUBLE_EQ(water["cl.meql"], 10.0);
    EXPECT_DOUBLE_EQ(water["tds"], 584.4);
    EXPECT_EQ(water["ca.meql"] + water["hco3.meql"] + water["sio2.mgl"] + water["x1.meql"], 0.0);
    EXPECT_DOUBLE_EQ(water["sum.c.meql"], 10.0);
    EXPECT_NEAR(water["cond25"], 1185.0, 5.0);

    water.Set("analysis.type", "SHORT_COND").Set("cond.short", 500.0).Update();
    EXPECT_NEAR(water["cond"], 500.0, 1e-6) << "what was typed is what is shown";
    EXPECT_NEAR(water["na.meql"], water["cl.meql"], 0.0);
    EXPECT_GT(water["na.meql"], 4.5) << "at 15 °C it takes more salt than the 4.1 meq/l at 25 °C";

    for (const double unsolvable : {kUnknown, -1.0, 3e5}) {
        water.Set("cond.short", unsolvable).Update();
        EXPECT_TRUE(std::isnan(water["na.meql"])) << unsolvable;
        for (const auto* key : kDerived)
            EXPECT_TRUE(std::isnan(water[key])) << key << ' ' << unsolvable;
    }

    water.Set("analysis.type", "FULL").Set("calculate.co2", true).Set("ph", 7.0).Update();
    EXPECT_GT(water["co2.mgl"], 0.0);
    water.Set("analysis.type", "SHORT_COND").Update();
    EXPECT_TRUE(std::isnan(water["co2.mgl"])) << "not that of the full analysis";

    water.Set("analysis.type", "FULL").Update();
    EXPECT_DOUBLE_EQ(water["ca.meql"], 2.0) << "the full analysis is still there";
    EXPECT_DOUBLE_EQ(water["sum.c.meql"], 4.0);
}
