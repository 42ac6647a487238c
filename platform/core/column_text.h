// SPDX-License-Identifier: MIT
#pragma once

/// A column of numbers as a spreadsheet puts it on the clipboard, written with whatever decimal sign its
/// program uses.

#include "core/core_export.h"
#include "core/delimited_text.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace columntext {

/// The most that is read, far above any analysis: whoever copied a whole sheet meant something else.
inline constexpr delimited::Bounds kBounds{
    .bytes = 1u << 20, .rows = 1'000, .columns = 1'000, .cells = 100'000};

struct Cell
{
    std::string text;  ///< as pasted, without blanks around it
    /// An amount or a limit of detection (core/detection_limit.h); nothing for a blank cell and for what is
    /// neither.
    std::optional<double> value;
};

struct Column
{
    std::vector<Cell> cells;
    char decimalSign = '.';
};

/// The column of `text` (rows in lines, cells parted by tabs) that holds the most numbers. The decimal sign
/// is found from all cells together: a sign that stands after the other one, that stands twice nowhere, or
/// that is not followed by exactly three digits. Where the cells do not tell ("1,234"), it is `preferred`.
/// Throws delimited::TooLarge for a text beyond kBounds; the work grows with the length of the text alone.
CORE_EXPORT Column Parse(std::string_view text, char preferred);

}  // namespace columntext
