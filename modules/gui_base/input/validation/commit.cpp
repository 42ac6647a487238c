// SPDX-License-Identifier: MIT
#include "gui_base/input/validation/commit.h"

#include "gui_base/input/validation/validator.h"

#include <wx/grid.h>
#include <wx/window.h>

namespace {

/// The grid of which `window` edits a cell, or null.
wxGrid* GridAround(wxWindow* window)
{
    for (; window != nullptr && !window->IsTopLevel(); window = window->GetParent()) {
        if (auto* grid = dynamic_cast<wxGrid*>(window))
            return grid;
    }
    return nullptr;
}

}  // namespace

void CommitFocusedField()
{
    wxWindow* focused = wxWindow::FindFocus();
    if (focused == nullptr)
        return;
    if (auto* validator = dynamic_cast<Validator*>(focused->GetValidator()))
        validator->CommitIfModified();
    else if (wxGrid* grid = GridAround(focused))
        grid->DisableCellEditControl();
}
