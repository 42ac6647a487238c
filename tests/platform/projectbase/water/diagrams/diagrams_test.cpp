// SPDX-License-Identifier: MIT
#include "projectbase/water/diagrams/ion_diagrams.h"
#include "projectbase/water/diagrams/piper.h"
#include "tests/support/water_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

using namespace diagrams;
using piper::kGap;
using piper::kHeight;
using piper::Place;
using testing_support::WaterUnderTest;

/// A groundwater of the environmental monitoring of British Columbia (station 1401030, 2016-11-02).
struct Groundwater : WaterUnderTest
{
    Groundwater()
    {
        Type("ca", 134, "mg/l").Type("mg", 26.3, "mg/l").Type("na", 15.6, "mg/l").Type("k", 4.17, "mg/l");
        Type("hco3", 339, "mg/l").Type("so4", 190, "mg/l").Type("cl", 7.8, "mg/l").Type("f", 0.1, "mg/l");
        Set("ph", 7.84).Update();
    }
};

/// A water of these ions in meq/l.
struct Water : WaterUnderTest
{
    Water(std::initializer_list<std::pair<const char*, double>> ions)
    {
        for (const auto& [ion, meq] : ions)
            Type(ion, meq, "meq/l");
        Update();
    }
};

void ExpectAt(const Place& place, double x, double y, const std::string& what, double tolerance = 1e-12)
{
    EXPECT_NEAR(place.x, x, tolerance) << what;
    EXPECT_NEAR(place.y, y, tolerance) << what;
}

TEST(Piper, PlacesAPublishedGroundwater)
{
    const auto shares = piper::SharesOf(IonsOf(Groundwater().Details()), false);
    ASSERT_TRUE(shares);
    constexpr double kRounding = 0.0006;
    EXPECT_NEAR(shares->calcium, 0.694, kRounding);
    EXPECT_NEAR(shares->magnesium, 0.225, kRounding);
    EXPECT_NEAR(shares->alkalis, 0.081, kRounding);
    EXPECT_NEAR(shares->bicarbonate, 0.571, kRounding);
    EXPECT_NEAR(shares->sulfate, 0.406, kRounding);
    EXPECT_NEAR(shares->chloride, 0.023, kRounding);
    const piper::Points points = piper::PlacesOf(*shares);
    ExpectAt(points.cations, 0.1938, 0.1945, "cations", 0.002);
    ExpectAt(points.anions, 1.3259, 0.3521, "anions", 0.002);
    ExpectAt(points.diamond, 0.8053, 1.2537, "diamond", 0.002);
}

TEST(Piper, WatersOfOneCationAndOneAnionStandInTheCorners)
{
    struct Case
    {
        const char* cation;
        const char* anion;
        Place cations, anions, diamond;
    };
    const double h = kHeight;
    const Case cases[]{
        {"ca", "hco3", {0, 0}, {1.1, 0}, piper::kDiamond[0]},
        {"ca", "so4", {0, 0}, {1.6, h}, piper::kDiamond[1]},
        {"mg", "cl", {0.5, h}, {2.1, 0}, piper::kDiamond[1]},
        {"na", "cl", {1, 0}, {2.1, 0}, piper::kDiamond[2]},
        {"k", "so4", {1, 0}, {1.6, h}, piper::kDiamond[2]},
        {"na", "co3", {1, 0}, {1.1, 0}, piper::kDiamond[3]},
    };
    for (const Case& c : cases) {
        const std::string name = std::string(c.cation) + " " + c.anion;
        const auto shares =
            piper::SharesOf(IonsOf(Water({{c.cation, 2.0}, {c.anion, 2.0}}).Details()), false);
        ASSERT_TRUE(shares) << name;
        const piper::Points points = piper::PlacesOf(*shares);
        ExpectAt(points.cations, c.cations.x, c.cations.y, name);
        ExpectAt(points.anions, c.anions.x, c.anions.y, name);
        ExpectAt(points.diamond, c.diamond.x, c.diamond.y, name);
    }
    ExpectAt(piper::kDiamond[0], 0.55, 1.1 * h, "left");
    ExpectAt(piper::kDiamond[1], 1.05, 2.1 * h, "top");
    ExpectAt(piper::kDiamond[2], 1.55, 1.1 * h, "right");
    ExpectAt(piper::kDiamond[3], 1.05, 0.1 * h, "bottom");
}

TEST(Piper, AWaterWithoutOneOfBothSumsHasNoPlace)
{
    const auto has = [](std::initializer_list<std::pair<const char*, double>> ions, bool withMinorAnions) {
        return piper::SharesOf(IonsOf(Water(ions).Details()), withMinorAnions).has_value();
    };
    EXPECT_FALSE(has({}, false));
    EXPECT_FALSE(has({{"ca", 1}}, false));
    EXPECT_FALSE(has({{"cl", 1}}, false));
    EXPECT_FALSE(has({{"nh4", 1}, {"cl", 1}}, false));
    EXPECT_FALSE(has({{"ca", 1}, {"no3", 1}}, false));
    EXPECT_TRUE(has({{"ca", 1}, {"no3", 1}}, true));
    Water unknown({{"ca", 1}, {"cl", 1}});
    unknown.Type("ca", std::nan(""), "meq/l").Update();
    EXPECT_FALSE(piper::SharesOf(IonsOf(unknown.Details()), false));
}

