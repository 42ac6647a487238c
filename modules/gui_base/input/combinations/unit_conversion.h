// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <limits>
#include <optional>
#include <string>

namespace combinations {

/// `value` of the unit `from` expressed in the unit `to` (both UTF-8), for temperatures, concentrations of
/// one ion and whatever a unit system shows for one another. An empty `from` means a number in whatever unit
/// is chosen, which stays as it is. Between masses and equivalents `equivalentWeight` (g/eq) is needed.
/// Nothing for units that do not convert into each other.
GUI_BASE_EXPORT std::optional<double> ConvertUnit(
    double value, const std::string& from, const std::string& to,
    double equivalentWeight = std::numeric_limits<double>::quiet_NaN());

}  // namespace combinations
