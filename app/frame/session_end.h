// SPDX-License-Identifier: MIT
#pragma once

namespace app {

class MainFrame;

/// When the process is told to end, or the desktop session ends, the unsaved work of the window is kept for
/// the next start first, with what stands in the field that is being typed into. Without a window there is
/// nothing to keep. Where the display goes first, what is typed and not yet left is lost. Of all calls the
/// last one counts.
void KeepWorkAtSessionEnd(MainFrame& frame);

}  // namespace app
