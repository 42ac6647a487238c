// SPDX-License-Identifier: MIT
#pragma once

/// What the window shows while the user database's server does not answer: that it is waited for, and a
/// button to give it up. Without a window nothing is shown.

#include "dbinterfaces/wait_indicator.h"

#include <memory>

namespace app {

std::unique_ptr<WaitIndicator> ShowDatabaseWait();

}  // namespace app
