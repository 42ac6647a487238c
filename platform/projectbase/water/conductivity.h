// SPDX-License-Identifier: MIT
#pragma once

/// Electrical conductivity and osmotic pressure of a water.

#include "projectbase/projectbase_export.h"
#include "projectbase/water/composition.h"
#include "projectbase/water/speciation.h"

namespace water {

/// Above this stoichiometric ionic strength (mol/l) the conductivity is not computed: there its error exceeds
/// 5 %. Ion pairs, which lower the effective one, do not widen the range.
inline constexpr double kMaxConductivityStrength = 1.0;
/// Above this effective ionic strength (mol/l) the osmotic pressure is not computed.
inline constexpr double kMaxOsmoticStrength = 2.0;

/// µS/cm at the temperature for which the water was speciated. Sum of the ions' limiting conductances, each
/// lowered by a power of its activity coefficient (Appelo 2010, "Specific conductance: how to calculate, to
/// use, and the pitfalls"). Conductances at 25 °C: Robinson & Stokes 1959; their change with temperature:
/// McCleskey, Nordstrom, Ryan & Ball 2012, Geochim. Cosmochim. Acta 77:369 (0-95 °C), where they give none by
/// the viscosity of water (Walden's rule). Fresh and sea water ±3 %, waters rich in sulfate ±10 %. Not a
/// number where the speciation failed, or above kMaxConductivityStrength.
PROJECTBASE_EXPORT double Conductivity(const Speciation& speciation, double celsius);
PROJECTBASE_EXPORT double Conductivity(const Composition& composition, double celsius);

/// bar. van 't Hoff's law over all dissolved species, with an osmotic coefficient that follows by the
/// Gibbs-Duhem relation from activity coefficients of the Davies form (constant 0.13, fitted to NaCl, KCl and
/// sea water up to 0.75 mol/kg). Fresh and sea water ±1 %; solutions of salts of divalent ions
/// ±5 % at 0.1 mol/kg. Not a number
/// where the speciation failed, or above kMaxOsmoticStrength.
PROJECTBASE_EXPORT double OsmoticPressure(const Speciation& speciation, double celsius);
PROJECTBASE_EXPORT double OsmoticPressure(const Composition& composition, double celsius);

}  // namespace water
