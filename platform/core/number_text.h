// SPDX-License-Identifier: MIT
#pragma once

/// Numbers as the user reads and types them: notation, precision and the separators of a locale.
/// Pure functions; every text is UTF-8.

#include "core/core_export.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Notation of a displayed number.
enum class TvTextCtrlFormat : int
{
    General = 0,     ///< fixed while the decimal exponent allows it, scientific otherwise
    Fixed = 1,       ///< a fixed number of decimals
    Scientific = 2,  ///< mantissa and exponent
};

namespace numbertext {

/// The separators of a locale; either may take several bytes (a narrow no-break space), the grouping one may
/// be empty.
struct Separators
{
    std::string decimal = ".";
    std::string thousands;
};

struct Style
{
    TvTextCtrlFormat format = TvTextCtrlFormat::General;
    int precision = 6;  ///< decimals, or significant digits in General notation
    bool trimZeros = false;
    bool groupThousands = false;
    bool plain = false;  ///< General notation writes numbers from a millionth to a thousand million without
                         ///< an exponent
    bool shortExponent = false;  ///< General notation writes "1.5e-7", as a plain one does anyway
};

/// `value` as text; empty for NaN and infinities. General notation uses d = precision significant digits (6
/// when the precision is not positive, 15 at most): fixed while the exponent e satisfies -d <= e < d, where a
/// negative e counts one lower, and "{:.{d}e}" otherwise, which a short exponent leaves without idle zeros
/// and signs.
CORE_EXPORT std::string Format(double value, const Style& style, const Separators& separators);

/// The number that `text` states, with grouping separators removed; blanks around it are ignored. A number
/// too large for a double becomes the largest one. Nothing when the text as a whole is no number ("1,5" where
/// the comma is no separator, "abc", "1e", "nan").
CORE_EXPORT std::optional<double> Parse(std::string_view text, const Separators& separators);

/// Appends blanks as wide as digits and as decimal signs, so that the decimal signs of right-aligned texts
/// stand below each other. What has an exponent, an inequality or is no number stays as it is.
CORE_EXPORT void AlignDecimals(std::vector<std::string>& texts, const Separators& separators);

/// `text` without white space (also no-break spaces) at both ends.
CORE_EXPORT std::string Trim(std::string_view text);

/// ceil(value * 10^decimals) / 10^decimals: always upward, also for negative values.
CORE_EXPORT double RoundUp(double value, int decimals);

}  // namespace numbertext
