// SPDX-License-Identifier: MIT
#pragma once

/// What is dissolved in a water, as amounts per volume, and what follows from the amounts alone.

#include "core/ion_table.h"
#include "projectbase/projectbase_export.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

namespace water {

/// The dissolved species: cations, anions, then those without charge, each in the order of the ion table.
inline constexpr auto kSpecies = [] {
    using ions::IonKind;
    auto species = ions::SelectIons<IonKind::Cation, IonKind::EquivalentCation, IonKind::Anion,
                                    IonKind::EquivalentAnion, IonKind::Neutral>();
    const auto place = [](const ions::Ion* ion) { return ion->charge > 0 ? 0 : ion->charge < 0 ? 1 : 2; };
    std::ranges::sort(species, {}, [place](const ions::Ion* ion) { return std::pair(place(ion), ion); });
    return species;
}();

inline constexpr std::size_t kSpeciesCount = kSpecies.size();
inline constexpr auto kSpeciesKeys = ions::MembersOf(kSpecies, &ions::Ion::key);
inline constexpr auto kCharges = ions::MembersOf(kSpecies, &ions::Ion::charge);

/// Place of an ion among the species; a key that is none of them does not compile.
consteval std::uint8_t PlaceOfSpecies(std::string_view key)
{
    std::size_t place = 0;
    while (kSpeciesKeys.at(place) != key)
        ++place;
    return static_cast<std::uint8_t>(place);
}

/// A species by its place in kSpecies. Those that formulas speak of have names.
enum class Species : std::uint8_t
{
    Na = PlaceOfSpecies("na"),
    Ca = PlaceOfSpecies("ca"),
    Mg = PlaceOfSpecies("mg"),
    K = PlaceOfSpecies("k"),
    Sr = PlaceOfSpecies("sr"),
    Ba = PlaceOfSpecies("ba"),
    Al = PlaceOfSpecies("al"),
    H = PlaceOfSpecies("h.plus"),
    Cl = PlaceOfSpecies("cl"),
    So4 = PlaceOfSpecies("so4"),
    Co3 = PlaceOfSpecies("co3"),
    Hco3 = PlaceOfSpecies("hco3"),
    No3 = PlaceOfSpecies("no3"),
    F = PlaceOfSpecies("f"),
    Br = PlaceOfSpecies("br"),
    Po4 = PlaceOfSpecies("po4"),
    Oh = PlaceOfSpecies("oh.minus"),
    Sio2 = PlaceOfSpecies("sio2"),
    Co2 = PlaceOfSpecies("co2")
};

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
    /// mmol/l of H+ that sulfate binds as HSO4-, where H+ is the free ion. The sulfate itself is a total.
    double boundHydrogen = 0.0;

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

/// 100 (Σc - Σa)/(Σc + Σa) in percent, as in Standard Methods 1030E; where half the sum is the divisor, the
/// figure is twice as large. 0 for a water without ions.
PROJECTBASE_EXPORT double ElectroneutralityError(const ChargeSums& sums);

/// mmol/l of calcium and magnesium. 1 mmol/l = 100.09 mg/l CaCO3 = 5.608 °dH.
PROJECTBASE_EXPORT double TotalHardness(const Composition& composition);
/// mmol/l of hardness that bicarbonate can bind on heating: the smaller of hardness and half the alkalinity.
PROJECTBASE_EXPORT double CarbonateHardness(const Composition& composition);

/// meq/l, [HCO3] + 2[CO3] + [OH] - [H] - [HSO4]: the m-value (acid demand to pH 4.3). Weak acids other than
/// carbonic acid, negligible below pH 9, are left out.
PROJECTBASE_EXPORT double AlkalinityM(const Composition& composition);
/// meq/l of the anions of strong acids (Cl, SO4, NO3, F, Br, and one equivalent a mole of PO4): the acidity
/// behind a strong-acid cation exchanger.
PROJECTBASE_EXPORT double EquivalentMineralAcidity(const Composition& composition);

/// mg/l of dry residue at 180 °C from the sum of all constituents, of which `bicarbonate` mg/l are HCO3: on
/// drying two HCO3- leave one CO3 2- behind, 0.4917 of their mass (Hem 1985, USGS Water-Supply Paper 2254).
/// Residues of waters rich in gypsum are up to some percent higher, as they keep water of crystallisation.
PROJECTBASE_EXPORT double DryResidue(double sumOfConstituents, double bicarbonate);

}  // namespace water
