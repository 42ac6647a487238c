// SPDX-License-Identifier: MIT
#include "gui_base/input/validation/commit.h"

#include "gui_base/input/validation/validator.h"

#include <wx/grid.h>
#include <wx/window.h>

namespace {

/// The control of that kind that `window` is a part of, as the editor of a cell is of its grid, or null.
template <typename Control>
Control* Around(wxWindow* window)
{
    for (; window != nullptr && !window->IsTopLevel(); window = window->GetParent()) {
        if (auto* control = dynamic_cast<Control*>(window))
            return control;
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
    else if (auto* grid = Around<wxGrid>(focused))
        grid->DisableCellEditControl();
    else if (auto* taker = Around<TextTaker>(focused))
        taker->CommitText();
}
