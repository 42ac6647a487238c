// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/input/binding/detail_container_window.h"

#include <wx/window.h>

/// Base of the combinations (label, field, unit or list) whose entries come from the databases. A combination
/// is no window; it tells which id its events carry, so that a panel can connect itself.
class GUI_BASE_EXPORT DataBaseCombination : public DetailContainerWindow
{
public:
    DataBaseCombination() = default;
    DataBaseCombination(const DataBaseCombination&) = default;
    DataBaseCombination& operator=(const DataBaseCombination&) = default;

    /// Id of the control whose events tell of an edit.
    virtual int GetControlId() const { return wxID_ANY; }
    /// The text field that shows hints in the status bar, or null.
    virtual wxWindow* GetInputWindow() const { return nullptr; }
};
