// SPDX-License-Identifier: MIT
#pragma once

#include "core/core_export.h"

namespace ions {

/// Conductivity that ions would have without hindering each other, from the one that is measured (both
/// µS/cm): the y of (1.0783 - 0.075 log10(y)) y = x, by at most 20 Newton steps from y = x down to a
/// difference of 1e-6. 0 for x = 0; not a number for a negative x.
CORE_EXPORT double ReversePolarizationEffect(double x);

}  // namespace ions
