// SPDX-License-Identifier: MIT
#include "gui_base/input/validation/commit.h"

#include "gui_base/input/validation/validator.h"

#include <wx/window.h>

void CommitFocusedField()
{
    wxWindow* focused = wxWindow::FindFocus();
    if (focused == nullptr)
        return;
    if (auto* validator = dynamic_cast<Validator*>(focused->GetValidator()))
        validator->CommitIfModified();
}
