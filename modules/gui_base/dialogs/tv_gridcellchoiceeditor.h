// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/grid.h>

#include <vector>

/// One entry of a choice editor.
struct SelectionChoice
{
    wxString id;
    wxString text;  ///< as shown
};

/// A grid cell editor that offers a fixed list of texts, each standing for an identifier.
class GUI_BASE_EXPORT TvGridCellChoiceEditor : public wxGridCellChoiceEditor
{
public:
    /// With `allowOthers` a text that is not in the list can be typed.
    TvGridCellChoiceEditor(const std::vector<SelectionChoice>& choices, bool allowOthers);

    const std::vector<SelectionChoice>& GetChoices() const { return m_entries; }
    /// Identifier of the text that is being edited, or was last; empty for a text that is not in the list.
    wxString GetSelectedId() const;

    wxGridCellEditor* Clone() const override { return new TvGridCellChoiceEditor(m_entries, m_allowOthers); }

private:
    static wxArrayString ToWxChoices(const std::vector<SelectionChoice>& choices);

    std::vector<SelectionChoice> m_entries;
};
