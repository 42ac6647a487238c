// SPDX-License-Identifier: MIT
#pragma once

/// What is said of a water, in short words.

#include "projectbase/advice/water_advice.h"
#include "projectbase/project/project.h"

#include <string>
#include <string_view>
#include <vector>

namespace support {

inline std::vector<advice::Advice> On(const Project& project, std::size_t water = 0)
{
    return advice::AdviceOn(project, project.GetLiquid(water));
}

/// "baso4! caustic" with a mark behind warnings.
inline std::string Ids(const Project& project, std::string_view beginning = {})
{
    std::string ids;
    for (const advice::Advice& advice : On(project)) {
        if (advice.id.starts_with(beginning))
            ids += (ids.empty() ? "" : " ") + advice.id + (advice::IsWarning(advice) ? "!" : "");
    }
    return ids;
}

}  // namespace support
