// SPDX-License-Identifier: MIT
#pragma once

/// `tarnvik tour DIR`: pictures of every control in each of its states and of every module, in the light and
/// the dark theme and at scale 1 and 2, taken under the current display.
///
/// Theme and scale are fixed when the toolkit starts, so that each of the four looks is a run of the program
/// of its own. The runs use an empty folder for user data: neither do settings of the user show in the
/// pictures, nor does the tour leave anything behind. A screen of 3200 x 2400 pixels holds all windows at
/// scale 2.

#include <iosfwd>
#include <string>
#include <vector>

namespace app {

/// `args` are the words after "tour", as UTF-8. Returns 0; 1 when pictures could not be taken; 2 for words
/// that are not understood.
int RunTour(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace app
