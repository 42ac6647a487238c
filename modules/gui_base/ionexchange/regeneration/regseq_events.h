// SPDX-License-Identifier: MIT
#pragma once

/// What the view of a regeneration sequence tells its controller. The view processes them on itself at once,
/// so that an edit is in the project when the event that caused it has been worked off.

#include "gui_base/gui_base_export.h"

#include <wx/event.h>

wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvREGSEQ_ADD_STEP, wxCommandEvent);
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvREGSEQ_MOVE_UP, wxCommandEvent);
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvREGSEQ_MOVE_DOWN, wxCommandEvent);
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvREGSEQ_REMOVE_STEP, wxCommandEvent);
/// The text of the remarks was changed, or their field was left.
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvREGSEQ_REMARKS_CHANGED, wxCommandEvent);
/// A cell of the grid was changed.
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvREGSEQ_CHANGED, wxCommandEvent);
/// Others changed the project, or the language is another one.
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvREGSEQ_REFRESH, wxCommandEvent);
