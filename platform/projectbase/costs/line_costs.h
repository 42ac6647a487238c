// SPDX-License-Identifier: MIT
#pragma once

/// What each line of the costs comes to, in euro.

#include "projectbase/projectbase_export.h"

#include <map>
#include <string>

namespace iex {
class IEXProject;
}  // namespace iex

namespace costs {

/// A line of the operating cost. Not a number as long as the plant is not designed.
struct OperatingCost
{
    double cycle = 0.0;
    double year = 0.0;
    double share = 0.0;    ///< of the operating cost, %; not a number where that is 0
    double product = 0.0;  ///< for a m³ of product; 0 without a capacity
};

/// By the detail of the price: of resins and equipment.
PROJECTBASE_EXPORT std::map<std::string, double> CapitalCosts(const iex::IEXProject& project);
/// By the detail of the price: of chemicals and waters.
PROJECTBASE_EXPORT std::map<std::string, OperatingCost> OperatingCosts(const iex::IEXProject& project);

}  // namespace costs
