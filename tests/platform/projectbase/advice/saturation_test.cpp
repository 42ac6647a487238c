// SPDX-License-Identifier: MIT
#include "projectbase/advice/saturation.h"

#include "tests/support/advice_waters.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>

using advice::Mineral;
using testing_support::BariumWater;
using testing_support::GroundWater;
using testing_support::RiverWater;
using testing_support::WaterUnderTest;
using water::Species;

namespace {

advice::Saturation Of(WaterUnderTest water)
{
    return advice::SaturationOf(water.Details());
}

/// As SaturationOf asks, to look behind it.
advice::SaturationSample SampleOf(WaterUnderTest& water)
{
    return {.pH = water["ph"],
            .celsius = water["temp"],
            .alkalinity = water["alkalinity.m"],
            .composition = water::WholeComposition(water.Details())};
}

double WithoutPairs(WaterUnderTest water, Mineral mineral)
{
    return SaturationIndex(mineral, FreeIonsOf(SampleOf(water), false), water["temp"]);
}

}  // namespace

TEST(Saturation, SolubilitiesAreThoseOfTheTables)
{
    struct Row
    {
        Mineral mineral;
        std::array<double, 5> logK;  // at 0, 10, 25, 40 and 60 °C
    };
    constexpr std::array<double, 5> kCelsius{0.0, 10.0, 25.0, 40.0, 60.0};
    const Row rows[]{
        {Mineral::Calcite, {-8.381, -8.410, -8.480, -8.580, -8.759}},
        {Mineral::Aragonite, {-8.218, -8.255, -8.336, -8.446, -8.638}},
        {Mineral::Gypsum, {-4.617, -4.591, -4.581, -4.598, -4.654}},
        {Mineral::Anhydrite, {-4.366, -4.336, -4.361, -4.457, -4.672}},
        {Mineral::Barite, {-10.480, -10.246, -9.970, -9.772, -9.607}},
        {Mineral::Celestite, {-6.703, -6.631, -6.632, -6.689, -6.795}},
        {Mineral::Fluorite, {-10.958, -10.797, -10.600, -10.448, -10.303}},
    };
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < kCelsius.size(); ++i)
            EXPECT_NEAR(LogSolubility(row.mineral, kCelsius[i]), row.logK[i], 0.0011)
                << static_cast<int>(row.mineral) << " " << kCelsius[i];
    }
    EXPECT_TRUE(std::isnan(LogSolubility(Mineral::Calcite, 120.0)));
    const std::pair<double, double> silica[]{
        {0.0, 69.8}, {10.0, 86.8}, {25.0, 117.0}, {40.0, 153.3}, {60.0, 211.7}};
    for (const auto& [celsius, solubility] : silica)
        EXPECT_NEAR(advice::SilicaSolubility(celsius, 4.0, 0.0), solubility, 0.1) << celsius;
    EXPECT_NEAR(advice::SilicaSolubility(25.0, 9.831, 0.0), 2.0 * 117.0, 0.5)
        << "half of it has given off H+";
    EXPECT_NEAR(advice::SilicaSolubility(25.0, 9.5, 0.0) / 117.0, 1.47, 0.02);
}

