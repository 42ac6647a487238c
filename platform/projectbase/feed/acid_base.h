// SPDX-License-Identifier: MIT
#pragma once

/// How a compound takes part in the acid-base balance of a water.

#include <cstdint>

/// The numbers are those that databases and files hold. Any other number counts as neutral.
enum class AcidBase : std::int32_t
{
    Neutral = 0,
    StrongAcid = 1,
    WeakAcid = 2,
    StrongBase = 3,
    WeakBase = 4
};
inline constexpr int kAcidBaseCount = 5;
