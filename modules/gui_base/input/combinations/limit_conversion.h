// SPDX-License-Identifier: MIT
#pragma once

/// Limits of an input in the unit that the user chose for it.

#include "gui_base/gui_base_export.h"

#include <optional>
#include <string>

namespace combinations {

/// `value` in `from` as a value in `to`, as far as the two are known to measure the same: units that a unit
/// system shows for each other ("bar" and "psi", "m3/h" and "l/s"), masses of an ion among themselves, and
/// its equivalents among themselves. Nothing for any other pair. An empty `from` is the unit of `to`.
GUI_BASE_EXPORT std::optional<double> ConvertLimit(double value, const std::string& from,
                                                   const std::string& to);

}  // namespace combinations
