// SPDX-License-Identifier: MIT
#include "projectbase/design/capacity.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

design::CapacityInputs Inputs(const char* resin, const char* chemical, double level)
{
    design::CapacityInputs inputs;
    inputs.resin = design::FindResin(resin);
    inputs.chemical = chemical;
    inputs.level = level;
    inputs.typed = kUnknown;
    inputs.temperature = 20.0;
    return inputs;
}

TEST(Capacity, CurvesComeWithinTheFitOfTheTabulatedFigures)
{
    struct Case
    {
        const char* resin;
        const char* chemical;
        bool counter;
        double level;
        double capacity;
    };
    const Case cases[] = {
        {"sac_gel", "NACL", false, 96, 0.92},  {"sac_gel", "NACL", false, 240, 1.37},
        {"sac_gel", "HCL", false, 60, 0.90},   {"sac_gel", "HCL", false, 120, 1.26},
        {"sac_gel", "HCL", true, 40, 0.85},    {"sac_gel", "HCL", true, 100, 1.30},
        {"sac_gel", "H2SO4", false, 80, 0.60}, {"sac_gel", "H2SO4", false, 200, 0.98},
        {"sba_1", "NAOH", false, 60, 0.49},    {"sba_1", "NAOH", true, 120, 0.67},
        {"sba_2", "NAOH", false, 40, 0.58},    {"sba_2", "NAOH", true, 100, 0.83},
    };
    for (const Case& each : cases) {
        auto inputs = Inputs(each.resin, each.chemical, each.level);
        inputs.isCounterCurrent = each.counter;
        EXPECT_NEAR(design::OperatingCapacity(inputs).base, each.capacity, 0.025)
            << each.resin << " " << each.chemical << " " << each.level;
    }
}

TEST(Capacity, CounterCurrentWithoutACurveOfItsOwnTakesTheOtherAndSaysSo)
{
    auto inputs = Inputs("sac_gel", "NACL", 100.0);
    const auto co = design::OperatingCapacity(inputs);
    inputs.isCounterCurrent = true;
    const auto counter = design::OperatingCapacity(inputs);
    EXPECT_EQ(counter.value, co.value);
    EXPECT_STRNE(counter.origin, co.origin);
    EXPECT_STREQ(counter.origin, "curve of co-current regeneration, as counter-current has none");
}

TEST(Capacity, EachCorrectionCountsByTheSharesOfItsLoad)
{
    struct Case
    {
        const char* what;
        design::CapacityInputs inputs;
        double factor;
        std::size_t corrections;
    };
    auto sodium = Inputs("sac_gel", "HCL", 60);
    sodium.isHydrogenForm = true;
    sodium.load = {.hardness = 3.0, .monovalent = 1.0};
    auto muchSodium = sodium;
    muchSodium.load.monovalent = 9.0;
    auto softener = sodium;
    softener.isHydrogenForm = false;
    auto sulfuric = sodium;
    sulfuric.chemical = "H2SO4";
    auto anions = Inputs("sba_1", "NAOH", 60);
    anions.load = {.chloride = 1.0, .sulfate = 3.0, .carbon = 5.0, .silica = 1.0, .organics = 10.0};
    auto silica = Inputs("sba_2", "NAOH", 60);
    silica.load = {.silica = 1.0};
    auto cold = Inputs("wba_styrenic", "NAOH", 45);
    cold.temperature = 10.0;
    auto nothing = Inputs("sba_1", "NAOH", 60);
    const Case cases[] = {
        {"a quarter of sodium", sodium, 1.05, 1},
        {"more than half of sodium", muchSodium, 1.10, 1},
        {"a softener takes no sodium", softener, 1.0, 0},
        {"hardness with sulfuric acid", sulfuric, 1.05 * 0.925, 2},
        {"chloride and a little silica", anions, 0.975 * (1.0 - 0.175 * 0.2), 2},
        {"silica alone", silica, 0.825, 1},
        {"cold water", cold, 0.925, 1},
        {"no load", nothing, 1.0, 0},
    };
    for (const auto& [what, inputs, factor, corrections] : cases) {
        const auto capacity = design::OperatingCapacity(inputs);
        EXPECT_NEAR(capacity.value / capacity.base, factor, 1e-12) << what;
        double product = 1.0;
        for (const design::Correction& correction : capacity.Corrections())
            product *= correction.factor;
        EXPECT_NEAR(product, factor, 1e-12) << what;
        EXPECT_EQ(capacity.count, corrections) << what;
    }
}

TEST(Capacity, WhatIsTypedIsNotCorrected)
{
    auto inputs = Inputs("sac_gel", "HCL", kUnknown);
    inputs.typed = 1.1;
    inputs.temperature = 5.0;
    inputs.isHydrogenForm = true;
    inputs.load = {.monovalent = 1.0};
    EXPECT_EQ(design::OperatingCapacity(inputs).value, 1.1);
    EXPECT_EQ(design::OperatingCapacity(inputs).count, 0u);
}

TEST(Capacity, WithoutAResinThatSuitsNothingIsKnown)
{
    EXPECT_EQ(design::OperatingCapacity(Inputs("wac_acrylic", "HCL", kUnknown)).value, 1.75);
    design::CapacityInputs cases[] = {Inputs("sac_gel", "HCL", kUnknown), Inputs("sac_gel", "NAOH", 60),
                                      Inputs("wac_acrylic", "NAOH", 60),  Inputs("inert", "HCL", 60),
                                      Inputs("no_such", "HCL", 60),       Inputs("sac_gel", "", 60),
                                      Inputs("sac_gel", "HCL", 60)};
    std::end(cases)[-1].temperature = kUnknown;
    for (const auto& inputs : cases) {
        EXPECT_TRUE(std::isnan(design::OperatingCapacity(inputs).value))
            << (inputs.resin == nullptr ? "none" : inputs.resin->key) << " " << inputs.chemical;
    }
    EXPECT_EQ(design::OperatingCapacity(Inputs("sac_gel", "HCL", 0.0)).value, 0.0);
}

}  // namespace
