// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/wheel.h"

#include <wx/window.h>

namespace wheel {

void ScrollParentUnlessFocused(wxWindow& control, wxMouseEvent& event, wxWindow* surroundings)
{
    wxWindow* parent = surroundings != nullptr ? surroundings : control.GetParent();
    if (control.HasFocus() || parent == nullptr) {
        event.Skip();
        return;
    }
    ScrollParent(*parent, event);
}

void ScrollParent(wxWindow& parent, const wxMouseEvent& event)
{
    wxMouseEvent forwarded(event);
    forwarded.SetEventObject(&parent);
    parent.GetEventHandler()->ProcessEvent(forwarded);
}

}  // namespace wheel
