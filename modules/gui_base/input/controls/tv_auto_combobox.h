// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"
#include "gui_base/input/controls/auto_combobox.h"

#include <string>
#include <utility>
#include <vector>

/// An auto-complete combo box of (identifier, label) pairs: the program works with the identifiers, the user
/// sees and types the translated labels. The labels stand in the order of the entries; a style that sorts is
/// not taken.
class GUI_BASE_EXPORT tvAutoComboBox : public wxAutoComboBox
{
public:
    /// Identifier and source-language label.
    using Entry = std::pair<wxString, wxString>;
    using Entries = std::vector<Entry>;

    /// Nothing is selected at first.
    tvAutoComboBox(const Entries& entries, wxWindow* parent, int id, const wxPoint& pos = wxDefaultPosition,
                   const wxSize& size = wxDefaultSize, long style = 0,
                   const wxValidator& validator = wxDefaultValidator,
                   const wxString& name = wxASCII_STR(wxComboBoxNameStr));

    /// Replaces the entries and the shown labels; nothing is selected afterwards and the text is empty.
    void Set(const Entries& entries);
    const Entries& GetEntries() const { return m_entries; }

    /// Identifier of the selected entry. Throws std::out_of_range when none is selected, as while the user
    /// types a text that no entry starts with: ask `GetSelection` first.
    wxString GetID() const;
    /// Selects the first entry with that identifier (letter case counts) and sends a wxEVT_COMBOBOX. An
    /// unknown identifier clears selection and text, and is told all the same.
    void SetDefault(const wxString& id);
    /// Selects an entry and sends a wxEVT_COMBOBOX. Throws std::out_of_range when there is no such entry.
    void SelectWithEvent(unsigned index);
    /// Shows the labels in the present language; the selection stays.
    void Localize();
    void Localize(const std::string& /*unitSystem*/) { Localize(); }

private:
    Entries m_entries;
};
