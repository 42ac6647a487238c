// SPDX-License-Identifier: MIT
#pragma once

/// What is dissolved in a water, as amounts per volume, and what follows from the amounts alone.

#include "projectbase/projectbase_export.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace water {

/// Cations, anions, then the species without charge.
enum class Species : std::uint8_t
{
    Na,
    Ca,
    Mg,
    K,
    Sr,
    Ba,
    Nh4,
    Fe2,
    Mn,
    Al,
    H,
    Cl,
    So4,
    Co3,
    Hco3,
    No3,
    F,
    Po4,
    Br,
    As3,
    As5,
    Oh,
    Sio2,
    B,
    Co2
};

inline constexpr std::size_t kSpeciesCount = 25;

/// Charge numbers as the ion table has them: phosphate and arsenic count as trivalent whatever the pH.
inline constexpr std::array<int, kSpeciesCount> kCharges{1,  2,  2,  1,  2,  2,  1,  2,  2,  3, 1, -1, -2,
                                                         -2, -1, -1, -1, -3, -1, -3, -3, -1, 0, 0, 0};

inline constexpr std::array<std::string_view, kSpeciesCount> kSpeciesKeys{
    "na",  "ca",   "mg",  "k", "sr",  "ba", "nh4", "fe2", "mn",       "al",   "h.plus", "cl", "so4",
    "co3", "hco3", "no3", "f", "po4", "br", "as3", "as5", "oh.minus", "sio2", "b",      "co2"};

constexpr int Charge(Species species)
{
    return kCharges[static_cast<std::size_t>(species)];
}

/// The species of an ion key; nothing for a key that has none (a named ion, say).
PROJECTBASE_EXPORT std::optional<Species> SpeciesOfKey(std::string_view key);

/// Total amounts in mmol/l. Amounts are not negative.
struct Composition
{
    std::array<double, kSpeciesCount> amounts{};
    /// H+ was found from the pH, so it is the free ion; else it is the total, part of which sulfate may bind.
    bool hydrogenIsFree = false;

    double& operator[](Species species) { return amounts[static_cast<std::size_t>(species)]; }
    double operator[](Species species) const { return amounts[static_cast<std::size_t>(species)]; }
};

/// mol/l, ½ Σ c z² over all ions as if none of them were paired (stoichiometric ionic strength).
PROJECTBASE_EXPORT double IonicStrength(const Composition& composition);

/// mg/l of all that is dissolved.
PROJECTBASE_EXPORT double DissolvedMass(const Composition& composition);

/// meq/l of the positive and of the negative charges.
struct ChargeSums
{
    double cations = 0.0;
    double anions = 0.0;
};
PROJECTBASE_EXPORT ChargeSums SumCharges(const Composition& composition);

/// 100 (Σc - Σa)/(Σc + Σa) in percent, as in Standard Methods 1030E; where half the sum is the divisor, the
/// figure is twice as large. 0 for a water without ions.
PROJECTBASE_EXPORT double ElectroneutralityError(const ChargeSums& sums);

/// Whether the sums agree as Standard Methods 1030E asks: within 0.2 meq/l up to 3 meq/l of anions, 2 % up to
/// 10 meq/l, 5 % above.
PROJECTBASE_EXPORT bool IsBalanceAcceptable(const ChargeSums& sums);

/// mmol/l of calcium and magnesium. 1 mmol/l = 100.09 mg/l CaCO3 = 5.608 °dH.
PROJECTBASE_EXPORT double TotalHardness(const Composition& composition);
/// mmol/l of hardness that bicarbonate can bind on heating: the smaller of hardness and half the alkalinity.
PROJECTBASE_EXPORT double CarbonateHardness(const Composition& composition);

/// meq/l, [HCO3] + 2[CO3] + [OH] - [H]: the m-value (acid demand to pH 4.3). Weak acids other than carbonic
/// acid, negligible below pH 9, are left out.
PROJECTBASE_EXPORT double AlkalinityM(const Composition& composition);
/// meq/l, [CO3] + [OH] - [CO2] - [H]: the p-value (acid demand to pH 8.2); negative where base is needed.
PROJECTBASE_EXPORT double AlkalinityP(const Composition& composition);
/// meq/l of the anions of strong acids (Cl, SO4, NO3, F, Br): the acidity behind a strong-acid cation
/// exchanger.
PROJECTBASE_EXPORT double EquivalentMineralAcidity(const Composition& composition);

/// mg/l of dry residue at 180 °C from the sum of all constituents, of which `bicarbonate` mg/l are HCO3: on
/// drying two HCO3- leave one CO3 2- behind, 0.4917 of their mass (Hem 1985, USGS Water-Supply Paper 2254).
/// Residues of waters rich in gypsum are up to some percent higher, as they keep water of crystallisation.
PROJECTBASE_EXPORT double DryResidue(double sumOfConstituents, double bicarbonate);

}  // namespace water
