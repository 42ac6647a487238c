// SPDX-License-Identifier: MIT
#pragma once

/// What a laboratory measures of a water although it follows from the ions: total hardness and conductivity.
/// Kept beside what is calculated, which they neither change nor replace.

#include "projectbase/details/detail_list.h"
#include "projectbase/projectbase_export.h"

#include <array>
#include <string>
#include <string_view>

namespace water {

struct MeasuredValue
{
    const char* orig;        ///< detail of the typed number; not a number where nothing was measured
    const char* unit;        ///< detail of its unit
    const char* iso;         ///< detail of what follows, in the unit of `calculated`
    const char* calculated;  ///< detail of what the ions give
    /// Differences within that are no more than what the methods have, in the unit of `calculated`.
    double agreement;
};

/// Total hardness in meq/l; conductivity at 25 °C in µS/cm.
inline constexpr std::array kMeasuredValues{
    MeasuredValue{"liquid/hardness.measured.orig", "liquid/hardness.measured.unit",
                  "liquid/hardness.measured", "liquid/hardness.total", 0.1},
    MeasuredValue{"liquid/cond25.measured.orig", "liquid/cond25.measured.unit", "liquid/cond25.measured",
                  "liquid/cond25", 5.0},
};

/// By what a number in that unit of hardness or conductivity is multiplied to be meq/l or µS/cm; not a
/// number for another unit.
PROJECTBASE_EXPORT double MeasuredFactor(std::string_view unit);

/// Sets what follows from the typed numbers.
void NormalizeMeasuredValues(DetailList& liquid);

/// Whether a full analysis says otherwise: by more than a tenth and more than `agreement`. An alkalised water
/// is not the one that was measured.
PROJECTBASE_EXPORT bool IsContradicted(const DetailList& liquid, const MeasuredValue& value);

/// Nothing was measured.
PROJECTBASE_EXPORT void ClearMeasuredValues(DetailList& liquid);

}  // namespace water
