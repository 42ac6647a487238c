// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/choice.h>

namespace choice_popup {

/// Opens the list of a choice, for the keyboard; false where it cannot be chosen from. The focus comes back
/// to where it was when the list is closed.
GUI_BASE_EXPORT bool Open(wxChoice& choice);

}  // namespace choice_popup
