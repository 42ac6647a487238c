// SPDX-License-Identifier: MIT
#pragma once

/// The chemicals that exchangers are regenerated and conditioned with, and their solutions. The table is read
/// from the master database once and never changes afterwards; all of this may be called from any thread. The
/// first call throws DatabaseError when the table cannot be read.

#include "dbinterfaces/db_objects.h"
#include "projectbase/projectbase_export.h"

#include <string_view>
#include <vector>

namespace design {

using Regenerant = DBObjects::Regenerant;

/// All of them in the order in which they are offered.
PROJECTBASE_EXPORT const std::vector<Regenerant>& Regenerants();
/// The chemical of that key ("HCL", ...), or null.
PROJECTBASE_EXPORT const Regenerant* FindRegenerant(std::string_view key);

/// Density (kg/l) of a solution of `percent` by mass at 20 °C, linear between the points of the table, which
/// begins with water. Not a number beyond its last point, below 0 and for what is not known.
PROJECTBASE_EXPORT double SolutionDensity(const Regenerant& regenerant, double percent);

/// Volume (m³) of a solution of `percent` by mass that holds `mass` kg of the pure chemical: mass/(w ρ). Not
/// a number for a solution that holds nothing or whose density is not known; 0 for no chemical.
PROJECTBASE_EXPORT double SolutionVolume(const Regenerant& regenerant, double mass, double percent);

}  // namespace design
