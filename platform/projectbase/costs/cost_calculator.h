// SPDX-License-Identifier: MIT
#pragma once

#include "projectbase/projectbase_export.h"

#include <map>
#include <string>
#include <utility>

namespace iex {

/// What goes into the costs, by name. A line of costs is a quantity and its price, whose name does not hold
/// ".total"; a named value stands in `first`:
///
/// "capTotal" capital cost; "opTotal" operating cost of a year; "systemNetCapacity" net capacity of a year,
/// m³; "systemCapacity" of a day, m³; "servWater" cost of service water; "operEscalation" of the operating
/// cost a year, "interestRate", both as fractions; "plantLife" in years; "annualOperatingCost".
///
/// Named values stand among the lines: their `second` is 0, so that no sum counts them.
using CostMap = std::map<std::string, std::pair<double, double>>;

/// The formulas of the costs. All money is in one currency. A named value that is missing throws
/// std::out_of_range with "invalid map<K, T> key".
class PROJECTBASE_EXPORT IRXCostCalculator
{
public:
    IRXCostCalculator() = default;
    IRXCostCalculator(const IRXCostCalculator&) = default;
    virtual ~IRXCostCalculator() = default;

    /// Σ quantity × price.
    virtual double calcSystemTotal(const CostMap& map) const;
    /// Capital cost for a m³ of a year's product; 0 without a net capacity, as are the next three.
    virtual double calcCapProdWater(const CostMap& map) const;
    /// Operating cost for a m³ of product.
    virtual double calcOpProdWater(const CostMap& map) const;
    virtual double calcTotalProdWater(const CostMap& map) const;
    /// Σ quantity × price, and the service water.
    virtual double calcOpCost(const CostMap& map) const;
    /// Operating cost of 365 days at the system's capacity.
    virtual double calcAnnualOpCost(const CostMap& map) const;
    /// Present value of the operating costs of all years: a growing annuity, A (1 − ((1+e)/(1+i))^L) / (i −
    /// e) (Brealey, Myers, Allen: Principles of Corporate Finance, ch. 2), and A·L/(1+i) where i equals e.
    virtual double calcNpv(const CostMap& map) const;
};

}  // namespace iex
