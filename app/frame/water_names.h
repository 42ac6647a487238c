// SPDX-License-Identifier: MIT
#pragma once

#include <string>

class Project;

namespace app {

/// A name that no water of the project has: "Water", "Water 2", ...
std::string NewWaterName(const Project& project, const std::string& wanted);
/// The same for a copy of a water, which goes on counting: "Well 2" after "Well", "Well 3" after "Well 2". A
/// number of more than three digits is a year or a code of the name itself and stays: "Well 2019 2".
std::string CopyOfWaterName(const Project& project, const std::string& original);

}  // namespace app
