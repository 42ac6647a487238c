// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/text_length.h"

#include <wx/textctrl.h>

namespace text_length {

void Limit(wxTextCtrl& field, unsigned long most)
{
    field.Bind(wxEVT_TEXT, [&field, most](wxCommandEvent& event) {
        const auto end = static_cast<long>(most);
        // Later: whoever changes the text is not done with it yet.
        if (field.GetLastPosition() > end)
            field.CallAfter([&field, end] { field.Remove(end, field.GetLastPosition()); });
        event.Skip();
    });
}

}  // namespace text_length
