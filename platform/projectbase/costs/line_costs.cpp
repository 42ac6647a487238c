// SPDX-License-Identifier: MIT
#include "projectbase/costs/line_costs.h"

#include "projectbase/costs/project_costs.h"
#include "projectbase/project/iex_project.h"

namespace costs {

std::map<std::string, double> CapitalCosts(const iex::IEXProject& project)
{
    const bool isDesigned = design::IsDesigned(project);
    std::map<std::string, double> costs;
    for (const auto& [price, line] : CapitalLines(project))
        costs[price] = isDesigned ? line.first * line.second : design::kNotKnown;
    return costs;
}

std::map<std::string, OperatingCost> OperatingCosts(const iex::IEXProject& project)
{
    constexpr double kWhole = 100.0;
    const bool isDesigned = design::IsDesigned(project);
    const iex::IRXCostCalculator calculator;
    const iex::CostMap lines = OperatingLines(project);
    const double total = calculator.calcOpCost(lines);
    const double cycles = CyclesPerYear(project);
    const double capacity = CalculatorMap(project, calculator).at("systemNetCapacity").first;
    std::map<std::string, OperatingCost> costs;
    for (const auto& [name, line] : lines) {
        const bool isService = name == "servWater";
        const double cycle = isService ? line.first : line.first * line.second;
        OperatingCost cost{.cycle = cycle,
                           .year = cycle * cycles,
                           .share = total != 0.0 ? cycle / total * kWhole : design::kNotKnown,
                           .product = capacity <= 0.0 ? 0.0 : cycle * cycles / capacity};
        if (!isDesigned)
            cost = {design::kNotKnown, design::kNotKnown, design::kNotKnown, design::kNotKnown};
        costs[isService ? "cost/op.cost.servwater" : name] = cost;
    }
    return costs;
}

}  // namespace costs
