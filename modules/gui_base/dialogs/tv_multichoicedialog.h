// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/choicdlg.h>

/// A check-list dialog with buttons that select all entries or none.
class GUI_BASE_EXPORT TvMultiChoiceDialog : public wxMultiChoiceDialog
{
public:
    /// The texts are shown as they are.
    TvMultiChoiceDialog(wxWindow* parent, const wxString& message, const wxString& caption, int n,
                        const wxString* choices, long style = wxCHOICEDLG_STYLE,
                        const wxPoint& pos = wxDefaultPosition);

    void CheckAll(bool check);
    void OnSelectAll(wxCommandEvent& event);
    void OnDeselectAll(wxCommandEvent& event);

protected:
    wxListBoxBase* CreateList(int n, const wxString* choices, long style) override;
};
