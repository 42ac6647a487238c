// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/checkbox.h>
#include <wx/dialog.h>

/// A message with an OK button and the choice not to show it again. The dialog remembers nothing itself:
/// whoever shows it keeps the choice, also when the dialog is closed by Escape.
///
/// With wxCANCEL in its style it has a Cancel button too, which is then what Escape means.
class GUI_BASE_EXPORT InfoMessageDialog : public wxDialog
{
public:
    /// Source texts; an empty title is "Information".
    InfoMessageDialog(const wxString& message, wxWindow* parent, int id = wxID_ANY,
                      const wxString& title = {}, const wxPoint& pos = wxDefaultPosition,
                      const wxSize& size = wxDefaultSize, long style = wxDEFAULT_DIALOG_STYLE,
                      const wxString& name = wxASCII_STR(wxDialogNameStr));

    bool GetDontShowAgainValue() const { return m_dontShowAgain->GetValue(); }

private:
    wxCheckBox* m_dontShowAgain;
};
