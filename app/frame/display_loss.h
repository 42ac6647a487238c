// SPDX-License-Identifier: MIT
#pragma once

namespace app {

/// Calls `keep` when the display is gone, as when the desktop session ends with its windows open: the toolkit
/// then ends the process without an event or a signal. `keep` must not touch a window nor throw. Of all calls
/// the last one counts. GUI thread only.
void KeepWorkAtDisplayLoss(void (*keep)());

}  // namespace app
