// SPDX-License-Identifier: MIT
#pragma once

/// A report-style list as the drop-down part of a wxComboCtrl: `combo->SetPopupControl(new
/// tvListViewComboPopup)`, then columns and rows are added to the list.
///
/// The row under the pointer is highlighted; a click or Enter chooses the highlighted row, closes the
/// drop-down and sends a wxEVT_COMBOBOX from the combo control (integer: the row, text: its first column).
/// Escape closes without a choice. The combo control owns the popup. GUI thread only.

#include "gui_base/gui_base_export.h"

#include <wx/combo.h>
#include <wx/listctrl.h>

class GUI_BASE_EXPORT tvListViewComboPopup : public wxListView, public wxComboPopup
{
public:
    tvListViewComboPopup() = default;

    bool Create(wxWindow* parent) override;
    wxWindow* GetControl() override { return this; }
    /// Text of the chosen row's first column; empty without one.
    wxString GetStringValue() const override;
    /// Makes the first row of that text the chosen one; none when there is no such row.
    void SetStringValue(const wxString& value) override;
    void OnPopup() override;
    wxSize GetAdjustedSize(int minWidth, int preferredHeight, int maxHeight) override;

    /// The arrow keys of the closed control choose the next row or the one before.
    void OnComboKeyEvent(wxKeyEvent& event) override;

    /// Makes a row the chosen one, or none for wxNOT_FOUND, without telling anybody.
    void SelectRow(int row);
    /// The chosen row; wxNOT_FOUND without one.
    int GetSelectedRow() const { return m_selectedRow; }

private:
    void OnLeftDown(wxMouseEvent& event);
    void OnMouseMove(wxMouseEvent& event);
    void OnEnter(wxListEvent& event);
    void OnKeyUp(wxKeyEvent& event);
    void Highlight(long row);
    void Choose(long row);

    int m_selectedRow = wxNOT_FOUND;
};
