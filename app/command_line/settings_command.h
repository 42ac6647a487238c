// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace app {

/// `tarnvik settings [NAME=VALUE]... [--reset NAME]...`: prints the settings of the program, after it has
/// changed those that are named; all of them or none. Returns the exit code.
int RunSettings(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace app
