// SPDX-License-Identifier: MIT
#include "gui_base/network/network_failure.h"

#include "gui_base/network/connection_dialog.h"
#include "gui_base/support/translation.h"

#include <wx/msgdlg.h>

namespace network_failure {

wxString NextStep()
{
    return i18n::Translated(
        "If the network is the cause, check the settings of the connection (proxy) or try again later.");
}

wxString SettingsLabel()
{
    return i18n::Translated("Connection settings...");
}

bool ChangeSettings(wxWindow* parent)
{
    return ConnectionDialog(parent).ShowModal() == wxID_OK;
}

bool Show(wxWindow* parent, const wxString& message, const wxString& title, const wxString& cause,
          const wxString& nextStep)
{
    wxMessageDialog dialog(parent, message, title,
                           wxOK | wxCANCEL | wxCANCEL_DEFAULT | wxCENTRE | wxICON_ERROR);
    dialog.SetOKCancelLabels(SettingsLabel(), i18n::Translated("C&lose"));
    dialog.SetExtendedMessage(cause.empty() ? nextStep : cause + "\n\n" + nextStep);
    return dialog.ShowModal() == wxID_OK && ChangeSettings(parent);
}

}  // namespace network_failure