TEST(Piper, NitrateFluorideAndBromideCountAsChlorideOnRequest)
{
    const auto ions =
        IonsOf(Water({{"ca", 4}, {"hco3", 2}, {"cl", 1}, {"no3", 0.5}, {"f", 0.2}, {"br", 0.3}, {"po4", 9}})
                   .Details());
    EXPECT_NEAR(piper::SharesOf(ions, false)->chloride, 1.0 / 3.0, 1e-12);
    EXPECT_NEAR(piper::SharesOf(ions, true)->chloride, 0.5, 1e-12);
}

// The place in the diamond is where the lines through both points meet, for any water.
TEST(Piper, TheDiamondFollowsFromBothTriangles)
{
    std::mt19937 random(7);
    std::exponential_distribution<double> amount(0.5);
    for (int i = 0; i < 1000; ++i) {
        const WaterIons ions{.calcium = amount(random),
                             .magnesium = amount(random),
                             .sodium = amount(random),
                             .potassium = amount(random),
                             .bicarbonate = amount(random),
                             .sulfate = amount(random),
                             .chloride = amount(random),
                             .nitrate = amount(random)};
        const auto shares = piper::SharesOf(ions, i % 2 == 0);
        ASSERT_TRUE(shares);
        EXPECT_NEAR(shares->calcium + shares->magnesium + shares->alkalis, 1.0, 1e-12);
        EXPECT_NEAR(shares->bicarbonate + shares->sulfate + shares->chloride, 1.0, 1e-12);
        const auto [c, a, d] = piper::PlacesOf(*shares);
        ExpectAt(d, (c.x + a.x) / 2 + (a.y - c.y) / (2 * std::sqrt(3.0)),
                 (c.y + a.y) / 2 + std::sqrt(3.0) * (a.x - c.x) / 2, "diamond");
        // Within the diamond: no farther from its middle than half its diagonals allow.
        const Place middle{1.0 + kGap / 2, kHeight * (1.0 + kGap)};
        EXPECT_LE(std::abs(d.x - middle.x) / 0.5 + std::abs(d.y - middle.y) / kHeight, 1.0 + 1e-12);
    }
}

TEST(WaterIons, HoldEveryIonThatCountsOnce)
{
    Water water({{"ca", 1},  {"mg", 2},   {"na", 3},     {"k", 4},   {"nh4", 5},  {"fe2", 6},
                 {"mn", 7},  {"sr", 8},   {"ba", 9},     {"al", 10}, {"hco3", 1}, {"co3", 2},
                 {"so4", 3}, {"cl", 4},   {"no3", 5},    {"f", 6},   {"br", 7},   {"po4", 8},
                 {"as3", 9}, {"as5", 10}, {"sio2", 100}, {"b", 100}});
    water.Set("x1.name", "Lithium").Type("x1", 11, "meq/l");
    water.Set("y2.name", "Iodide").Type("y2", 12, "meq/l").Update();
    const WaterIons ions = IonsOf(water.Details());
    EXPECT_EQ(ions.iron, 6.0);
    EXPECT_EQ(ions.manganese, 7.0);
    EXPECT_EQ(ions.ammonium, 5.0);
    EXPECT_EQ(ions.otherCations, 8 + 9 + 10 + 11.0);
    EXPECT_EQ(ions.bicarbonate, 3.0);
    EXPECT_EQ(ions.otherAnions, 8 + 9 + 10 + 12.0);
    EXPECT_EQ(ions.CationSum(), water["sum.c.meql"]);
    EXPECT_EQ(ions.AnionSum(), water["sum.a.meql"]);
    EXPECT_TRUE(ions == IonsOf(water.Details()));
    WaterIons other = ions;
    other.bromide += 1e-9;
    EXPECT_FALSE(other == ions);
}

TEST(WaterIons, TheClosingIonCountsWhereTheBalanceIsClosed)
{
    Water water({{"ca", 3}, {"cl", 1}, {"hco3", 1}});
    EXPECT_EQ(GroupsOf(IonsOf(water.Details())).chloride, 1.0);
    water.Set("balance.auto", true).Update();
    const WaterIons ions = IonsOf(water.Details());
    EXPECT_EQ(ions.chloride, 1.0);
    EXPECT_EQ(ions.closingChloride, 1.0);
    EXPECT_EQ(GroupsOf(ions).chloride, 2.0);
    EXPECT_EQ(ions.CationSum(), ions.AnionSum());
    water.Type("cl", 4, "meq/l").Update();
    EXPECT_EQ(GroupsOf(IonsOf(water.Details())).alkalis, 2.0);
}

