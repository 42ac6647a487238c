// SPDX-License-Identifier: MIT
#pragma once

/// Amounts that were too small to be found. A laboratory states "<0.05": nothing was found, and 0.05 would
/// have been. Such a value is kept as that limit with a minus sign, as tables of laboratories do: no amount
/// is negative, and the sign goes wherever the number goes.
///
/// In sums a limit counts with a share of it: nothing, half of it (as is usual) or all. Simple substitution
/// (EPA Unified Guidance 2009, ch. 15) does no harm while the limits are a small part of the sum.

#include "core/core_export.h"
#include "core/number_text.h"

#include <optional>
#include <string>
#include <string_view>

namespace detection_limit {

/// Whether a typed amount is a limit of detection; not for a number that is unknown.
constexpr bool Is(double typed)
{
    return typed < 0.0;
}

/// A limit of detection of that amount; 0 stays 0.
constexpr double Make(double limit)
{
    return limit > 0.0 ? -limit : 0.0;
}

/// What a typed amount counts as: itself, or that share (0 to 1) of a limit.
constexpr double Counted(double typed, double share)
{
    return Is(typed) ? -typed * share : typed;
}

/// What stands behind the sign of "<0.05", "<=0.05" or "\u22640.05"; nothing for a text without one.
CORE_EXPORT std::optional<std::string_view> Behind(std::string_view text);

/// An amount or a limit of detection as text states it; nothing for a negative number and for what is none.
CORE_EXPORT std::optional<double> Parse(std::string_view text, const numbertext::Separators& separators);

/// "0.05", or "<0.05" of a limit.
CORE_EXPORT std::string Format(double typed, const numbertext::Style& style,
                               const numbertext::Separators& separators);

}  // namespace detection_limit
