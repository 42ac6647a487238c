// SPDX-License-Identifier: MIT
#include "projectbase/design/regenerants.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

TEST(Regenerants, DensitiesAreLinearBetweenThePointsFromWaterOn)
{
    struct Case
    {
        const char* key;
        double percent;
        double density;
    };
    const Case cases[] = {
        {"HCL", 0, 0.9982},  {"HCL", 2, 1.0081},   {"HCL", 5, 1.0230},   {"HCL", 20, 1.098},
        {"HCL", 33, 1.164},  {"H2SO4", 3, 1.0185}, {"H2SO4", 97, 1.836}, {"NAOH", 4.5, 1.0485},
        {"NAOH", 50, 1.525}, {"NACL", 9, 1.0635},  {"NA2CO3", 5, 1.050}, {"NH3", 3.5, 0.9835},
    };
    for (const auto& [key, percent, density] : cases) {
        const design::Regenerant* regenerant = design::FindRegenerant(key);
        ASSERT_NE(regenerant, nullptr) << key;
        EXPECT_NEAR(design::SolutionDensity(*regenerant, percent), density, 1e-9) << key << " " << percent;
    }
}

TEST(Regenerants, NothingIsInventedBeyondTheTable)
{
    constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(design::FindRegenerant("hcl"), nullptr);
    const design::Regenerant& acid = *design::FindRegenerant("HCL");
    for (const double percent : {-0.1, 33.1, 100.0, kUnknown}) {
        EXPECT_TRUE(std::isnan(design::SolutionDensity(acid, percent))) << percent;
        EXPECT_TRUE(std::isnan(design::SolutionVolume(acid, 1.0, percent))) << percent;
    }
    EXPECT_TRUE(std::isnan(design::SolutionVolume(acid, 1.0, 0.0)));
    EXPECT_TRUE(std::isnan(design::SolutionVolume(acid, kUnknown, 5.0)));
    EXPECT_TRUE(std::isnan(design::SolutionVolume(acid, -1.0, 5.0)));
    EXPECT_EQ(design::SolutionVolume(acid, 0.0, 5.0), 0.0);
}

TEST(Regenerants, VolumeOfASolutionHoldsTheChemical)
{
    // 65.33 kg of 100 % acid at 5 % and 1.0230 kg/l.
    EXPECT_NEAR(design::SolutionVolume(*design::FindRegenerant("HCL"), 65.3333, 5.0), 1.27729, 1e-5);
    // Sulfuric acid of 96 %.
    EXPECT_NEAR(design::SolutionVolume(*design::FindRegenerant("H2SO4"), 100.0, 96.0), 0.056735, 1e-6);
}

}  // namespace
