// SPDX-License-Identifier: MIT
#include "core/text_limits.h"

#include <algorithm>

namespace text_limits {

namespace {

bool BeginsLetter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

}  // namespace

std::size_t MostOf(std::string_view key)
{
    if (key.ends_with("/comments"))
        return kText;
    if (key == "step/remarks")
        return kRemarks;
    if (key.ends_with("/formula"))
        return kFormula;
    return key == "liquid/blend.parts" || key == "liquid/amine.bases" ? kRecipe : kName;
}

std::size_t CountLetters(std::string_view utf8)
{
    return static_cast<std::size_t>(std::ranges::count_if(utf8, BeginsLetter));
}

std::string_view Cut(std::string_view utf8, std::size_t most)
{
    std::size_t letters = 0;
    for (std::size_t at = 0; at < utf8.size(); ++at) {
        if (BeginsLetter(utf8[at]) && ++letters > most)
            return utf8.substr(0, at);
    }
    return utf8;
}

}  // namespace text_limits
