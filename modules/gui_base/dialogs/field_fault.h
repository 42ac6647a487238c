// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/string.h>
#include <wx/textctrl.h>

namespace dialogs {

/// Colours a field whose text cannot be taken, with the reason as its tip; an empty reason ends that.
GUI_BASE_EXPORT void ShowFault(wxTextCtrl& field, const wxString& reason);

}  // namespace dialogs
