// SPDX-License-Identifier: MIT
#include "core/ion_normalization.h"

#include "core/ion_units.h"
#include "core/polarization.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using ions::Normalize;

TEST(IonUnits, ConvertsEveryUnitToMilliequivalents)
{
    struct Case
    {
        std::string_view unit;
        double typed, expected;
    };
    // Calcium: 40.08 mg/l are 2 meq/l.
    constexpr Case kCases[]{
        {"meq/l", 2.0, 2.0},       {"mg/l", 40.08, 2.0},    {"g/m3", 40.08, 2.0},
        {"ppm", 40.08, 2.0},       {"ppb", 40080.0, 2.0},   {"g/l", 0.04008, 2.0},
        {"ppm CaCO3", 100.0, 2.0}, {"mgCaCO3/l", 100., 2.}, {"\u00b0d", 1.0, 0.357143},
        {"\u00b0f", 10.0, 2.0},    {"\u00b0a", 1.0, 0.34},  {"\u00b0e", 1.0, 0.29},
        {"no unit", 3.0, 3.0},     {"", 3.0, 3.0},          {"MG/L", 3.0, 3.0},
    };
    for (const auto& c : kCases) {
        EXPECT_NEAR(ions::ToMeqPerLitre(c.typed, c.unit, 20.04), c.expected, 1e-12) << c.unit;
        EXPECT_NEAR(ions::FromMeqPerLitre(c.expected, c.unit, 20.04), c.typed, 1e-9) << c.unit;
        EXPECT_NEAR(ions::ToMgPerLitre(c.typed, c.unit, 20.04), c.expected * 20.04, 1e-10) << c.unit;
    }
    EXPECT_EQ(ions::ToMgPerLitre(13.1, "mg/l", 44.01), 13.1) << "a mass must not be rounded on the way";
    for (const double weight : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(ions::ToMeqPerLitre(7.0, "mg/l", weight), 7.0) << weight;
        EXPECT_EQ(ions::FromMeqPerLitre(7.0, "mg/l", weight), 7.0) << weight;
    }
}

TEST(IonUnits, ShortListHoldsNoMass)
{
    // A mass unit in the equivalent list would need a weight that those rows do not have.
    for (const auto unit : ions::kEquivalentUnits)
        EXPECT_EQ(ions::ToMeqPerLitre(1.0, unit, 20.0), ions::ToMeqPerLitre(1.0, unit, 40.0)) << unit;
    EXPECT_EQ(ions::kIonUnits.front(), "meq/l");
    EXPECT_EQ(ions::kIonUnits.back(), "\u00b0e");
}

TEST(IonNormalization, FollowsTheRowsKind)
{
    struct Case
    {
        std::string_view key;
        double typed;
        std::string_view unit, name;
        bool checkName;
        double kept, meq, mg;
    };
    constexpr Case kCases[]{
        {"ca", 40.08, "mg/l", "", false, 40.08, 2.0, 40.08},
        {"so4", 96.06, "mg/l", "", false, 96.06, 2.0, 96.06},
        {"na", 1.0, "\u00b0d", "", false, 1.0, 0.357143, 0.357143 * 22.99},
        {"sio2", 30.04, "ppm", "", false, 30.04, 0.5, 30.04},
        // A mass is taken as it is on the way to meq/l, and weighed on the way back.
        {"x1", 10.0, "mg/l", "Cs", true, 10.0, 10.0, 229.9},
        {"x2", 2.0, "meq/l", "NH4", true, 2.0, 2.0, 36.08},
        {"x1", 3.0, "g/l", "nh4  ", true, 3.0, 3000.0, 3000.0 * 18.04},
        {"y1", 500.0, "ppb", "I", true, 500.0, 0.5, 17.725},
        {"y2", 1.0, "ppm CaCO3", "I", false, 1.0, 0.02, 0.709},
        // Unused rows, and the same rows when nobody asks for the name.
        {"x1", 5.0, "meq/l", "", true, 0.0, 0.0, 0.0},
        {"y1", 5.0, "meq/l", "  \t", true, 0.0, 0.0, 0.0},
        {"x1", 5.0, "meq/l", "", false, 5.0, 5.0, 114.95},
        {"unknown", 5.0, "mg/l", "", false, 5.0, 5.0, 5.0},
    };
    for (const auto& c : kCases) {
        const auto result = Normalize({c.key, c.typed, c.unit, c.name, c.checkName});
        EXPECT_EQ(result.typed, c.kept) << c.key << ' ' << c.name;
        EXPECT_NEAR(result.meqPerLitre, c.meq, 1e-12 * (1.0 + c.meq)) << c.key << ' ' << c.name;
        EXPECT_NEAR(result.mgPerLitre, c.mg, 1e-12 * (1.0 + c.mg)) << c.key << ' ' << c.name;
    }
    EXPECT_TRUE(std::isnan(Normalize({"ca", std::nan(""), "mg/l", "", false}).mgPerLitre));
}

TEST(Polarization, SolvesItsEquation)
{
    EXPECT_EQ(ions::ReversePolarizationEffect(0.0), 0.0);
    for (const double x : {0.055, 1.0, 25.0, 1413.0, 53065.0, 3e5}) {
        const double y = ions::ReversePolarizationEffect(x);
        EXPECT_NEAR((1.0783 - 0.075 * std::log10(y)) * y, x, 1e-6 * (1.0 + x)) << x;
    }
    // Ions hinder each other more, the more there are of them.
    EXPECT_NEAR(ions::ReversePolarizationEffect(1413.0) / 1413.0, 1.1959, 1e-4);
    EXPECT_TRUE(std::isnan(ions::ReversePolarizationEffect(-1.0)));
}
