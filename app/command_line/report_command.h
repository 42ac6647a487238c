// SPDX-License-Identifier: MIT
#pragma once

/// `tarnvik report FILE -o OUT.pdf [--units SYSTEM] [--language CODE] [--pages NAME,...]`: writes the report
/// of a project, without a window and without a display. The project's file is only read.

#include <iosfwd>
#include <string>
#include <vector>

namespace app {

/// `args` are the words after "report", as UTF-8. Messages go to `err`, help to `out`. Returns 0; 1 when the
/// project cannot be loaded or the report not be written; 2 for words that are not understood.
int RunReport(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace app
