// SPDX-License-Identifier: MIT
#pragma once

/// What a conversion rate may be: how many units of a currency one euro is worth.

#include "core/core_export.h"

#include <string_view>

namespace conversion_rate {

/// The currency that all rates refer to and that the program's amounts are in. Its own rate is 1.
inline constexpr std::string_view kBase = "EUR";

/// What lies outside is a mistake: gold by the kilogram has 10⁻⁵, money at the height of an inflation 10⁸.
inline constexpr double kLeast = 1e-6;
inline constexpr double kMost = 1e9;

/// Whether it is a number within these bounds.
CORE_EXPORT bool IsRate(double rate);
/// The same for a currency, of which the base has the rate 1 only.
CORE_EXPORT bool IsRateOf(std::string_view currency, double rate);
/// Whether it is a code as ISO 4217 has them: three capital letters.
CORE_EXPORT bool IsCode(std::string_view currency);

}  // namespace conversion_rate
