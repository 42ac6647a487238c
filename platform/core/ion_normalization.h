// SPDX-License-Identifier: MIT
#pragma once

/// Turns the typed concentration of one ion into the two values that the rest of the system reads.

#include "core/core_export.h"

#include <string_view>

namespace ions {

struct TypedIon
{
    std::string_view key;
    double value = 0.0;
    std::string_view unit;
    std::string_view name;   ///< of a named ion, else empty
    bool checkName = false;  ///< whether an empty name makes the row unused
};

struct NormalizedIon
{
    double typed = 0.0;  ///< the typed value; 0 for an unused row
    double meqPerLitre = 0.0;
    double mgPerLitre = 0.0;
};

/// An unused row (`checkName` and a name of nothing but blanks) has all values 0.
///
/// A named ion typed as a mass is divided by weight 1, because its own key has no weight, but its mass is
/// found with the weight of its reference ion (see ReferenceKey). The two directions differ on purpose:
/// stored analyses rely on it.
CORE_EXPORT NormalizedIon Normalize(const TypedIon& ion);

}  // namespace ions
