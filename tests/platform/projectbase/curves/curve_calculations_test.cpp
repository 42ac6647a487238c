// SPDX-License-Identifier: MIT
#include "projectbase/curves/curve_calculations.h"

#include "projectbase/curves/solution_viscosity.h"
#include "projectbase/design/plant_design.h"
#include "projectbase/project/iex_project.h"
#include "tests/support/plant_fixture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using namespace curve_calculations;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

Temperature Celsius(double value)
{
    return {value, TemperatureUnit::Celsius};
}

TEST(SolutionViscosity, IsThatOfTheHandbooks)
{
    struct Case
    {
        const char* regenerant;
        double percent;
        double celsius;
        double expected;  ///< mPa s
    };
    // Handbook of Chemistry and Physics, concentrative properties of aqueous solutions at 20 °C.
    for (const auto& [regenerant, percent, celsius, expected] :
         {Case{"NACL", 5, 20, 1.080}, Case{"NACL", 10, 20, 1.193}, Case{"NACL", 20, 20, 1.557},
          Case{"HCL", 10, 20, 1.16}, Case{"HCL", 20, 20, 1.36}, Case{"H2SO4", 10, 20, 1.23},
          Case{"NAOH", 10, 20, 1.83}, Case{"NACL", 0, 20, 1.0016}})
        EXPECT_NEAR(SolutionViscosity(regenerant, percent, celsius) * 1e3, expected, 0.04 * expected)
            << regenerant << percent;
    for (const auto& [regenerant, percent, celsius] : {std::tuple{"NH3", 5.0, 20.0},
                                                       {"HCL", 5.0, 60.0},
                                                       {"HCL", 5.0, 5.0},
                                                       {"NACL", 27.0, 20.0},
                                                       {"NACL", -1.0, 20.0},
                                                       {"NACL", kNaN, 20.0},
                                                       {"NACL", 5.0, kNaN}})
        EXPECT_TRUE(std::isnan(SolutionViscosity(regenerant, percent, celsius))) << regenerant << celsius;
}

TEST(Curves, TakeTheViscosityThatWasGivenElseThatOfTheMedium)
{
    const design::Liquid water = design::WaterAt(10);
    const design::Liquid alone = LiquidOf(MEDIUM::Water, Celsius(10));
    EXPECT_EQ(alone.density, water.density);
    EXPECT_DOUBLE_EQ(alone.viscosity, water.viscosity);
    const design::Liquid open =
        LiquidOf(MEDIUM::Water, std::tuple(Temperature(50, TemperatureUnit::Fahrenheit), Viscosity()));
    EXPECT_NEAR(open.viscosity, water.viscosity, 1e-9);
    const design::Liquid given = LiquidOf(MEDIUM::Water, std::tuple(Celsius(10), Viscosity(2.5)));
    EXPECT_DOUBLE_EQ(given.viscosity, 2.5e-3);
    EXPECT_EQ(given.density, water.density);
    const design::Liquid brine = LiquidOf(MEDIUM::SodiumChloride, Celsius(20));
    EXPECT_NEAR(brine.density, 1071, 1);
    EXPECT_NEAR(brine.viscosity, 1.19e-3, 0.02e-3);
    for (const MediumKind& medium : Media())
        EXPECT_GT(LiquidOf(medium.medium, Celsius(25)).viscosity, 0.0) << medium.name;
    EXPECT_TRUE(std::isnan(LiquidOf(MEDIUM::Water, Celsius(-5)).viscosity));
    EXPECT_FALSE(Viscosity(0.0).IsKnown());
}

