// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>

namespace wateranalysis {

/// A value and the limit that it breaks as texts, with `digits` or, where these would not tell one from the
/// other, as few more as do. `format` makes the text of a number with as many digits.
template <typename Format>
std::pair<std::string, std::string> ToldApart(double value, double limit, int digits, const Format& format)
{
    constexpr int kMostDigits = 15;
    for (;; ++digits) {
        std::pair<std::string, std::string> texts{format(value, digits), format(limit, digits)};
        if (texts.first != texts.second || digits >= kMostDigits)
            return texts;
    }
}

}  // namespace wateranalysis
