// SPDX-License-Identifier: MIT
#include "projectbase/water/water_properties.h"

#include "projectbase/water/carbonic_acid.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

struct Point
{
    double celsius, value;
};

template <std::size_t N>
void ExpectCurve(const char* name, double (*function)(double), const Point (&points)[N], double tolerance)
{
    for (const auto& point : points)
        EXPECT_NEAR(function(point.celsius), point.value, tolerance)
            << name << " at " << point.celsius << " \u00b0C";
}

}  // namespace

TEST(WaterProperties, AgreeWithPublishedTables)
{
    ExpectCurve("density", water::Density,
                {{0, 999.840}, {10, 999.700}, {20, 998.204}, {25, 997.045}, {40, 992.216}}, 1.5e-3);
    ExpectCurve("viscosity", water::Viscosity,
                {{0, 1791.8e-6},
                 {5, 1518.2e-6},
                 {10, 1305.9e-6},
                 {15, 1137.5e-6},
                 {20, 1001.6e-6},
                 {25, 890.0e-6},
                 {30, 797.2e-6},
                 {40, 652.7e-6},
                 {50, 546.5e-6},
                 {60, 466.0e-6}},
                0.06e-6);
    ExpectCurve("permittivity", water::Permittivity, {{0, 87.93}, {20, 80.19}, {25, 78.37}, {60, 66.8}},
                0.03);
    ExpectCurve("Debye-H\u00fcckel A", water::DebyeHueckelA,
                {{0, 0.4902}, {10, 0.4977}, {20, 0.5058}, {25, 0.5101}, {40, 0.5239}, {60, 0.5448}}, 1.5e-4);
    ExpectCurve(
        "pKw", water::IonicProductExponent,
        {{0, 14.941}, {10, 14.533}, {20, 14.165}, {25, 13.995}, {30, 13.833}, {40, 13.532}, {60, 13.016}},
        6e-4);
    // Two authors meet at 60 °C; the values at 75 and 100 °C are those of the steam tables.
    EXPECT_NEAR(water::IonicProductExponent(60.0), water::IonicProductExponent(60.0 + 1e-9), 1e-8);
    EXPECT_NEAR(water::IonicProductExponent(75.0), 12.70, 0.02);
    EXPECT_NEAR(water::IonicProductExponent(100.0), 12.26, 0.02);
}

