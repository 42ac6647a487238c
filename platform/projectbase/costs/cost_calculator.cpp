// SPDX-License-Identifier: MIT
#include "projectbase/costs/cost_calculator.h"

#include <cmath>
#include <stdexcept>

namespace iex {

namespace {

double Value(const CostMap& map, const char* name)
{
    const auto found = map.find(name);
    if (found == map.end())
        throw std::out_of_range("invalid map<K, T> key");
    return found->second.first;
}

double SumOfLines(const CostMap& map)
{
    double sum = 0.0;
    for (const auto& [name, line] : map) {
        if (name.find(".total") == std::string::npos)
            sum += line.second * line.first;
    }
    return sum;
}

/// For a m³ of what the system makes in a year.
double PerVolume(const CostMap& map, double cost)
{
    const double capacity = Value(map, "systemNetCapacity");
    return capacity <= 0.0 ? 0.0 : cost / capacity;
}

}  // namespace

double IRXCostCalculator::calcSystemTotal(const CostMap& map) const
{
    return SumOfLines(map);
}

double IRXCostCalculator::calcCapProdWater(const CostMap& map) const
{
    return PerVolume(map, Value(map, "capTotal"));
}

double IRXCostCalculator::calcOpProdWater(const CostMap& map) const
{
    return PerVolume(map, Value(map, "opTotal"));
}

double IRXCostCalculator::calcTotalProdWater(const CostMap& map) const
{
    return PerVolume(map, Value(map, "opTotal") + Value(map, "capTotal"));
}

double IRXCostCalculator::calcOpCost(const CostMap& map) const
{
    return SumOfLines(map) + Value(map, "servWater");
}

double IRXCostCalculator::calcAnnualOpCost(const CostMap& map) const
{
    constexpr double kDays = 365.0;
    return PerVolume(map, Value(map, "opTotal")) * (Value(map, "systemCapacity") * kDays);
}

double IRXCostCalculator::calcNpv(const CostMap& map) const
{
    const double annual = Value(map, "annualOperatingCost");
    const double life = Value(map, "plantLife");
    const double interest = Value(map, "interestRate");
    const double escalation = Value(map, "operEscalation");
    const double difference = interest - escalation;
    if (difference == 0.0)
        return annual * life / (1.0 + interest);
    return annual * (1.0 - std::pow(1.0 + escalation, life) / std::pow(1.0 + interest, life)) / difference;
}

}  // namespace iex
