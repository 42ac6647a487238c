// SPDX-License-Identifier: MIT
#pragma once

/// Viscosity of regenerants as they are applied.

#include "projectbase/projectbase_export.h"

#include <string_view>

namespace curve_calculations {

/// Dynamic viscosity (Pa s) of a solution of `percent` by mass of a regenerant ("HCL", "H2SO4", "NAOH",
/// "NACL") at a temperature (°C). Laliberté 2007, J. Chem. Eng. Data 52:321, with the coefficients of
/// Laliberté 2009, ibid. 54:1725; standard deviation 3.7 %. Not a number for another regenerant, and outside
/// of the temperatures and contents that were measured.
PROJECTBASE_EXPORT double SolutionViscosity(std::string_view regenerant, double percent, double celsius);

}  // namespace curve_calculations
