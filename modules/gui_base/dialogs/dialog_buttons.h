// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/dialog.h>
#include <wx/sizer.h>

namespace dialogs {

/// The standard OK button of `dialog`, with Cancel if asked for. The labels are source texts, shown
/// translated.
GUI_BASE_EXPORT wxSizer* CreateButtons(wxDialog& dialog, bool cancel, const wxString& okLabel = "OK",
                                       const wxString& cancelLabel = "Cancel");

}  // namespace dialogs
