// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

/// Mixed into controls of several windows that take the text which is typed into one of them.
class GUI_BASE_EXPORT TextTaker
{
public:
    TextTaker() = default;
    TextTaker(const TextTaker&) = default;
    TextTaker& operator=(const TextTaker&) = default;
    virtual ~TextTaker() = default;

    /// Stores what is being typed, as leaving the control would.
    virtual void CommitText() = 0;
};

/// Commits the text that is being edited in the focused field, as leaving it would. Menu commands and
/// shortcuts do not move the focus: whatever saves, undoes or switches calls this first. Does nothing when
/// the focus is elsewhere.
GUI_BASE_EXPORT void CommitFocusedField();
