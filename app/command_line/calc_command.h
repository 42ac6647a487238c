// SPDX-License-Identifier: MIT
#pragma once

/// `tarnvik calc FILE [--set KEY=VALUE[unit]]... [--json]`: calculates a project and prints its results,
/// without a window. The file is only read.

#include <iosfwd>
#include <string>
#include <vector>

namespace app {

/// `args` are the words after "calc", as UTF-8. Results go to `out`, messages to `err`. Returns 0; 1 when the
/// project cannot be loaded, set or calculated; 2 for words that are not understood.
int RunCalc(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace app
