// SPDX-License-Identifier: MIT
#include "gui_base/dialogs/field_fault.h"

#include <wx/colour.h>

namespace dialogs {

void ShowFault(wxTextCtrl& field, const wxString& reason)
{
    const bool isFault = !reason.empty();
    // A dark theme's own text would not be readable on it.
    field.SetBackgroundColour(isFault ? wxColour(255, 160, 144) : wxNullColour);
    field.SetForegroundColour(isFault ? *wxBLACK : wxNullColour);
    field.SetToolTip(reason);
    field.Refresh();
}

}  // namespace dialogs
