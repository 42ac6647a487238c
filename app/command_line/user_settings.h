// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>

namespace app {

/// Reads the settings of the user, so that commands judge waters by the same rules and limits as the window.
/// Where nothing was ever stored, the usual ones hold; so they do, and `err` is told, where they cannot be
/// read.
void TakeUserSettings(std::ostream& err);

}  // namespace app
