// SPDX-License-Identifier: MIT
#pragma once

/// What a water means for the beds that treat it: hardness by kinds, acidity, and the load of each kind of
/// bed. Of the water as treated, with what closes its balance. Not a number stands for what is not known.

#include "projectbase/details/detail_list.h"
#include "projectbase/projectbase_export.h"

#include <limits>
#include <string_view>

class Project;

namespace advice {

inline constexpr double kNotKnown = std::numeric_limits<double>::quiet_NaN();

/// Amounts in meq/l, of carbonic acid and silica in mmol/l, which count as one equivalent a mole.
struct WaterNumbers
{
    double cations = kNotKnown;           ///< Σ without H+, with limits in full
    double hardness = kNotKnown;          ///< Ca + Mg
    double carbonate = kNotKnown;         ///< carbonate hardness: the smaller of hardness and alkalinity
    double nonCarbonate = kNotKnown;      ///< the rest of the hardness
    double sodiumAlkalinity = kNotKnown;  ///< alkalinity beyond the hardness
    double m = kNotKnown;
    double p = kNotKnown;
    /// Equivalent mineral acidity: anions of strong acids. It and all below but free CO2 take limits in full.
    double acidity = kNotKnown;
    /// Σcations - m, which equals the acidity in a balanced analysis.
    double acidityByCations = kNotKnown;
    double carbon = kNotKnown;  ///< CO2 + HCO3 + CO3
    double co2 = kNotKnown;     ///< free CO2
    double silica = kNotKnown;  ///< SiO2
    double boron = kNotKnown;
    double anionLoad = kNotKnown;      ///< total exchangeable anions, of silica and boron what is known
    double hardnessLoad = kNotKnown;   ///< what a softener takes up
    double carbonateLoad = kNotKnown;  ///< what a weak-acid exchanger takes up
};

/// Of a water whose derived values are up to date. Nothing is known of a short analysis, nor of sums of which
/// no ion was analysed. In acidity and loads limits of detection count in full, the cautious
/// case; hardness, alkalinity and free CO2 are those that the analysis shows. Carbon is m - p; where neither
/// pH nor p-value tells p, it is the m-value and the CO2 that was typed; of a p above m it is not known.
PROJECTBASE_EXPORT WaterNumbers NumbersOf(const DetailList& liquid);

/// meq/l of exchangeable anions behind a degasser that leaves `residual` mg/l of CO2, or in front of it where
/// the water holds less.
PROJECTBASE_EXPORT double AnionLoadBehindDegasser(const WaterNumbers& numbers, double residual);

/// Loads of a day, eq.
struct DailyLoads
{
    double cations = kNotKnown;    ///< strong acid in hydrogen form: all cations
    double hardness = kNotKnown;   ///< softener
    double carbonate = kNotKnown;  ///< weak acid
    double acidity = kNotKnown;    ///< weak base
    double anions = kNotKnown;     ///< strong base
};
PROJECTBASE_EXPORT DailyLoads LoadsOfDay(const WaterNumbers& numbers, double volume);

/// kg of CaCO3 that are as many equivalents.
inline constexpr double kKilogramCaCo3PerEquivalent = 0.050043;

/// An amount in meq/l as hardness and alkalinity are given: in "ppm CaCO3" (mg/l) or in degrees, "°d" (10
/// mg/l of CaO), "°f" (10 mg/l of CaCO3) or "°e" (a grain of CaCO3 a gallon). Not a number in any other unit.
/// For input laboratories' rounded factors hold, as `ions::ToMeqPerLitre` has them.
PROJECTBASE_EXPORT double HardnessIn(double meq, std::string_view unit);

/// m³ of water that all lines take on an average day: flow times the hours of service, as many cycles of
/// running time and regeneration as a day has; the running time itself, a day at most, where nothing is
/// regenerated. Not a number while flow or running time are not known.
PROJECTBASE_EXPORT double VolumeOfDay(const Project& project);

/// mg/l of CO2 behind the degasser of the plant; not a number where it has none.
PROJECTBASE_EXPORT double ResidualCo2Of(const Project& project);

/// mg/l of CO2 that a degasser usually leaves, for a plant that has none.
inline constexpr double kUsualResidualCo2 = 8.0;

/// What a plant of the project's type loads its resins with: a softener with hardness, one for dealkalisation
/// with carbonate hardness, all others with anions.
PROJECTBASE_EXPORT double DesignLoad(const Project& project, const DailyLoads& loads);

}  // namespace advice
