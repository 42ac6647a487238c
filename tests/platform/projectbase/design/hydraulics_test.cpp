// SPDX-License-Identifier: MIT
#include "projectbase/design/hydraulics.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
constexpr design::Beads kCation{0.60, 1280.0, 0.38};
constexpr design::Beads kAnion{0.60, 1080.0, 0.38};

TEST(Hydraulics, PressureDropIsErgunsAtTheTemperatureOfTheWater)
{
    struct Case
    {
        double velocity;
        double at20;
        double at10;
    };
    for (const auto& [velocity, at20, at10] :
         {Case{10, 0.0837, 0.108}, Case{20, 0.173, 0.222}, Case{30, 0.267, 0.341}, Case{40, 0.365, 0.464}}) {
        EXPECT_NEAR(design::PressureGradient(velocity, kCation, design::WaterAt(20)), at20, 6e-4) << velocity;
        EXPECT_NEAR(design::PressureGradient(velocity, kCation, design::WaterAt(10)), at10, 6e-4) << velocity;
    }
}

TEST(Hydraulics, BackwashExpandsByRichardsonAndZaki)
{
    struct Case
    {
        design::Beads beads;
        double velocity;
        double at20;
        double at10;
    };
    for (const auto& [beads, velocity, at20, at10] :
         {Case{kCation, 10, 26, 35}, Case{kCation, 15, 45, 58}, Case{kCation, 20, 65, 83},
          Case{kAnion, 5, 47, 64}, Case{kAnion, 8, 81, 109}}) {
        EXPECT_NEAR(design::Expansion(velocity, beads, design::WaterAt(20)), at20, 0.6) << velocity;
        EXPECT_NEAR(design::Expansion(velocity, beads, design::WaterAt(10)), at10, 0.6) << velocity;
    }
}

TEST(Hydraulics, ABedRestsBelowTheFluidisingVelocityAndIsLostFromTheTerminalOneOn)
{
    const design::Liquid water = design::WaterAt(20);
    const double fluidising = design::FluidisingVelocity(kCation, water);
    const double terminal = design::TerminalVelocity(kCation, water);
    // Ar 594, Re 0.358; and Re 16.3 with Cd 2.97.
    EXPECT_NEAR(fluidising, 2.155, 0.005);
    EXPECT_NEAR(terminal, 98.3, 0.2);
    EXPECT_EQ(design::Expansion(0.99 * fluidising, kCation, water), 0.0);
    EXPECT_EQ(design::Expansion(0.0, kCation, water), 0.0);
    EXPECT_GT(design::Expansion(0.99 * terminal, kCation, water), 1000.0);
    for (const double velocity : {terminal, 2.0 * terminal, -1.0, kUnknown})
        EXPECT_TRUE(std::isnan(design::Expansion(velocity, kCation, water))) << velocity;
    // What does not sink has no terminal velocity.
    EXPECT_TRUE(std::isnan(design::Expansion(5.0, {0.6, 990.0, 0.38}, water)));
    EXPECT_TRUE(std::isnan(design::PressureGradient(5.0, kCation, design::WaterAt(kUnknown))));
    EXPECT_TRUE(std::isnan(design::Expansion(5.0, kCation, design::WaterAt(101.0))));
}

TEST(Hydraulics, TheSmallestDiameterKeepsTheVelocity)
{
    // 20 m³/h at 40 m/h need 0.5 m², a diameter of 0.798 m.
    EXPECT_DOUBLE_EQ(design::SmallestDiameter(20.0, 40.0), 0.8);
    EXPECT_DOUBLE_EQ(design::SmallestDiameter(20.0, 39.0), 0.9);
    // One that just keeps it is not passed over for its last digits.
    for (int tenths = 1; tenths < 60; ++tenths) {
        const double diameter = tenths / 10.0;
        EXPECT_DOUBLE_EQ(design::SmallestDiameter(30.0 * design::AreaOf(diameter), 30.0), diameter);
    }
    for (const double none : {0.0, -1.0, kUnknown}) {
        EXPECT_TRUE(std::isnan(design::SmallestDiameter(none, 40.0))) << none;
        EXPECT_TRUE(std::isnan(design::SmallestDiameter(20.0, none))) << none;
    }
}

}  // namespace
