// SPDX-License-Identifier: MIT
#pragma once

/// Keys that every grid of the library answers alike. GUI thread only.

#include "gui_base/gui_base_export.h"

#include <wx/event.h>
#include <wx/window.h>

namespace grid_keys {

/// The key that opens a context menu.
GUI_BASE_EXPORT bool IsMenuKey(const wxKeyEvent& event);

/// Leaves a grid, which keeps Tab for its cells, to the control before or behind it.
GUI_BASE_EXPORT void LeaveByTab(wxWindow& grid, bool forward);

}  // namespace grid_keys
