// SPDX-License-Identifier: MIT
#pragma once

/// What the system knows of each ion: weights, conductance and its place in a water analysis.
///
/// The weights are rounded as water laboratories use them and differ a little from the standard atomic
/// weights; analyses are comparable with each other only as long as all of them use this one table. The table
/// is built on first use and lives until the process ends; it is constant, so any thread may read it.

#include "core/core_export.h"

#include <array>
#include <span>
#include <string_view>

namespace ions {

struct Ion
{
    std::string_view key;     ///< lower-case ion key, for example "na" or "h.plus"
    double equivalentWeight;  ///< g/eq; equal to the molar mass for species that carry no charge
    double molarMass;         ///< g/mol
    /// Main ions: equivalent conductance at infinite dilution and 25 °C, S cm²/eq. Weak species (sio2, b,
    /// co2): 1. Trace elements: a factor of the feed composition.
    double coefficient;
};

/// The ion of that key (exact, lower case), or null.
CORE_EXPORT const Ion* FindIon(std::string_view key);

/// All rows in the order of the table.
CORE_EXPORT std::span<const Ion> AllIons();

/// The rows of a water analysis in display order.
inline constexpr std::array<std::string_view, 13> kCationKeys{"na",  "ca", "mg", "k",  "sr", "ba",    "nh4",
                                                              "fe2", "mn", "al", "x1", "x2", "h.plus"};
inline constexpr std::array<std::string_view, 15> kAnionKeys{
    "cl", "so4", "co3", "hco3", "no3", "f", "sio2", "b", "po4", "br", "as3", "as5", "y1", "y2", "oh.minus"};

/// Whether the key is that of a row whose name the user gives ("x1", "x2", "y1", "y2").
CORE_EXPORT bool IsNamedIon(std::string_view key);

/// Whether the ion counts in the charge sums: silica, boron and CO2 are listed but hardly ionised, so they do
/// not.
CORE_EXPORT bool CountsAsCharge(std::string_view key);

/// Key of the ion whose equivalent weight turns meq/l into mg/l. A named cation (key beginning with "x") is
/// taken as "nh4" when its name says so in whatever case, else as "na"; a named anion ("y") as "cl"; any
/// other ion as itself. Trailing blanks of the name do not matter.
CORE_EXPORT std::string_view ReferenceKey(std::string_view key, std::string_view name);

/// `text` without the blanks at its end.
CORE_EXPORT std::string_view TrimTrailingBlanks(std::string_view text);

}  // namespace ions
