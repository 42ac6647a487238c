// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/window.h>

namespace accessibility {

/// Names a control for screen readers and automated tests: a field by its label and unit. What else on its
/// page has that name is told apart for screen readers soon after: a result beside its input, or by the boxes
/// around.
GUI_BASE_EXPORT void SetName(wxWindow& window, const wxString& name);

/// "Flow rate [m³/h]"; the label alone without a unit, or where it ends with it already.
GUI_BASE_EXPORT wxString NameWithUnit(const wxString& label, const wxString& unit);

}  // namespace accessibility
