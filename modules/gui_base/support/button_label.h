// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/button.h>

namespace button_label {

/// Shows `text` (with "&" before its access key) on a button whatever its identifier. The toolkit takes a
/// text that equals its own name of a standard button for that button, and shows it in the language of the
/// system instead of that of the program.
GUI_BASE_EXPORT void Set(wxButton& button, const wxString& text);
/// A button that shows `text` so.
GUI_BASE_EXPORT wxButton* NewButton(wxWindow* parent, int id, const wxString& text);

}  // namespace button_label
