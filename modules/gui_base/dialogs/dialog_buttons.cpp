// SPDX-License-Identifier: MIT
#include "gui_base/dialogs/dialog_buttons.h"

#include "gui_base/support/button_label.h"
#include "gui_base/support/translation.h"

#include <wx/button.h>
#include <wx/intl.h>

namespace dialogs {

wxSizer* CreateButtons(wxDialog& dialog, bool cancel, const wxString& okLabel, const wxString& cancelLabel)
{
    // The toolkit translates its own labels only where its own catalogue is installed.
    auto* sizer = new wxStdDialogButtonSizer;
    const auto button = [&dialog](int id, const wxString& label) {
        return button_label::NewButton(&dialog, id, i18n::Translated(label));
    };
    wxButton* ok = button(wxID_OK, okLabel);
    ok->SetDefault();
    sizer->AddButton(ok);
    if (cancel)
        sizer->AddButton(button(wxID_CANCEL, cancelLabel));
    sizer->Realize();
    return sizer;
}

}  // namespace dialogs
