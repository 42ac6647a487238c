// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/textctrl.h>

/// A small window for a comment of several lines. Ctrl+Enter saves, Escape cancels; the comment counts only
/// when the dialog ended with wxID_OK.
class GUI_BASE_EXPORT CommentEntryDialog : public wxDialog
{
public:
    static constexpr long kStyle = wxCAPTION | wxSYSTEM_MENU | wxCLOSE_BOX | wxRESIZE_BORDER;

    /// Nothing is made before Create.
    CommentEntryDialog() = default;
    CommentEntryDialog(wxWindow* parent, int id, const wxString& title,
                       const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                       long style = kStyle);

    bool Create(wxWindow* parent, int id, const wxString& title, const wxPoint& pos = wxDefaultPosition,
                const wxSize& size = wxDefaultSize, long style = kStyle);

    wxString GetComment() const { return m_comment; }
    void SetComment(const wxString& comment);
    wxTextCtrl* GetField() const { return m_field; }

    /// Takes the text and ends the dialog with wxID_OK.
    void OnSaveClick(wxCommandEvent& event);

private:
    void CreateControls();
    void BindEvents();
    void SetValidators();

    wxString m_comment;
    wxTextCtrl* m_field = nullptr;
    wxButton* m_save = nullptr;
};
