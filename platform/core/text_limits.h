// SPDX-License-Identifier: MIT
#pragma once

/// How long texts may be that are typed, imported, set by a command or stored. Letters are code points of
/// UTF-8.

#include "core/core_export.h"

#include <cstddef>
#include <string_view>

namespace text_limits {

/// Names, places, sources, countries, categories, titles, keys and units.
inline constexpr std::size_t kName = 1'000;
inline constexpr std::size_t kFormula = 10'000;
/// Comments and stored values.
inline constexpr std::size_t kText = 100'000;
/// Remarks on a regeneration sequence.
inline constexpr std::size_t kRemarks = 4'000;
/// The recipe of a blend, which names a thousand waters.
inline constexpr std::size_t kRecipe = 250'000;

/// How many letters a detail of that key may hold.
CORE_EXPORT std::size_t MostOf(std::string_view key);

/// Bytes that belong to no code point count as letters.
CORE_EXPORT std::size_t CountLetters(std::string_view utf8);
/// The beginning of the text, of `most` letters.
CORE_EXPORT std::string_view Cut(std::string_view utf8, std::size_t most);

}  // namespace text_limits
