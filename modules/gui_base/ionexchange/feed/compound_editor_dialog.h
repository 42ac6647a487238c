// SPDX-License-Identifier: MIT
#pragma once

/// A window in which one compound is edited. It ends with wxID_OK when the compound was saved, with
/// wxID_CANCEL when it was closed; what is done with the compound is up to the caller. Ctrl+S saves, Escape
/// closes.

#include "gui_base/gui_base_export.h"
#include "projectbase/feed/compound.h"

#include <wx/dialog.h>

class CompoundEditorPanel;

class GUI_BASE_EXPORT CompoundEditorDialog : public wxDialog
{
public:
    static constexpr long kStyle = wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER;

    CompoundEditorDialog(const Compound& compound, wxWindow* parent, int id, const wxString& title,
                         const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                         long style = kStyle);

    /// The compound as it was saved, or else as it was handed in; its identifier is that of the latter.
    const Compound& GetCompound() const { return m_compound; }
    CompoundEditorPanel& GetPanel() { return *m_panel; }

private:
    void OnSave();
    void OnClear();
    void OnClose(wxCloseEvent& event);
    void OnCharHook(wxKeyEvent& event);
    void End(int result);
    bool MayClose();

    Compound m_compound;
    Compound m_shown;  ///< as the untouched panel gives it back
    CompoundEditorPanel* m_panel = nullptr;
};
