// SPDX-License-Identifier: MIT
#pragma once

/// Waters of which only one figure is known: they are taken as solutions of sodium chloride.

#include "projectbase/projectbase_export.h"

namespace water {

/// meq/l of sodium and of chloride whose masses add up to `tds` mg/l. Not a number for a negative TDS.
PROJECTBASE_EXPORT double SodiumChlorideFromTds(double tds);

/// meq/l of sodium and of chloride whose conductivity at `celsius` is `conductivity` µS/cm. Not a number
/// where there is none: a negative conductivity, one beyond that of 1 mol/l, or a temperature outside 0-100
/// °C.
PROJECTBASE_EXPORT double SodiumChlorideFromConductivity(double conductivity, double celsius);

}  // namespace water
