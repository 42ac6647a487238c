// SPDX-License-Identifier: MIT
#pragma once

/// One row of a form: a label and an auto-complete box that is bound to one text detail, for long pick lists.
///
/// The detail holds the identifier of the chosen entry. What the user types is a search: it is stored when an
/// entry is taken from the list, by Enter, or when the box loses the focus, and told to the parent then,
/// once, with the identifier as the event's text. A text that is no entry's label (letter case ignored)
/// stores nothing; the box rings and shows the stored entry again. The box's own wxEVT_COMBOBOX ends here. An
/// identifier that no entry has empties the box and stays in the detail.

#include "gui_base/input/combinations/labelled_row.h"
#include "gui_base/input/controls/tv_auto_combobox.h"
#include "projectbase/details/detail_data.h"

class GUI_BASE_EXPORT tvAutoComboBoxCombination : public LabelledRow<tvAutoComboBox>
{
public:
    /// Without a `sizer` the row makes a horizontal one, which the caller adds to its own. `entries` are
    /// pairs of identifier and source label. A null detail throws std::runtime_error.
    tvAutoComboBoxCombination(wxWindow* parent, int id, const wxString& label, const wxString& suffix,
                              const tvAutoComboBox::Entries& entries, DetailData* detail,
                              wxSizer* sizer = nullptr, const wxSize& size = wxDefaultSize);
    ~tvAutoComboBoxCombination() override;

    /// Replaces the entries and shows the detail again.
    void SetEntries(const tvAutoComboBox::Entries& entries);
    void TransferDetailToWindow() override;

    tvAutoComboBox* GetComboBox() const { return GetControl(); }

protected:
    void DoLocalize(const std::string& unitSystem) override;

private:
    void OnKeyDown(wxKeyEvent& event);
    void OnDropDown(wxCommandEvent& event);
    void OnSelected(wxCommandEvent& event);
    void OnKillFocus(wxFocusEvent& event);
    /// The entry that the shown text names, or wxNOT_FOUND.
    int FindEntry() const;
    void Commit();

    DetailData* m_detail;
    bool m_isTyping = false;
    bool m_isShowing = false;
};
