// SPDX-License-Identifier: MIT
#pragma once

/// Brings the details of a water into agreement with what was typed: concentrations in meq/l and mg/l, charge sums,
/// the amounts that close the ion balance, and the derived values (TDS, conductivity, osmotic pressure, ...).

#include "projectbase/details/detail_list.h"
#include "projectbase/projectbase_export.h"

#include <string_view>

namespace water {

/// Sets "liquid/<ion>.meql" and "liquid/<ion>.mgl" from ".orig" and ".unit". With `checkName`, a row whose ".name" is
/// empty after trimming trailing blanks is unused: its ".orig" and both results become 0.
/// Throws std::runtime_error when the water lacks a detail of the ion.
PROJECTBASE_EXPORT void NormalizeIon(DetailList& liquid, std::string_view ion, bool checkName);

/// NormalizeIon for every ion row of a water, and CO2 and the temperature from what was typed.
PROJECTBASE_EXPORT void NormalizeEveryIon(DetailList& liquid);

/// Refreshes what follows from the normalised ions: charge sums, the amounts that close the balance, TDS, ionic
/// strength, conductivity, osmotic pressure, calculated CO2 and the ions of a short analysis. A value that cannot be
/// known (calculated CO2 without a pH, say) becomes NaN.
PROJECTBASE_EXPORT void UpdateDerivedValues(DetailList& liquid);

}  // namespace water
