// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/window.h>

namespace accessibility {

/// Names a control for screen readers and automated tests: a field by its label and unit.
GUI_BASE_EXPORT void SetName(wxWindow& window, const wxString& name);

}  // namespace accessibility
