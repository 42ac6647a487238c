// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/window.h>

namespace accessibility {

/// Names a control for screen readers and automated tests: a field by its label and unit.
GUI_BASE_EXPORT void SetName(wxWindow& window, const wxString& name);

/// "Flow rate [m³/h]"; the label alone without a unit.
GUI_BASE_EXPORT wxString NameWithUnit(const wxString& label, const wxString& unit);

}  // namespace accessibility
