// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/string.h>

class WaterAnalysisPanel;

namespace wateranalysis {

/// Opens the list of units at the row with the keyboard; the chosen one becomes that of all ions.
GUI_BASE_EXPORT void ChooseUnitForAll(WaterAnalysisPanel& panel);

/// Gives all ions the unit. Where numbers stand in other units the user is asked whether they are to be
/// converted or were meant so; closing the question changes nothing. One step of the history.
GUI_BASE_EXPORT void SetUnitForAll(WaterAnalysisPanel& panel, const wxString& unit);

}  // namespace wateranalysis
