// SPDX-License-Identifier: MIT
#include "projectbase/water/composition.h"

#include "core/ion_table.h"

#include <gtest/gtest.h>

#include <cmath>

using water::Composition;
using water::Species;

TEST(Composition, ChargesAgreeWithTheIonTable)
{
    for (std::size_t i = 0; i < water::kSpeciesCount; ++i) {
        const auto* ion = ions::FindIon(water::kSpeciesKeys[i]);
        ASSERT_NE(ion, nullptr) << water::kSpeciesKeys[i];
        const int charge = std::abs(water::kCharges[i]);
        if (ions::CountsAsCharge(ion->key))
            EXPECT_NEAR(ion->molarMass / ion->equivalentWeight, charge, 2e-3) << ion->key;
        else
            EXPECT_EQ(charge, 0) << ion->key;
        EXPECT_EQ(water::SpeciesOfKey(ion->key), static_cast<Species>(i));
    }
    for (const auto key : ions::kCationKeys) {
        if (!ions::IsNamedIon(key)) {
            EXPECT_GT(water::Charge(water::SpeciesOfKey(key).value()), 0) << key;
        }
    }
    EXPECT_FALSE(water::SpeciesOfKey("x1"));
}

TEST(Composition, IonicStrengthWeighsBySquareOfCharge)
{
    Composition gypsum;
    gypsum[Species::Ca] = gypsum[Species::So4] = 10.0;
    EXPECT_NEAR(water::IonicStrength(gypsum), 0.04, 1e-15);
    Composition alum;
    alum[Species::Al] = 2.0;
    alum[Species::So4] = 3.0;
    alum[Species::Sio2] = 99.0;
    EXPECT_NEAR(water::IonicStrength(alum), 0.015, 1e-15);
}

TEST(Composition, HardnessAndAlkalinityOfAGroundwater)
{
    Composition water;
    water[Species::Ca] = 2.0;
    water[Species::Mg] = 0.5;
    water[Species::Na] = 1.0;
    water[Species::Hco3] = 3.0;
    water[Species::Co3] = 0.1;
    water[Species::Cl] = 0.8;
    water[Species::So4] = 1.0;
    water[Species::Co2] = 0.3;
    EXPECT_DOUBLE_EQ(water::TotalHardness(water), 2.5);
    EXPECT_DOUBLE_EQ(water::AlkalinityM(water), 3.2);
    EXPECT_DOUBLE_EQ(water::CarbonateHardness(water), 1.6);
    EXPECT_DOUBLE_EQ(water::EquivalentMineralAcidity(water), 2.8);

    water[Species::H] = 10.0;
    EXPECT_EQ(water::CarbonateHardness(water), 0.0) << "acid water holds no carbonate hardness";
}

TEST(Composition, DryResidueCountsBicarbonateAsCarbonate)
{
    // Mean river water of the world: 120 mg/l as a sum, about 90 as a residue (Livingstone 1963).
    EXPECT_NEAR(water::DryResidue(119.9, 58.4), 90.2, 0.1);
}
