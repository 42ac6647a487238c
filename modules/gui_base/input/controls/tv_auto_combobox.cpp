// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_auto_combobox.h"

#include "gui_base/support/translation.h"

#include <wx/wupdlock.h>

#include <algorithm>
#include <stdexcept>

namespace {

wxArrayString TranslatedLabels(const tvAutoComboBox::Entries& entries)
{
    wxArrayString labels;
    labels.reserve(entries.size());
    for (const auto& [id, label] : entries)
        labels.push_back(i18n::Translated(label));
    return labels;
}

}  // namespace

tvAutoComboBox::tvAutoComboBox(const Entries& entries, wxWindow* parent, int id, const wxPoint& pos,
                               const wxSize& size, long style, const wxValidator& validator,
                               const wxString& name)
    : wxAutoComboBox(parent, id, wxString(), pos, size, TranslatedLabels(entries), style & ~wxCB_SORT,
                     validator, name),
      m_entries(entries)
{}

void tvAutoComboBox::Set(const Entries& entries)
{
    m_entries = entries;
    wxAutoComboBox::Set(TranslatedLabels(entries));
    wxComboBox::SetSelection(wxNOT_FOUND);
    ChangeValue(wxString());
}

wxString tvAutoComboBox::GetID() const
{
    const int selection = wxComboBox::GetSelection();
    if (selection < 0 || static_cast<std::size_t>(selection) >= m_entries.size())
        throw std::out_of_range("tvAutoComboBox::GetID: no entry is selected");
    return m_entries[static_cast<std::size_t>(selection)].first;
}

void tvAutoComboBox::SetDefault(const wxString& id)
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&id](const Entry& entry) { return entry.first == id; });
    if (found != m_entries.end()) {
        wxComboBox::SetSelection(static_cast<int>(found - m_entries.begin()));
    } else {
        wxComboBox::SetSelection(wxNOT_FOUND);
        ChangeValue(wxString());
    }
    DispatchComboBoxSelectedEventToParent();
}

void tvAutoComboBox::SelectWithEvent(unsigned index)
{
    if (index >= m_entries.size())
        throw std::out_of_range("tvAutoComboBox::SelectWithEvent: no such entry");
    wxComboBox::SetSelection(static_cast<int>(index));
    DispatchComboBoxSelectedEventToParent();
}

void tvAutoComboBox::Localize()
{
    const int selection = wxComboBox::GetSelection();
    const wxWindowUpdateLocker frozen(this);
    for (unsigned i = 0; i < m_entries.size(); ++i) {
        const wxString text = i18n::Translated(m_entries[i].second);
        if (GetString(i) == text)
            continue;
        SetString(i, text);
        // Replacing the text of the selected item leaves the old one in the field.
        if (static_cast<int>(i) == selection) {
            wxComboBox::SetSelection(wxNOT_FOUND);
            wxComboBox::SetSelection(selection);
        }
    }
}
