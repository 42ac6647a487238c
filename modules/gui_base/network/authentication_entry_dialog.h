// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/dialog.h>
#include <wx/textctrl.h>

/// Asks for what a proxy wants to know of its user. Modal.
class GUI_BASE_EXPORT AuthenticationEntryDialog : public wxDialog
{
public:
    explicit AuthenticationEntryDialog(wxWindow* parent, const wxString& user = {});

    wxString GetUser() const { return m_user->GetValue(); }
    wxString GetPassword() const { return m_password->GetValue(); }

private:
    wxTextCtrl* AddField(wxSizer& grid, const wxString& label, long style);

    wxTextCtrl* m_user;
    wxTextCtrl* m_password;
};
