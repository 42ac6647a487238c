// SPDX-License-Identifier: MIT
#include "app/frame/water_names.h"

#include "projectbase/project/project.h"

#include <charconv>

namespace app {
namespace {

constexpr std::size_t kMostCountDigits = 3;

bool IsTaken(const Project& project, const std::string& name)
{
    for (std::size_t i = 0; i < project.GetLiquidCount(); ++i) {
        if (project.GetLiquid(i).GetName() == name)
            return true;
    }
    return false;
}

/// "Well 4" or the next one that is free.
std::string Counted(const Project& project, const std::string& stem, int number)
{
    for (;; ++number) {
        std::string name = stem + " " + std::to_string(number);
        if (!IsTaken(project, name))
            return name;
    }
}

}  // namespace

std::string NewWaterName(const Project& project, const std::string& wanted)
{
    return IsTaken(project, wanted) ? Counted(project, wanted, 2) : wanted;
}

std::string CopyOfWaterName(const Project& project, const std::string& original)
{
    const std::size_t blank = original.rfind(' ');
    const std::string digits = blank == std::string::npos ? std::string() : original.substr(blank + 1);
    int number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const bool isCount = error == std::errc() && end == digits.data() + digits.size() &&
                         digits.size() <= kMostCountDigits && digits.front() != '0' && number > 1;
    if (isCount)
        return Counted(project, original.substr(0, blank), number + 1);
    return NewWaterName(project, original);
}

}  // namespace app
