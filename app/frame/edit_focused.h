// SPDX-License-Identifier: MIT
#pragma once

namespace app {

/// Cuts, copies, pastes or selects all in the window with the keyboard: wxID_CUT, wxID_COPY, wxID_PASTE,
/// wxID_SELECTALL. A menu takes the keys of these commands before any window sees them.
void EditFocused(int command);

}  // namespace app
