// SPDX-License-Identifier: MIT
#pragma once

/// Results of a project as text. Numbers have a decimal point whatever the locale.

#include <iosfwd>
#include <string>
#include <vector>

class Project;

namespace app {

/// One table for each water, in the unit system of the project, in which what is not known is shown as a
/// dash; then what is known of each exchanger.
void PrintTable(const Project& project, std::ostream& out);

/// See ProjectToJson.
void PrintJson(const Project& project, const std::string& file, std::ostream& out);

/// One sentence for each value that lies outside its limits.
std::vector<std::string> RangeWarnings(const Project& project);

}  // namespace app
