// SPDX-License-Identifier: MIT
#pragma once

/// How near a water is to the solubility of minerals: saturation indices with activities by Davies and ion
/// pairs, the indices of Langelier and Ryznar, and amorphous silica.
///
/// Indices are good to ±0.1 (the spread between published constants; anhydrite below 40 °C ±0.25), with the
/// whole error of the pH beside it. Beyond an ionic strength of 0.2 mol/l Davies does not hold: such figures
/// are marked. What does not follow from the analysis is not a number.

#include "projectbase/details/detail_list.h"
#include "projectbase/projectbase_export.h"
#include "projectbase/water/composition.h"

#include <array>
#include <cstdint>
#include <limits>

namespace advice {

enum class Mineral : std::uint8_t
{
    Calcite,
    Aragonite,
    Gypsum,
    Anhydrite,
    Barite,
    Celestite,
    Fluorite
};
inline constexpr std::size_t kMinerals = 7;

/// log10 of the solubility product; sources beside the table of the coefficients. Not a number where water is
/// not liquid.
PROJECTBASE_EXPORT double LogSolubility(Mineral mineral, double celsius);
/// mg/l of SiO2 that amorphous silica gives to water of that pH and log10 of γ of unit charge; Fournier &
/// Rowe 1977 at neutral pH, 0-250 °C, times what dissociates above.
PROJECTBASE_EXPORT double SilicaSolubility(double celsius, double pH, double logGamma);

/// A water as far as its saturation is concerned.
struct SaturationSample
{
    double pH = std::numeric_limits<double>::quiet_NaN();
    double celsius = std::numeric_limits<double>::quiet_NaN();
    double alkalinity = std::numeric_limits<double>::quiet_NaN();  ///< m-value, meq/l
    /// mmol/l of all ions; bicarbonate, carbonate, H+ and OH- follow from pH and alkalinity.
    water::Composition composition;
};

/// Free ions of a water, mol/l, with the activities that go with them.
struct FreeIons
{
    double calcium = 0.0;
    double strontium = 0.0;
    double barium = 0.0;
    double sulfate = 0.0;
    double fluoride = 0.0;
    double bicarbonate = 0.0;
    double carbonate = 0.0;
    double ionicStrength = 0.0;  ///< effective
    double logGamma = 0.0;       ///< of unit charge
    double logWater = 0.0;       ///< log10 of the activity of water
    bool converged = false;      ///< false also where pH or temperature leave no state
};

/// Solves pairs, ionic strength and activities together, by at most 200 damped passes; without `withPairs` as
/// if no ions were paired.
PROJECTBASE_EXPORT FreeIons FreeIonsOf(const SaturationSample& sample, bool withPairs);
/// Σ ν log a - log K.
PROJECTBASE_EXPORT double SaturationIndex(Mineral mineral, const FreeIons& free, double celsius);

/// By the formula of Standard Methods 2330 B: pHs = pK2 - pKs + p[Ca] + p[HCO3] + 5 pf.
PROJECTBASE_EXPORT double SaturationPh(const FreeIons& free, double celsius);
/// The simplified form of data sheets (Carrier), mg/l: pHs = 9.3 + A + B - C - D of dissolved solids,
/// temperature, calcium and alkalinity as CaCO3.
PROJECTBASE_EXPORT double SimplifiedSaturationPh(double tds, double celsius, double calcium,
                                                 double alkalinity);

/// What an index of Langelier means for calcium carbonate; within ±0.3 a water is called balanced.
enum class LangelierState : std::uint8_t
{
    Unknown,
    Dissolves,
    Balanced,
    MayDeposit
};
inline constexpr double kLangelierBalanced = 0.3;
PROJECTBASE_EXPORT LangelierState LangelierStateOf(double index);

struct Saturation
{
    static constexpr double kNotKnown = std::numeric_limits<double>::quiet_NaN();

    std::array<double, kMinerals> indices{kNotKnown, kNotKnown, kNotKnown, kNotKnown,
                                          kNotKnown, kNotKnown, kNotKnown};
    /// pH less pHs, within 0-90 °C, pH 5-10 and an ionic strength below 0.5; RSI = pH - 2 LSI.
    double langelier = kNotKnown;
    double pHs = kNotKnown;
    double ryznar = kNotKnown;
    double langelierByHand = kNotKnown;      ///< without pairs
    double langelierSimplified = kNotKnown;  ///< of the simplified form
    double silica = kNotKnown;               ///< log10 of the saturation with amorphous silica
    double silicaPercent = kNotKnown;
    double ionicStrength = kNotKnown;  ///< effective, mol/l
    bool isBeyondDavies = false;       ///< above 0.2 mol/l

    double Index(Mineral mineral) const { return indices[static_cast<std::size_t>(mineral)]; }
};

/// Of a water whose derived values are up to date. Nothing is known of a short analysis, and nothing without
/// pH and temperature.
PROJECTBASE_EXPORT Saturation SaturationOf(const DetailList& liquid);

}  // namespace advice
