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

/// The sentence of a broken limit, whose first "%s" is the value with its label, a second one the limit.
template <typename Format>
std::string ToldSentence(std::string sentence, const std::string& label, double value, double limit,
                         int digits, const Format& format)
{
    const auto [shown, broken] = ToldApart(value, limit, digits, format);
    std::size_t from = 0;
    for (const std::string& part : {label + " " + shown, broken}) {
        const auto at = sentence.find("%s", from);
        if (at == std::string::npos)
            break;
        sentence.replace(at, 2, part);
        from = at + part.size();
    }
    return sentence;
}

}  // namespace wateranalysis
