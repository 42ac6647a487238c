// SPDX-License-Identifier: MIT
#pragma once

/// Brings the details of a water into agreement with what was typed: concentrations in meq/l and mg/l, charge
/// sums, the amounts that close the ion balance, and the derived values (TDS, conductivity, osmotic pressure,
/// ...).
///
/// A concentration that is not a number counts as not analysed: it stays unknown itself and is left out of
/// the sums. Whatever lacks a detail of the water throws std::runtime_error naming the detail.

#include "projectbase/details/detail_list.h"
#include "projectbase/projectbase_export.h"
#include "projectbase/water/composition.h"

#include <string_view>

namespace water {

/// Sets "liquid/<ion>.meql" and "liquid/<ion>.mgl" from ".orig" and ".unit". With `checkName`, a row whose
/// ".name" is empty after trimming trailing blanks is unused: its ".orig" and both results become 0.
PROJECTBASE_EXPORT void NormalizeIon(DetailList& liquid, std::string_view ion, bool checkName);

/// NormalizeIon for every ion row of a water, and CO2 (unless it is calculated) and the temperature from what
/// was typed. While "liquid/balance.ph" is off, H+ and OH- are reset. What an alkalization changed is taken
/// back.
PROJECTBASE_EXPORT void NormalizeEveryIon(DetailList& liquid);

/// Refreshes what follows from the normalised ions.
///
/// - Bicarbonate and carbonate where an m-value was reported in their place (water/alkalinity.h).
/// - Charge sums, without silica, boron and CO2; H+ and OH- only with "liquid/balance.ph", though the error
/// of
///   the balance counts those of the pH (BalanceSums). The amounts that
///   close the balance are always shown; with "liquid/balance.auto" they count in every derived value, though
///   not in the sums, and close only what H+, OH- and HSO4- of the pH leave open, so that nothing counts
///   twice.
/// - TDS: sum of all masses in mg/l, CO2 apart; 0 for a water in which nothing was typed. The dry residue
///   follows from it.
/// - Ionic strength, conductivity, osmotic pressure, m- and p-value: while the rows of H+ and OH- take no
///   part, both ions count here with the amounts that follow from the pH, so that acid water conducts as it
///   does, and pure water of known pH has its own conductivity; with an unknown pH they are left out. The
///   conductivity at 25 °C is that of the same amounts.
/// - Hardness, m- and p-value and equivalent mineral acidity are not a number for a short analysis.
/// - An alkalised water has the pH that the alkalization gave it ("liquid/alk.ph"), in all of this.
/// - CO2 where it is calculated: not a number while the pH or the temperature is unknown, or the pH is one at
///   which water holds none of the bicarbonate that is stated.
/// - A short analysis ("SHORT_TDS", "SHORT_COND") replaces the normalised ions by sodium and chloride alone;
/// what was
///   typed stays in ".orig" for the day the full analysis is wanted again, and the pH plays no part. Where no
///   such solution exists, both and all that is derived from them are unknown.
///
/// An unknown temperature, or one at which water is not liquid, leaves conductivity and osmotic pressure
/// unknown, as does a concentration beyond the range of the methods.
PROJECTBASE_EXPORT void UpdateDerivedValues(DetailList& liquid);

/// All that a full analysis holds as treated, CO2 apart, in mmol/l: its ions, with "liquid/balance.auto" what
/// closes its balance, H+ and OH- as stated with "liquid/balance.ph", otherwise as they follow from the pH.
/// To be asked of a water whose derived values are up to date.
PROJECTBASE_EXPORT Composition WholeComposition(const DetailList& liquid);

/// The charges that "liquid/balance.error" compares, meq/l: the sums of the rows, and where H+ and OH- have
/// no part in them what a pH from 0 to 14 says of both, without which no acid water is balanced. To be asked
/// of a water whose derived values are up to date.
PROJECTBASE_EXPORT ChargeSums BalanceSums(const DetailList& liquid);

/// Fills the rows of H+ and OH- from pH and temperature: to be called once when "liquid/balance.ph" is
/// switched on; values typed afterwards stay. Returns false and sets both to 0 while the pH or the
/// temperature is unknown.
PROJECTBASE_EXPORT bool FillHydrogenAndHydroxide(DetailList& liquid);

/// Sets both rows to 0 meq/l.
PROJECTBASE_EXPORT void ResetHydrogenAndHydroxide(DetailList& liquid);

}  // namespace water
