// SPDX-License-Identifier: MIT
#pragma once

/// The cells of a laboratory's table: numbers, values below a limit of detection, and texts that a
/// spreadsheet must not take for formulas. Texts are UTF-8; pure functions.

#include "core/core_export.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace laboratory {

/// What a value below a limit of detection ("<0.1") counts as.
enum class LimitReading
{
    Zero,
    Half,  ///< half of the limit, as directive 2009/90/EC has it for means
    Limit
};

struct Number
{
    double value = 0.0;
    bool isLimit = false;  ///< the value lies below this one, and was too small to be found
};

/// The number of a cell; nothing for a blank cell or a text that is none ("n.d.").
std::optional<Number> ReadNumber(std::string_view cell, char decimalSign);

/// What tells the decimal sign: how many cells have a point, and how many a comma.
class DecimalSigns
{
public:
    void Count(std::string_view cell);
    /// The sign that most cells have; never one that parts the cells.
    char Find(char separator) const { return separator != ',' && m_commas > m_points ? ',' : '.'; }

private:
    std::size_t m_points = 0;
    std::size_t m_commas = 0;
};

/// `text` as a cell that no spreadsheet runs as a formula: an apostrophe stands before a text that begins
/// with "=", "+", "-", "@", a tab or a line break, if it is no number. Every text comes back by
/// UnguardFormula.
CORE_EXPORT std::string GuardFormula(const std::string& text);
CORE_EXPORT std::string UnguardFormula(const std::string& text);

}  // namespace laboratory