// What the pH brings along is part of the charges that are closed.
TEST(WaterIons, OfAcidAndAlkalineWatersHaveTheIonsOfTheirPh)
{
    for (const double pH : {1.5, 3.0, 11.5}) {
        Water water({{"na", 1}, {"so4", 2}});
        water.Set("balance.auto", true).Set("ph", pH).Set("temp", 20.0).Update();
        const WaterIons ions = IonsOf(water.Details());
        EXPECT_NEAR(ions.CationSum(), ions.AnionSum(), 1e-4 * ions.CationSum()) << pH;
        EXPECT_GT(pH < 7.0 ? ions.otherCations : ions.hydroxide, 1.0) << pH;
    }
}

TEST(WaterIons, OfAShortAnalysisAreSodiumAndChloride)
{
    Water water({{"ca", 3}, {"hco3", 3}});
    water.Set("ph", 3.0).Set("analysis.type", "SHORT_TDS").Set("tds.short", 584.4).Update();
    const WaterIons ions = IonsOf(water.Details());
    EXPECT_NEAR(ions.CationSum(), 10.0, 1e-9);
    EXPECT_EQ(ions.sodium, ions.CationSum());
    EXPECT_EQ(ions.chloride, ions.AnionSum());
}

TEST(IonBars, StackWhatAWaterHasInOrder)
{
    const IonBars bars = BarsOf({.calcium = 3,
                                 .sodium = 1,
                                 .ammonium = 0.5,
                                 .bicarbonate = 2,
                                 .hydroxide = 0.25,
                                 .chloride = 1.5,
                                 .fluoride = 0.25,
                                 .closingSodium = 0.125});
    const auto is = [](BarPart part, double meq, bool isClosing = false) {
        return testing::AllOf(testing::Field(&BarSegment::part, part), testing::Field(&BarSegment::meq, meq),
                              testing::Field(&BarSegment::isClosing, isClosing));
    };
    EXPECT_THAT(bars.cations,
                testing::ElementsAre(is(BarPart::Calcium, 3), is(BarPart::Sodium, 1),
                                     is(BarPart::Ammonium, 0.5), is(BarPart::Sodium, 0.125, true)));
    EXPECT_THAT(bars.anions, testing::ElementsAre(is(BarPart::Alkalinity, 2.25), is(BarPart::Chloride, 1.5),
                                                  is(BarPart::OtherAnions, 0.25)));
    EXPECT_TRUE(BarsOf({}).cations.empty() && BarsOf({}).anions.empty());
}

TEST(Stiff, RowsHaveCationsAndAnionsOfThePublishedOrder)
{
    const WaterIons ions{.calcium = 1,
                         .magnesium = 2,
                         .sodium = 3,
                         .potassium = 4,
                         .iron = 5,
                         .bicarbonate = 6,
                         .sulfate = 7,
                         .chloride = 8,
                         .nitrate = 9,
                         .closingSodium = 0.5};
    const auto is = [](double cation, double anion) {
        return testing::AllOf(testing::Field(&StiffRow::cation, cation),
                              testing::Field(&StiffRow::anion, anion));
    };
    EXPECT_THAT(StiffOf(ions, false), testing::ElementsAre(is(7.5, 8), is(1, 6), is(2, 7)));
    EXPECT_THAT(StiffOf(ions, true), testing::ElementsAre(is(7.5, 8), is(1, 6), is(2, 7), is(5, 9)));
}

TEST(Schoeller, WhatIsMissingHasNoOrdinateAndDecadesAreWhole)
{
    const WaterIons ions{.calcium = 1,
                         .sodium = 3,
                         .potassium = 4,
                         .bicarbonate = 6,
                         .sulfate = 7,
                         .chloride = 8,
                         .nitrate = 9};
    const auto values = SchoellerOf(ions, true);
    EXPECT_THAT(values, testing::ElementsAre(1, testing::NanSensitiveDoubleEq(std::nan("")), 7, 8, 7, 6, 9));
    EXPECT_EQ(SchoellerOf(ions, false).size(), 6U);

    struct Case
    {
        std::vector<std::vector<double>> values;
        double lower, upper;
    };
    const double none = std::nan("");
    const Case cases[]{
        {{{0.05, 30}, {2, none}}, 0.01, 100},
        {{{1, 9.5}}, 1, 10},
        {{{1, 10}}, 1, 10},
        {{{1}}, 1, 10},
        {{{0.1}}, 0.1, 1},
        {{{none}, {0.0}}, 0.1, 10},
        {{}, 0.1, 10},
        {{{1e-7}}, 1e-7, 1e-6},
    };
    for (const Case& c : cases) {
        const Decades decades = DecadesAround(c.values);
        EXPECT_DOUBLE_EQ(decades.lower, c.lower);
        EXPECT_DOUBLE_EQ(decades.upper, c.upper);
    }
}

}  // namespace