TEST(Saturation, OfPublishedWaters)
{
    constexpr double kTolerance = 0.03;
    const advice::Saturation ground = Of(GroundWater());
    EXPECT_NEAR(ground.langelier, 0.91, kTolerance);
    EXPECT_NEAR(ground.langelierByHand, 0.98, kTolerance);
    EXPECT_NEAR(ground.pHs, 7.84 - 0.91, kTolerance);
    EXPECT_NEAR(ground.ryznar, 7.84 - 2.0 * 0.91, 2.0 * kTolerance);
    EXPECT_NEAR(ground.Index(Mineral::Gypsum), -1.20, kTolerance);
    EXPECT_NEAR(WithoutPairs(GroundWater(), Mineral::Gypsum), -1.04, kTolerance);
    EXPECT_NEAR(ground.silica, -0.73, 0.01);
    EXPECT_NEAR(ground.silicaPercent, 18.4, 0.4);
    EXPECT_FALSE(ground.isBeyondDavies);

    const advice::Saturation cool = Of(GroundWater(10.0));
    EXPECT_NEAR(cool.langelier, 0.70, kTolerance);
    EXPECT_NEAR(cool.langelierByHand, 0.76, kTolerance);
    EXPECT_NEAR(cool.Index(Mineral::Gypsum), -1.15, kTolerance);
    EXPECT_NEAR(WithoutPairs(GroundWater(10.0), Mineral::Gypsum), -1.02, kTolerance);

    const advice::Saturation barium = Of(BariumWater());
    EXPECT_NEAR(barium.langelier, 0.34, kTolerance);
    EXPECT_NEAR(barium.langelierByHand, 0.39, kTolerance);
    EXPECT_NEAR(barium.Index(Mineral::Barite), 0.63, kTolerance);
    EXPECT_NEAR(WithoutPairs(BariumWater(), Mineral::Barite), 0.70, kTolerance);
    EXPECT_NEAR(barium.Index(Mineral::Celestite), -1.98, kTolerance);
    EXPECT_NEAR(WithoutPairs(BariumWater(), Mineral::Celestite), -1.88, kTolerance);
    EXPECT_TRUE(std::isnan(barium.Index(Mineral::Fluorite))) << "no fluoride was found";

    const advice::Saturation river = Of(RiverWater());
    EXPECT_NEAR(river.langelier, -0.92, kTolerance);
    EXPECT_NEAR(river.langelierByHand, -0.91, kTolerance);
    EXPECT_LT(river.langelierSimplified, river.langelier) << "as it does of fresh waters";
    EXPECT_NEAR(river.langelierSimplified, river.langelier, 0.3);
}

TEST(Saturation, SimplifiedFormIsThePrintedOne)
{
    EXPECT_NEAR(advice::SimplifiedSaturationPh(316.0, 25.0, 151.0, 34.0), 8.23, 0.02);
    EXPECT_NEAR(advice::SimplifiedSaturationPh(316.0, 82.0, 151.0, 34.0), 7.23, 0.02);
}

TEST(Saturation, LangelierIsTheIndexOfCalcite)
{
    // Whatever the water: both are the same algebra.
    std::mt19937 random(7);
    const auto between = [&random](double low, double high) {
        return std::uniform_real_distribution<>(low, high)(random);
    };
    for (int i = 0; i < 300; ++i) {
        advice::SaturationSample sample{.pH = between(5.0, 10.0),
                                        .celsius = between(0.0, 90.0),
                                        .alkalinity = between(0.5, 10.0),
                                        .composition = {}};
        for (const Species ion :
             {Species::Ca, Species::Mg, Species::Na, Species::So4, Species::Cl, Species::F})
            sample.composition[ion] = between(0.01, 8.0);
        for (const bool withPairs : {false, true}) {
            const advice::FreeIons free = FreeIonsOf(sample, withPairs);
            ASSERT_TRUE(free.converged) << i;
            const double langelier = sample.pH - SaturationPh(free, sample.celsius);
            if (free.bicarbonate > 0.0) {
                EXPECT_NEAR(langelier, SaturationIndex(Mineral::Calcite, free, sample.celsius), 1e-9) << i;
            }
        }
    }
}

TEST(Saturation, EveryWaterHasAStateOrNone)
{
    std::mt19937 random(11);
    const auto oneOf = [&random](std::initializer_list<double> values) {
        return *(values.begin() + std::uniform_int_distribution<std::ptrdiff_t>(
                                      0, static_cast<std::ptrdiff_t>(values.size()) - 1)(random));
    };
    for (int i = 0; i < 2000; ++i) {
        advice::SaturationSample sample{
            .pH = oneOf({-1.0, 0.0, 2.0, 4.3, 7.0, 8.3, 11.0, 14.0, std::nan("")}),
            .celsius = oneOf({-5.0, 0.0, 20.0, 60.0, 100.0, 200.0}),
            .alkalinity = oneOf({-1000.0, -1.0, 0.0, 1.0, 100.0, 5000.0}),
            .composition = {}};
        for (double& amount : sample.composition.amounts)
            amount = oneOf({0.0, 0.0, 1e-9, 0.1, 5.0, 300.0, 5000.0});
        const advice::FreeIons free = FreeIonsOf(sample, true);
        const bool isPossible = sample.pH >= 0.0 && sample.celsius >= 0.0 && sample.celsius <= 100.0;
        if (!isPossible) {
            EXPECT_FALSE(free.converged);
            continue;
        }
        for (const double amount : {free.calcium, free.sulfate, free.fluoride, free.bicarbonate,
                                    free.carbonate, free.ionicStrength})
            EXPECT_TRUE(std::isfinite(amount) && amount >= 0.0) << i;
        EXPECT_LE(free.calcium, 1e-3 * sample.composition[Species::Ca] * (1.0 + 1e-9)) << i;
        EXPECT_LE(free.sulfate, 1e-3 * sample.composition[Species::So4] * (1.0 + 1e-9)) << i;
    }
}

