// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/event.h>

class wxWindow;

namespace wheel {

/// Handles the wheel over a control whose value the toolkit would change: without the focus, `surroundings`
/// (the control's parent where it is null) gets the event instead, so that scrolling a panel changes nothing
/// under way.
GUI_BASE_EXPORT void ScrollParentUnlessFocused(wxWindow& control, wxMouseEvent& event,
                                               wxWindow* surroundings = nullptr);

/// Gives an event of the wheel to the window around a control that has nothing to scroll.
GUI_BASE_EXPORT void ScrollParent(wxWindow& parent, const wxMouseEvent& event);

}  // namespace wheel
