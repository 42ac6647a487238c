// SPDX-License-Identifier: MIT
#pragma once

/// How the ions of a water share themselves between free ions and ion pairs.
///
/// Pairs: CaSO4, MgSO4, NaSO4-, KSO4-, HSO4- (Nordstrom et al. 1990, ACS Symp. Ser. 416:398), CaHCO3+, CaCO3
/// (Plummer & Busenberg 1982), MgHCO3+, MgCO3, NaCO3- (WATEQ4F, Ball & Nordstrom 1991); association constants
/// at other temperatures by van 't Hoff. Activity coefficients by Davies; 0-100 °C, ionic strength up to
/// about 1 mol/l.

#include "projectbase/projectbase_export.h"
#include "projectbase/water/composition.h"

#include <array>
#include <cstdint>

namespace water {

enum class IonPair : std::uint8_t
{
    CaSo4,
    MgSo4,
    NaSo4,
    KSo4,
    HSo4,
    CaHco3,
    CaCo3,
    MgHco3,
    MgCo3,
    NaCo3
};

inline constexpr std::size_t kIonPairCount = 10;
inline constexpr std::array<int, kIonPairCount> kPairCharges{0, 0, -1, -1, -1, 1, 0, 1, 0, -1};

struct Speciation
{
    std::array<double, kSpeciesCount> free{};   ///< by Species, mol/l
    std::array<double, kIonPairCount> pairs{};  ///< by IonPair, mol/l
    double ionicStrength = 0.0;                 ///< effective, mol/l: of the free ions and the charged pairs
    double stoichiometricStrength = 0.0;        ///< mol/l, as if nothing were paired
    double dissolvedMass = 0.0;                 ///< g/l
    bool converged = false;  ///< false also for a temperature at which there is no liquid water
};

/// log10 of the association constant of a pair (l/mol), at infinite dilution; not a number where water is not
/// liquid.
PROJECTBASE_EXPORT double AssociationExponent(IonPair pair, double celsius);

/// The same by van 't Hoff from its value at 25 °C; enthalpy of association in kcal/mol.
PROJECTBASE_EXPORT double VantHoffExponent(double logK25, double enthalpy, double celsius);

/// Solves mass balances and mass-action laws by a fixed point of at most 200 passes.
PROJECTBASE_EXPORT Speciation Speciate(const Composition& composition, double celsius);

}  // namespace water
