// SPDX-License-Identifier: MIT
#include "projectbase/water/typed_units.h"

#include "core/ion_units.h"
#include "projectbase/units/temperature.h"

#include <algorithm>
#include <array>

namespace water {

namespace {

/// Accepted for an ion beside those that the choice offers.
constexpr std::array<std::string_view, 3> kFurtherIonUnits{"g/m3", "g/l", "mgCaCO3/l"};

template <typename Range>
bool Contains(const Range& range, std::string_view text)
{
    return std::ranges::find(range, text) != std::ranges::end(range);
}

}  // namespace

std::optional<std::string> TypedUnit(std::string_view key, const std::string& unit)
{
    bool isKnown = false;
    if (key.starts_with("liquid/temp.")) {
        const auto known = Temperature::UnitFromText(unit);
        return known ? std::optional(Temperature::UnitText(*known)) : std::nullopt;
    }
    if (key.starts_with("liquid/h.plus.") || key.starts_with("liquid/oh.minus."))
        isKnown = Contains(ions::kEquivalentUnits, unit);
    else if (key.starts_with("liquid/hardness.measured."))
        isKnown = Contains(ions::kHardnessUnits, unit);
    else if (key.starts_with("liquid/cond25.measured."))
        return Contains(ions::kConductivityUnits, unit) ? std::optional(unit)
               : unit == "uS/cm"                        ? std::optional<std::string>("\u00b5S/cm")
                                                        : std::nullopt;
    else if (key.starts_with("liquid/alkalinity."))
        isKnown = Contains(ions::kAlkalinityUnits, unit) || unit == "meq/l" || unit == "mgCaCO3/l";
    else
        isKnown = Contains(ions::kIonUnits, unit) || Contains(kFurtherIonUnits, unit);
    return isKnown ? std::optional(unit) : std::nullopt;
}

}  // namespace water
