// SPDX-License-Identifier: MIT
#include "core/amount_text.h"

namespace numbertext {

namespace {

constexpr std::string_view kNoBreakSpace = "\u00a0";

}  // namespace

std::string WithUnit(std::string_view number, std::string_view unit)
{
    std::string text(number);
    if (!number.empty() && !unit.empty())
        text.append(kNoBreakSpace).append(unit);
    return text;
}

std::string WithUsualBlanks(std::string text)
{
    for (auto at = text.find(kNoBreakSpace); at != std::string::npos; at = text.find(kNoBreakSpace, at))
        text.replace(at, kNoBreakSpace.size(), " ");
    return text;
}

}  // namespace numbertext
