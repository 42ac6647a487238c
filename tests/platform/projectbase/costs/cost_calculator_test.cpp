// SPDX-License-Identifier: MIT
#include "projectbase/costs/cost_calculator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <stdexcept>

namespace {

using iex::CostMap;

/// A whole map: two lines, a sum that must not be counted, and every named value.
CostMap Whole()
{
    return {{"cost/cc.cost.resin1", {2.5, 4000.0}},
            {"cost/op.cost.regen1", {65.33, 0.45}},
            {"cost/all.total", {10.0, 1000.0}},
            {"capTotal", {120000.0, 0.0}},
            {"opTotal", {36500.0, 0.0}},
            {"systemNetCapacity", {146000.0, 0.0}},
            {"systemCapacity", {400.0, 0.0}},
            {"servWater", {12.5, 0.0}},
            {"operEscalation", {0.02, 0.0}},
            {"plantLife", {20.0, 0.0}},
            {"interestRate", {0.05, 0.0}},
            {"annualOperatingCost", {36500.0, 0.0}}};
}

CostMap With(const std::string& name, double value)
{
    CostMap map = Whole();
    map[name].first = value;
    return map;
}

TEST(CostCalculator, FormulasGiveWhatAHandCalculates)
{
    const iex::IRXCostCalculator calculator;
    const CostMap map = Whole();
    EXPECT_NEAR(calculator.calcSystemTotal(map), 10000.0 + 29.3985, 1e-9);
    EXPECT_NEAR(calculator.calcOpCost(map), 10000.0 + 29.3985 + 12.5, 1e-9);
    EXPECT_NEAR(calculator.calcCapProdWater(map), 0.821917808, 1e-9);
    EXPECT_NEAR(calculator.calcOpProdWater(map), 0.25, 1e-12);
    EXPECT_NEAR(calculator.calcTotalProdWater(map), 1.071917808, 1e-9);
    EXPECT_NEAR(calculator.calcAnnualOpCost(map), 36500.0, 1e-9);
    // 36,500 · (1 − (1.02/1.05)^20) / 0.03
    EXPECT_NEAR(calculator.calcNpv(map), 535287.166, 0.01);
    EXPECT_EQ(iex::IRXCostCalculator(calculator).calcNpv(map), calculator.calcNpv(map));
}

TEST(CostCalculator, PresentValueAtItsLimits)
{
    const iex::IRXCostCalculator calculator;
    EXPECT_DOUBLE_EQ(calculator.calcNpv(With("interestRate", 0.02)), 36500.0 * 20.0 / 1.02);
    // Near that point both branches agree.
    EXPECT_NEAR(calculator.calcNpv(With("interestRate", 0.02 + 1e-9)), 36500.0 * 20.0 / 1.02, 1.0);
    EXPECT_EQ(calculator.calcNpv(With("plantLife", 0.0)), 0.0);
    EXPECT_EQ(calculator.calcNpv(With("annualOperatingCost", 0.0)), 0.0);
    EXPECT_TRUE(
        std::isnan(calculator.calcNpv(With("interestRate", std::numeric_limits<double>::quiet_NaN()))));
    EXPECT_FALSE(std::isfinite(calculator.calcNpv(With("interestRate", -1.0))));
}

TEST(CostCalculator, WithoutCapacityThereIsNoCostOfWater)
{
    const iex::IRXCostCalculator calculator;
    for (const double capacity : {0.0, -1.0}) {
        const CostMap map = With("systemNetCapacity", capacity);
        EXPECT_EQ(calculator.calcCapProdWater(map), 0.0);
        EXPECT_EQ(calculator.calcOpProdWater(map), 0.0);
        EXPECT_EQ(calculator.calcTotalProdWater(map), 0.0);
        EXPECT_EQ(calculator.calcAnnualOpCost(map), 0.0);
    }
}

TEST(CostCalculator, WhatIsMissingIsNamedByAnException)
{
    const iex::IRXCostCalculator calculator;
    using Formula = double (iex::IRXCostCalculator::*)(const CostMap&) const;
    const struct
    {
        Formula formula;
        std::vector<const char*> names;
    } needs[] = {
        {&iex::IRXCostCalculator::calcCapProdWater, {"capTotal", "systemNetCapacity"}},
        {&iex::IRXCostCalculator::calcOpProdWater, {"opTotal", "systemNetCapacity"}},
        {&iex::IRXCostCalculator::calcTotalProdWater, {"opTotal", "capTotal", "systemNetCapacity"}},
        {&iex::IRXCostCalculator::calcOpCost, {"servWater"}},
        {&iex::IRXCostCalculator::calcAnnualOpCost, {"opTotal", "systemCapacity", "systemNetCapacity"}},
        {&iex::IRXCostCalculator::calcNpv,
         {"annualOperatingCost", "plantLife", "interestRate", "operEscalation"}}};
    for (const auto& [formula, names] : needs) {
        for (const char* name : names) {
            CostMap map = Whole();
            map.erase(name);
            EXPECT_THAT([&] { (calculator.*formula)(map); },
                        testing::ThrowsMessage<std::out_of_range>("invalid map<K, T> key"))
                << name;
        }
    }
    EXPECT_EQ(calculator.calcSystemTotal({}), 0.0);
}

}  // namespace
