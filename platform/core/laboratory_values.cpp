// SPDX-License-Identifier: MIT
#include "core/laboratory_values.h"

#include "core/detection_limit.h"
#include "core/number_text.h"

namespace laboratory {
namespace {

/// A longer text is no number: what a laboratory writes has a dozen digits.
constexpr std::size_t kLongestNumber = 100;
constexpr std::string_view kFormulaBegins = "=+-@\t\r\n";

/// Whether a text is, behind any number of apostrophes, what a spreadsheet would run.
bool IsFormula(const std::string& text)
{
    const std::size_t first = text.find_first_not_of('\'');
    return first != std::string::npos && kFormulaBegins.find(text[first]) != std::string_view::npos;
}

}  // namespace

std::optional<Number> ReadNumber(std::string_view cell, char decimalSign)
{
    const auto separators =
        decimalSign == ',' ? numbertext::Separators{",", "."} : numbertext::Separators{".", ","};
    if (cell.size() > kLongestNumber)
        return std::nullopt;
    const std::string text = numbertext::Trim(cell);
    const auto limit = detection_limit::Behind(text);
    const auto number = numbertext::Parse(limit.value_or(text), separators);
    if (!number || (limit && *number < 0.0))
        return std::nullopt;
    return Number{*number, limit.has_value()};
}

void DecimalSigns::Count(std::string_view cell)
{
    if (cell.size() > kLongestNumber)
        return;
    const std::string text = numbertext::Trim(cell);
    const std::string_view number = detection_limit::Behind(text).value_or(text);
    if (number.find_first_not_of("0123456789.,+-eE ") != std::string_view::npos)
        return;
    const std::size_t point = number.rfind('.');
    const std::size_t comma = number.rfind(',');
    if (point == std::string_view::npos && comma == std::string_view::npos)
        return;
    const bool byComma =
        point == std::string_view::npos || (comma != std::string_view::npos && comma > point);
    ++(byComma ? m_commas : m_points);
}

std::string GuardFormula(const std::string& text)
{
    const bool isNumber = numbertext::Trim(text) == text && numbertext::Parse(text, {}).has_value();
    return IsFormula(text) && !isNumber ? "'" + text : text;
}

std::string UnguardFormula(const std::string& text)
{
    return text.starts_with('\'') && IsFormula(text) ? text.substr(1) : text;
}

}  // namespace laboratory