TEST(Saturation, PairsAndBrineLowerActivities)
{
    advice::SaturationSample sulfate{.pH = 7.0, .celsius = 25.0, .alkalinity = 1.0, .composition = {}};
    sulfate.composition[Species::Na] = 20.0;
    sulfate.composition[Species::So4] = 10.0;
    sulfate.composition[Species::Sr] = 0.001;
    const advice::FreeIons free = FreeIonsOf(sulfate, true);
    const double bound = std::pow(10.0, 2.29 + 8.0 * free.logGamma) * free.sulfate;
    EXPECT_NEAR(free.strontium, 1e-6 / (1.0 + bound), 1e-12);
    sulfate.composition[Species::F] = 0.001;
    sulfate.composition[Species::Mg] = 5.0;
    const advice::FreeIons fluoride = FreeIonsOf(sulfate, true);
    EXPECT_LT(fluoride.fluoride, 0.93e-6) << "MgF+ holds the rest";
    EXPECT_GT(fluoride.fluoride, 0.85e-6);

    advice::SaturationSample brine{.pH = 7.0, .celsius = 25.0, .alkalinity = 1.0, .composition = {}};
    brine.composition[Species::Na] = brine.composition[Species::Cl] = 3000.0;
    brine.composition[Species::Ca] = brine.composition[Species::So4] = 1.0;
    const advice::FreeIons salty = FreeIonsOf(brine, true);
    const double difference = SaturationIndex(Mineral::Gypsum, salty, 25.0) -
                              SaturationIndex(Mineral::Anhydrite, salty, 25.0) +
                              LogSolubility(Mineral::Gypsum, 25.0) - LogSolubility(Mineral::Anhydrite, 25.0);
    EXPECT_NEAR(difference, 2.0 * std::log10(1.0 - 0.017 * 6.0), 0.001) << "water binds to gypsum";
}

TEST(Saturation, MoreOfAnIonNeverLowersItsIndex)
{
    double before = -100.0;
    for (const double calcium : {1.0, 10.0, 50.0, 100.0, 200.0, 400.0}) {
        WaterUnderTest water = GroundWater();
        water.Type("ca", calcium, "mg/l").Update();
        const double index = advice::SaturationOf(water.Details()).Index(Mineral::Gypsum);
        EXPECT_GT(index, before) << calcium;
        before = index;
    }
}

TEST(Saturation, WhatIsMissingLeavesNothing)
{
    WaterUnderTest noPh = GroundWater();
    noPh.Set("ph", std::nan("")).Update();
    EXPECT_TRUE(std::isnan(Of(std::move(noPh)).langelier));
    WaterUnderTest noCalcium = GroundWater();
    noCalcium.Type("ca", 0.0, "mg/l").Update();
    const advice::Saturation soft = Of(std::move(noCalcium));
    EXPECT_TRUE(std::isnan(soft.langelier) && std::isnan(soft.Index(Mineral::Gypsum)));
    EXPECT_FALSE(std::isnan(soft.silica));
    WaterUnderTest noSilica = GroundWater();
    noSilica.Type("sio2", 0.0, "mg/l").Update();
    EXPECT_TRUE(std::isnan(Of(std::move(noSilica)).silicaPercent));
    WaterUnderTest hot = GroundWater(95.0);
    EXPECT_TRUE(std::isnan(Of(std::move(hot)).langelier)) << "beyond the range of the constants";
    WaterUnderTest shortened = GroundWater();
    shortened.Set("analysis.type", "SHORT_TDS").Set("tds.short", 500.0).Update();
    EXPECT_TRUE(std::isnan(Of(std::move(shortened)).langelier));

    WaterUnderTest sea = GroundWater();
    sea.Type("na", 480.0, "meq/l").Type("cl", 480.0, "meq/l").Update();
    EXPECT_TRUE(Of(std::move(sea)).isBeyondDavies);
}
