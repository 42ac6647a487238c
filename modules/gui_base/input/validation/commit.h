// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

/// Commits the text that is being edited in the focused field, as leaving it would. Menu commands and
/// shortcuts do not move the focus: whatever saves, undoes or switches calls this first. Does nothing when
/// the focus is elsewhere.
GUI_BASE_EXPORT void CommitFocusedField();