TEST(Curves, AreTheFormulasOfTheDesign)
{
    const design::Resin& cation = *design::FindResin("sac_gel");
    const design::Resin& anion = *design::FindResin("sba_1");
    struct Case
    {
        DIAGRAM_TYPE type;
        const design::Resin* resin;
        double celsius;
        double velocity;
        double expected;
        double tolerance;
    };
    for (const auto& [type, resin, celsius, velocity, expected, tolerance] :
         {Case{DIAGRAM_TYPE::PressureDrop, &cation, 20, 30, 0.267, 6e-4},
          Case{DIAGRAM_TYPE::PressureDrop, &cation, 10, 40, 0.464, 6e-4},
          Case{DIAGRAM_TYPE::BedExpansion, &cation, 20, 15, 45, 0.6},
          Case{DIAGRAM_TYPE::BedExpansion, &anion, 10, 8, 109, 0.6}}) {
        const Curve curve = CurveOf(type, *resin, design::WaterAt(celsius), 0, 2 * velocity);
        ASSERT_EQ(curve.velocities.size(), curve.values.size());
        const std::size_t middle = curve.values.size() / 2;
        EXPECT_NEAR(curve.velocities[middle], velocity, 1e-9);
        EXPECT_NEAR(curve.values[middle], expected, tolerance);
        EXPECT_EQ(curve.velocities.back(), 2 * velocity);
    }
    EXPECT_TRUE(CurveOf(DIAGRAM_TYPE::PressureDrop, cation, design::WaterAt(20), kNaN, 10).values.empty());
    EXPECT_TRUE(
        CurveOf(DIAGRAM_TYPE::PressureDrop, cation, design::WaterAt(20), -1e308, 1e308).values.empty());
    // Backwards, and where there is no velocity.
    const Curve curve = CurveOf(DIAGRAM_TYPE::PressureDrop, cation, design::WaterAt(20), 10, -10);
    EXPECT_EQ(curve.velocities.front(), 10.0);
    EXPECT_GT(curve.values.front(), 0.0);
    EXPECT_TRUE(std::isnan(curve.values.back()));
}

TEST(Curves, EndWhereADiagramIsStillOfInterest)
{
    for (const design::Resin& resin : design::Resins()) {
        EXPECT_EQ(UsualEnd(DIAGRAM_TYPE::PressureDrop, resin), resin.maxVelocity) << resin.key;
        const double end = UsualEnd(DIAGRAM_TYPE::BedExpansion, resin);
        EXPECT_TRUE(end >= 5.0 && end <= 60.0) << resin.key << " " << end;
        EXPECT_GT(ValueAt(DIAGRAM_TYPE::BedExpansion, end - 4.9, resin, design::WaterAt(20)), 0.0 - 1e-9)
            << resin.key;
    }
}

TEST(Curves, MarkWhereTheExchangersWork)
{
    iex::IEXProject project("DEMI");
    support::SetWater(project, {{"ca", 3.0}, {"na", 1.0}, {"cl", 2.0}, {"hco3", 2.0}}, 12.0);
    support::SetFlow(project);
    const design::PlantDesign plant = design::DesignOf(project);
    std::size_t marked = 0;
    for (const design::ExchangerDesign& exchanger : plant.exchangers) {
        if (exchanger.compartments.empty())
            continue;
        const design::Resin& resin = *exchanger.compartments[0].resin;
        for (const DesignPoint& point : DesignPoints(DIAGRAM_TYPE::PressureDrop, resin, project)) {
            if (point.exchanger != exchanger.node)
                continue;
            ++marked;
            EXPECT_EQ(point.velocity, exchanger.velocity);
            // Of one compartment, the gradient times the depth is what the design says.
            EXPECT_NEAR(point.value * exchanger.depth, exchanger.pressureDrop, 1e-9);
            EXPECT_NEAR(point.temperature.In(TemperatureUnit::Celsius), 12.0, 1e-9);
        }
        for (const DesignPoint& point : DesignPoints(DIAGRAM_TYPE::BedExpansion, resin, project)) {
            if (point.exchanger != exchanger.node)
                continue;
            ++marked;
            EXPECT_NEAR(point.value, exchanger.expansion, 1e-9);
        }
    }
    EXPECT_GE(marked, 4U);
    EXPECT_TRUE(
        DesignPoints(DIAGRAM_TYPE::PressureDrop, *design::FindResin("sac_gel"), iex::IEXProject()).empty());
}

}  // namespace
