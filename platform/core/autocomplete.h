// SPDX-License-Identifier: MIT
#pragma once

/// Finds the entry of a list that the beginning of a text stands for, letter case ignored.
///
/// Texts are UTF-8; lengths count characters (code points). Case is folded character by character for the
/// alphabets with case in use (Latin, Greek, Cyrillic, Armenian), whatever the locale.

#include "core/core_export.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace autocomplete {

/// The lower-case form of a letter; any other character as it is.
CORE_EXPORT char32_t FoldCase(char32_t character);
/// The characters of a text, case folded. Bytes that are no UTF-8 give U+FFFD.
CORE_EXPORT std::u32string FoldText(std::string_view text);
/// Whether `text` starts with `prefix`. An empty prefix matches nothing.
CORE_EXPORT bool IsPartialMatchNoCase(std::string_view text, std::string_view prefix);

struct Match
{
    int index = -1;          ///< of the entry; -1 without a match
    std::size_t length = 0;  ///< characters of the typed text that the entry starts with

    bool operator==(const Match&) const = default;
};

class CORE_EXPORT Matcher
{
public:
    explicit Matcher(const std::vector<std::string>& entries = {});

    /// The first entry that starts with `typed`, or else with the longest beginning of it that any entry
    /// starts with.
    Match Find(std::string_view typed) const;

private:
    // All folded entries in a row; entry i ends where the next begins.
    std::u32string m_characters;
    std::vector<std::size_t> m_ends;
};

}  // namespace autocomplete
