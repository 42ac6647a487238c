// SPDX-License-Identifier: MIT
#pragma once

/// The units in which the concentration of an ion can be typed, and their conversion to milliequivalents per
/// litre. All unit texts are UTF-8.

#include "core/core_export.h"

#include <array>
#include <string_view>

namespace ions {

inline constexpr std::string_view kMeqPerLitre = "meq/l";
inline constexpr std::string_view kMgPerLitre = "mg/l";

/// Units offered for an ordinary ion, in the order of the choice. The degrees are those of hardness: German,
/// French, American and English.
inline constexpr std::array<std::string_view, 9> kIonUnits{
    "meq/l", "mg/l", "ppm", "ppb", "ppm CaCO3", "\u00b0d", "\u00b0f", "\u00b0a", "\u00b0e"};

/// Units offered for a row whose value is an equivalent amount only (H+ and OH-).
inline constexpr std::array<std::string_view, 6> kEquivalentUnits{"meq/l",   "ppm CaCO3", "\u00b0d",
                                                                  "\u00b0f", "\u00b0a",   "\u00b0e"};

/// Units offered for an alkalinity, which is an amount of acid: 1 mmol/l of it is 1 meq/l.
inline constexpr std::array<std::string_view, 5> kAlkalinityUnits{"mmol/l", "ppm CaCO3", "\u00b0d", "\u00b0f",
                                                                  "\u00b0e"};

/// Units offered for a measured hardness, of which 1 mmol/l is 2 meq/l.
inline constexpr std::array<std::string_view, 7> kHardnessUnits{"mmol/l",  "meq/l",   "ppm CaCO3", "\u00b0d",
                                                                "\u00b0f", "\u00b0a", "\u00b0e"};

/// Units offered for a measured conductivity.
inline constexpr std::array<std::string_view, 3> kConductivityUnits{"\u00b5S/cm", "mS/cm", "mS/m"};

/// What a unit counts: the mass of an ion or its equivalents; nothing for a text that is no such unit.
enum class UnitKind
{
    None,
    Mass,
    Equivalents
};
CORE_EXPORT UnitKind KindOf(std::string_view unit);

/// Milliequivalents per litre of a concentration typed as `value` in `unit`.
/// Mass units ("mg/l", "g/m3", "ppm", "ppb", "g/l") are divided by `equivalentWeight` (g/eq); a weight that
/// is not positive leaves the mass as it is. Degrees of hardness and calcium carbonate ("ppm CaCO3",
/// "mgCaCO3/l") have fixed factors; any other unit is taken as meq/l.
CORE_EXPORT double ToMeqPerLitre(double value, std::string_view unit, double equivalentWeight);

/// The inverse of ToMeqPerLitre: what stands in a field in `unit` for `meqPerLitre`.
CORE_EXPORT double FromMeqPerLitre(double meqPerLitre, std::string_view unit, double equivalentWeight);

/// Milligrams per litre of a concentration typed as `value` in `unit`; a mass unit needs no equivalent
/// weight, so a value typed in mg/l comes back unrounded.
CORE_EXPORT double ToMgPerLitre(double value, std::string_view unit, double equivalentWeight);

}  // namespace ions
