// SPDX-License-Identifier: MIT
#pragma once

/// What flows from exchanger to exchanger, and what each of them takes. Amounts in meq/l, which are eq/m³;
/// not a number stands for what is not known.

#include "projectbase/projectbase_export.h"

#include <array>
#include <string_view>

namespace iex {
class IEXProject;
}

namespace design {

enum class ExchangerKind
{
    SacNa,     ///< strong-acid cation in sodium form: softens
    SacH,      ///< the same in hydrogen form
    WacH,      ///< weak-acid cation in hydrogen form
    Wba,       ///< weak-base anion
    Sba,       ///< strong-base anion
    MixedBed,  ///< strong-acid cation and strong-base anion in one vessel
    Degasser,
    Unknown
};

/// "SAC_NA", "SAC_H", "WAC_H", "WBA", "SBA", "MB" or "DEGAS".
PROJECTBASE_EXPORT ExchangerKind KindOf(std::string_view key);

/// Ions by the groups in which loads and wastes are told; inorganic carbon and silica with 1 eq/mol.
struct Ions
{
    double hardness = 0.0;      ///< Ca, Mg, Sr, Ba
    double monovalent = 0.0;    ///< Na, K, NH4
    double otherCations = 0.0;  ///< H+ apart, which is no load
    double chloride = 0.0;
    double sulfate = 0.0;
    double carbon = 0.0;  ///< bicarbonate, carbonate and CO2
    double silica = 0.0;
    double otherAnions = 0.0;  ///< of strong acids
    double organics = 0.0;     ///< acid groups of organic substances

    double Cations() const { return hardness + monovalent + otherCations; }
    double StrongAnions() const { return chloride + sulfate + otherAnions; }
    double Anions() const { return StrongAnions() + carbon + silica + organics; }
    double Sum() const { return Cations() + Anions(); }
    /// All amounts times a factor.
    Ions Times(double factor) const;
};

/// A water, or the liquid of a column.
struct Stream
{
    Ions ions;
    double alkalinity = 0.0;   ///< meq/l of HCO3 and CO3, which a weak-acid resin turns into CO2
    double sodium = 0.0;       ///< meq/l, among the monovalent ions
    double temperature = 0.0;  ///< °C
    /// A liquid of the food industry: its compounds count by the sign of their charge.
    bool isFood = false;
    /// Density and viscosity are those of water.
    bool isWater = true;
};

/// The water that feeds the plant, or the feed of a column for a food liquid less what its effluent keeps.
/// The closing sodium or chloride counts with automatic balancing, organic acids as the chosen organics have
/// them, an ion that was not analysed not at all. Where there is no such water all is unknown.
PROJECTBASE_EXPORT Stream StreamOf(const iex::IEXProject& project);

/// What an exchanger takes out of a litre, by compartment; the stream goes on without it:
/// SAC_H all cations, SAC_NA the hardness (which leaves as sodium), WAC_H hardness as far as alkalinity goes
/// with it, WBA anions of strong acids and organics, SBA all anions, a mixed bed cations in its first and
/// anions in its second compartment. A degasser takes no ions, but CO2 down to `residualCo2` (mg/l).
PROJECTBASE_EXPORT std::array<Ions, 2> Take(ExchangerKind kind, double residualCo2, Stream& stream);

}  // namespace design
