// SPDX-License-Identifier: MIT
#pragma once

/// One unit for all ions of an analysis.

#include "projectbase/details/detail_list.h"
#include "projectbase/projectbase_export.h"

#include <string>

namespace water {

/// What becomes of the numbers that are typed already.
enum class TypedNumbers
{
    Keep,     ///< they were meant in the other unit from the beginning
    Convert,  ///< they stay the same amounts
};

/// Whether a number stands in a unit that SetUnitOfIons would replace.
PROJECTBASE_EXPORT bool HasNumbersInOtherUnit(const DetailList& liquid, const std::string& unit);

/// Gives every row of an ion the unit; those of H+ and OH-, which are equivalents, only a unit of
/// equivalents. A text that is no unit of ions changes nothing. To be followed by the calculation of the
/// water.
PROJECTBASE_EXPORT void SetUnitOfIons(DetailList& liquid, const std::string& unit, TypedNumbers numbers);

}  // namespace water
