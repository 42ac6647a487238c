// SPDX-License-Identifier: MIT
#pragma once

/// Asks for one line of text, with buttons in the program's language.

#include "gui_base/gui_base_export.h"

#include <wx/dialog.h>
#include <wx/textctrl.h>

class GUI_BASE_EXPORT LineEntryDialog : public wxDialog
{
public:
    /// `title` and `label` are shown as they are; the text cannot be longer than `most` characters, and an
    /// empty one cannot be taken.
    LineEntryDialog(wxWindow* parent, const wxString& title, const wxString& label, const wxString& text,
                    unsigned long most);

    /// Without blanks around it.
    wxString GetText() const;

private:
    wxTextCtrl* m_field;
};
