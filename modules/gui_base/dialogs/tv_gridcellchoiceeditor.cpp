// SPDX-License-Identifier: MIT
#include "gui_base/dialogs/tv_gridcellchoiceeditor.h"

TvGridCellChoiceEditor::TvGridCellChoiceEditor(const std::vector<SelectionChoice>& choices, bool allowOthers)
    : wxGridCellChoiceEditor(ToWxChoices(choices), allowOthers), m_entries(choices)
{}

wxArrayString TvGridCellChoiceEditor::ToWxChoices(const std::vector<SelectionChoice>& choices)
{
    wxArrayString texts;
    for (const SelectionChoice& choice : choices)
        texts.push_back(choice.text);
    return texts;
}

wxString TvGridCellChoiceEditor::GetSelectedId() const
{
    // The control lives from the first edit on; before, the cell's text is not known here.
    const wxString text = m_control != nullptr ? GetValue() : m_value;
    for (const SelectionChoice& choice : m_entries) {
        if (choice.text == text)
            return choice.id;
    }
    return {};
}
