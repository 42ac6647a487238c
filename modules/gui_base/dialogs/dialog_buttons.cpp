// SPDX-License-Identifier: MIT
#include "gui_base/dialogs/dialog_buttons.h"

#include "gui_base/support/translation.h"

#include <wx/button.h>

namespace dialogs {

wxSizer* CreateButtons(wxDialog& dialog, bool cancel, const wxString& okLabel)
{
    // The toolkit translates its own labels only where its own catalogue is installed.
    auto* sizer = new wxStdDialogButtonSizer;
    auto* ok = new wxButton(&dialog, wxID_OK, i18n::Translated(okLabel));
    ok->SetDefault();
    sizer->AddButton(ok);
    if (cancel)
        sizer->AddButton(new wxButton(&dialog, wxID_CANCEL, i18n::Translated("Cancel")));
    sizer->Realize();
    return sizer;
}

}  // namespace dialogs
