// SPDX-License-Identifier: MIT
#include "core/ion_table.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

using ions::AllIons;
using ions::FindIon;

TEST(IonTable, WeightsAreThoseOfTheElementsAndChargesAreWhole)
{
    std::set<std::string_view> keys;
    for (const auto& ion : AllIons()) {
        EXPECT_TRUE(keys.insert(ion.key).second) << "listed twice: " << ion.key;
        EXPECT_EQ(FindIon(ion.key), &ion);
        EXPECT_GT(ion.equivalentWeight, 0.0) << ion.key;
        // A mistyped weight shows as a charge that is no whole number.
        const double charge = ion.molarMass / ion.equivalentWeight;
        EXPECT_NEAR(charge, std::round(charge), ion.key == "cu" ? 0.02 : 1.5e-3) << ion.key;
    }
    EXPECT_GE(keys.size(), 43u);
}

TEST(IonTable, KeepsRowsBeyondTheMainIons)
{
    struct Row
    {
        std::string_view key;
        double equivalentWeight, molarMass, coefficient;
    };
    constexpr Row kRows[]{
        {"na", 22.99, 22.99, 50.1},        {"ba", 68.67, 137.33, 63.6},      {"as5", 46.31, 138.92, 34.0},
        {"oh.minus", 17.01, 17.01, 198.3}, {"co2", 44.01, 44.01, 1.0},       {"nh3", 17.03, 17.03, 73.5},
        {"eta", 61.08, 61.08, 42.2},       {"mor.plus", 88.13, 88.13, 37.2}, {"cu", 31.47, 63.55, 59.0},
        {"si", 28.09, 28.09, 0.001},       {"i", 126.9, 126.9, 5e-08},       {"u", 238.03, 238.03, 0.001},
    };
    for (const auto& row : kRows) {
        const auto* ion = FindIon(row.key);
        ASSERT_NE(ion, nullptr) << row.key;
        EXPECT_EQ(ion->equivalentWeight, row.equivalentWeight) << row.key;
        EXPECT_EQ(ion->molarMass, row.molarMass) << row.key;
        EXPECT_EQ(ion->coefficient, row.coefficient) << row.key;
    }
    for (const auto* unknown : {"", "Na", "x1", "h", "na "})
        EXPECT_EQ(FindIon(unknown), nullptr) << unknown;
}

TEST(IonTable, EveryRowOfAnAnalysisIsKnownOrNamed)
{
    for (const auto key : ions::kCationKeys)
        EXPECT_NE(FindIon(key) != nullptr, ions::IsNamedIon(key)) << key;
    for (const auto key : ions::kAnionKeys)
        EXPECT_NE(FindIon(key) != nullptr, ions::IsNamedIon(key)) << key;
    EXPECT_FALSE(ions::CountsAsCharge("sio2"));
    EXPECT_FALSE(ions::CountsAsCharge("b"));
    EXPECT_FALSE(ions::CountsAsCharge("co2"));
    EXPECT_TRUE(ions::CountsAsCharge("h.plus"));
}

TEST(IonTable, NamedIonsBorrowTheWeightOfARelative)
{
    struct Case
    {
        std::string_view key, name, reference;
    };
    constexpr Case kCases[]{
        {"x1", "NH4", "nh4"}, {"x2", "nH4 ", "nh4"}, {"x1", "Cs", "na"}, {"x1", "", "na"},
        {"x1", "nh4+", "na"}, {"y1", "NH4", "cl"},   {"y2", "I", "cl"},  {"ca", "NH4", "ca"},
    };
    for (const auto& c : kCases)
        EXPECT_EQ(ions::ReferenceKey(c.key, c.name), c.reference) << c.key << " '" << c.name << "'";
}
