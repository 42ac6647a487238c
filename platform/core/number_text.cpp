// SPDX-License-Identifier: MIT
#include "core/number_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace numbertext {
namespace {

constexpr int kDefaultDigits = 6;
constexpr int kPlainDigits = 9;
constexpr int kLeastPlain = -7;
constexpr int kMaxDigits = 15;

constexpr std::string_view kNoBreakSpace = "\u00a0";
constexpr std::string_view kNarrowNoBreakSpace = "\u202f";

void DropTrailingZeros(std::string& text)
{
    if (text.find('.') == std::string::npos)
        return;
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
}

/// "1.500000e-07" as "1.5e-7".
void Shorten(std::string& text)
{
    const auto at = text.find('e');
    if (at == std::string::npos)
        return;
    std::string mantissa = text.substr(0, at);
    DropTrailingZeros(mantissa);
    const auto digits = text.find_first_not_of('0', at + 2);
    // An exponent of zero says nothing.
    if (digits == std::string::npos) {
        text = mantissa;
        return;
    }
    const std::string sign = text[at + 1] == '-' ? "-" : "";
    text = mantissa + "e" + sign + text.substr(digits);
}

void ReplaceAll(std::string& text, std::string_view from, std::string_view to)
{
    if (from.empty())
        return;
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

void GroupThousands(std::string& text, std::string_view separator)
{
    const auto first = text.find_first_of("0123456789");
    auto end = std::min(text.find('.'), text.size());
    while (end > first + 3) {
        end -= 3;
        text.insert(end, separator);
    }
}

/// A value that rounds to zero has no sign.
void DropSignOfZero(std::string& text)
{
    if (!text.empty() && text.front() == '-' && text.find_first_of("123456789") == std::string::npos)
        text.erase(0, 1);
}

bool IsSpaceSeparator(std::string_view separator)
{
    return separator == kNoBreakSpace || separator == kNarrowNoBreakSpace || separator == " ";
}

}  // namespace

std::string Format(double value, const Style& style, const Separators& separators)
{
    if (!std::isfinite(value))
        return {};
    std::string text;
    bool fixed = true;
    switch (style.format) {
        case TvTextCtrlFormat::General: {
            const int digits = std::min(style.precision > 0 ? style.precision : kDefaultDigits, kMaxDigits);
            int exponent = value == 0.0 ? 0 : static_cast<int>(std::floor(std::log10(std::fabs(value))));
            if (exponent < 0)
                --exponent;
            const bool isSmall = exponent < -digits;
            const bool isPlain = style.plain && exponent >= kLeastPlain && exponent < kPlainDigits;
            fixed = isPlain || (!isSmall && exponent < digits);
            if (fixed) {
                const int decimals = isSmall ? digits - exponent - 2 : digits - std::max(exponent, 0);
                text = fmt::format("{:.{}f}", value, std::max(decimals, 0));
                DropTrailingZeros(text);
            } else {
                text = fmt::format("{:.{}e}", value, digits);
                if (style.plain || style.shortExponent)
                    Shorten(text);
            }
            break;
        }
        case TvTextCtrlFormat::Fixed:
            text = fmt::format("{:.{}f}", value, std::max(style.precision, 0));
            if (style.trimZeros)
                DropTrailingZeros(text);
            break;
        case TvTextCtrlFormat::Scientific:
            fixed = false;
            text = fmt::format("{:.{}e}", value, std::max(style.precision, 0));
            break;
    }
    DropSignOfZero(text);
    const auto point = text.find('.');
    std::string decimals = point == std::string::npos ? std::string() : text.substr(point + 1);
    if (point != std::string::npos)
        text.erase(point);
    if (fixed && style.groupThousands)
        GroupThousands(text, separators.thousands);
    if (point != std::string::npos)
        text += separators.decimal + decimals;
    return text;
}

void AlignDecimals(std::vector<std::string>& texts, const Separators& separators)
{
    constexpr std::string_view digitSpace = "\u2007";
    constexpr std::string_view signSpace = "\u2008";
    // The digits behind the decimal sign; -1 without one.
    const auto decimals = [&separators](const std::string& text) -> std::optional<int> {
        if (text.find_first_of("eE") != std::string::npos || !Parse(text, separators))
            return std::nullopt;
        const std::size_t sign = text.find(separators.decimal);
        return sign == std::string::npos ? -1
                                         : static_cast<int>(text.size() - sign - separators.decimal.size());
    };
    int most = -1;
    for (const std::string& text : texts)
        most = std::max(most, decimals(text).value_or(-1));
    for (std::string& text : texts) {
        const std::optional<int> own = decimals(text);
        if (!own || *own == most)
            continue;
        if (*own < 0)
            text += signSpace;
        for (int i = std::max(*own, 0); i < most; ++i)
            text += digitSpace;
    }
}

std::string Trim(std::string_view text)
{
    const auto strip = [](auto matches, auto remove) {
        for (std::string_view blank : {std::string_view(" "), std::string_view("\t"), std::string_view("\n"),
                                       std::string_view("\r"), kNoBreakSpace, kNarrowNoBreakSpace}) {
            if (matches(blank)) {
                remove(blank.size());
                return true;
            }
        }
        return false;
    };
    while (strip([&](std::string_view b) { return text.starts_with(b); },
                 [&](std::size_t n) { text.remove_prefix(n); })) {
    }
    while (strip([&](std::string_view b) { return text.ends_with(b); },
                 [&](std::size_t n) { text.remove_suffix(n); })) {
    }
    return std::string(text);
}

std::optional<double> Parse(std::string_view text, const Separators& separators)
{
    std::string plain = Trim(text);
    ReplaceAll(plain, separators.thousands, "");
    if (IsSpaceSeparator(separators.thousands)) {
        // Grouped numbers from elsewhere use whichever blank their program knew.
        for (std::string_view blank : {kNoBreakSpace, kNarrowNoBreakSpace, std::string_view(" ")})
            ReplaceAll(plain, blank, "");
    }
    if (separators.decimal != ".") {
        if (plain.find('.') != std::string::npos)
            return std::nullopt;
        ReplaceAll(plain, separators.decimal, ".");
    }
    std::string_view number = plain;
    if (number.starts_with('+') && !number.starts_with("+-"))
        number.remove_prefix(1);
    const std::string_view unsignedPart = number.starts_with('-') ? number.substr(1) : number;
    if (unsignedPart.empty() ||
        (unsignedPart.front() != '.' && !(unsignedPart.front() >= '0' && unsignedPart.front() <= '9')))
        return std::nullopt;
    double value = 0.0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (end != number.data() + number.size() || error == std::errc::invalid_argument)
        return std::nullopt;
    if (error == std::errc::result_out_of_range) {
        // from_chars does not say in which direction; the exponent's sign does.
        const auto exponent = number.find_first_of("eE");
        const bool tiny = exponent != std::string_view::npos
                              ? number.substr(exponent + 1).starts_with('-')
                              : unsignedPart.starts_with('.') || unsignedPart.starts_with('0');
        value = tiny ? 0.0 : std::numeric_limits<double>::max();
        if (number.starts_with('-'))
            value = -value;
    }
    return value;
}

double RoundUp(double value, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    const double scaled = value * scale;
    return std::isfinite(scaled) ? std::ceil(scaled) / scale : value;
}

}  // namespace numbertext