TEST(WaterProperties, AreUnknownWhereThereIsNoLiquidWater)
{
    for (const double celsius : {-0.01, 100.01, -273.15, 1e9, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_TRUE(std::isnan(water::Density(celsius))) << celsius;
        EXPECT_TRUE(std::isnan(water::Viscosity(celsius))) << celsius;
        EXPECT_TRUE(std::isnan(water::Permittivity(celsius))) << celsius;
        EXPECT_TRUE(std::isnan(water::DebyeHueckelA(celsius))) << celsius;
        EXPECT_TRUE(std::isnan(water::IonicProductExponent(celsius))) << celsius;
        EXPECT_TRUE(std::isnan(water::CarbonicConstantsAt(celsius).pK1)) << celsius;
        EXPECT_TRUE(std::isnan(water::CarbonicEquilibrium(7.0, celsius, 0.0).BicarbonateFromTotal(1.0)));
    }
}

TEST(WaterProperties, DaviesCoefficientsAgreeWithTheFormula)
{
    // log γ of a monovalent ion at 25 °C; measured mean coefficient of NaCl: 0.902 at 0.01, 0.821 at 0.05
    // mol/kg.
    const double a = water::DebyeHueckelA(25.0);
    EXPECT_EQ(water::LogActivityOfUnitCharge(0.0, a), 0.0);
    EXPECT_NEAR(std::pow(10.0, water::LogActivityOfUnitCharge(0.01, a)), 0.902, 0.003);
    EXPECT_NEAR(std::pow(10.0, water::LogActivityOfUnitCharge(0.05, a)), 0.821, 0.003);
    EXPECT_EQ(water::LogActivityOfUnitCharge(20.0, a), 0.0)
        << "beyond its range the formula must not run away";
    EXPECT_TRUE(std::isnan(water::LogActivityOfUnitCharge(std::nan(""), a)));
}

TEST(CarbonicAcid, ConstantsAgreeWithPublishedTable)
{
    struct Row
    {
        double celsius, pK1, pK2, pKH;
    };
    constexpr Row kRows[]{
        {0, 6.5786, 10.6286, 1.1084},  {5, 6.5163, 10.5544, 1.1921},  {10, 6.4633, 10.4879, 1.2694},
        {15, 6.4188, 10.4284, 1.3408}, {20, 6.3819, 10.3756, 1.4069}, {25, 6.3519, 10.3289, 1.4679},
        {30, 6.3281, 10.2879, 1.5244}, {40, 6.2974, 10.2217, 1.6249}, {60, 6.2903, 10.1438, 1.7840},
    };
    for (const auto& row : kRows) {
        const auto constants = water::CarbonicConstantsAt(row.celsius);
        EXPECT_NEAR(constants.pK1, row.pK1, 1.5e-4) << row.celsius;
        EXPECT_NEAR(constants.pK2, row.pK2, 1.5e-4) << row.celsius;
        EXPECT_NEAR(constants.pKH, row.pKH, 1.5e-4) << row.celsius;
    }
}

TEST(CarbonicAcid, PureWaterUnderAirIsSlightlyAcid)
{
    // 420 ppm of CO2 in air: 0.63 mg/l dissolve at 25 °C, and the charge balance H+ = HCO3- gives pH 5.60.
    const double co2 = 1e3 * 420e-6 * std::pow(10.0, -water::CarbonicConstantsAt(25.0).pKH);
    EXPECT_NEAR(co2 * 44.009, 0.63, 0.005);
    EXPECT_NEAR(water::CarbonicEquilibrium(5.60, 25.0, 0.0).BicarbonateFromCo2(co2),
                water::DissociationFromPh(5.60, 25.0, 0.0).hydrogen, 5e-5);
}

TEST(CarbonicAcid, FormsBelongTogether)
{
    for (const double celsius : {5.0, 25.0, 60.0}) {
        for (const double pH : {4.5, 6.4, 7.5, 8.3, 10.0, 12.0}) {
            constexpr double kStrength = 0.008;
            constexpr double kBicarbonate = 3.3;
            const water::CarbonicEquilibrium forms(pH, celsius, kStrength);
            const double co2 = forms.Co2FromBicarbonate(kBicarbonate);
            const double carbonate = forms.CarbonateFromBicarbonate(kBicarbonate);
            EXPECT_NEAR(forms.BicarbonateFromCo2(co2), kBicarbonate, 1e-10);
            EXPECT_NEAR(forms.BicarbonateFromForms(kBicarbonate + 2.0 * carbonate), kBicarbonate, 1e-10)
                << pH;
            EXPECT_NEAR(forms.BicarbonateFromTotal(co2 + kBicarbonate + carbonate), kBicarbonate, 1e-10)
                << pH;
        }
    }
    EXPECT_TRUE(std::isnan(water::CarbonicEquilibrium(std::nan(""), 25.0, 0.0).Co2FromBicarbonate(1.0)));
}

TEST(CarbonicAcid, WaterIonsFollowPhAndTemperature)
{
    const auto neutral = water::DissociationFromPh(6.9975, 25.0, 0.0);
    EXPECT_NEAR(neutral.hydrogen, neutral.hydroxide, 1e-6);
    EXPECT_NEAR(neutral.hydrogen, 1.006e-4, 1e-6);
    // At 0.1 mol/l the activity coefficient of either is 0.78, so more of both ions are there at the same pH.
    const auto salty = water::DissociationFromPh(3.0, 25.0, 0.1);
    EXPECT_NEAR(salty.hydrogen, 1.0 / 0.781, 0.01);
    EXPECT_NEAR(salty.hydroxide * salty.hydrogen * 0.781 * 0.781, 1e6 * std::pow(10.0, -13.995), 2e-10);
}
