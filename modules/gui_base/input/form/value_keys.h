// SPDX-License-Identifier: MIT
#pragma once

/// The keys of columns of values, as a spreadsheet has them: Enter and Down go to the next value that can be
/// typed, Up to the one before; PageDown and PageUp to the first value of the next or the previous column;
/// Alt+Down and F4 open the choice of the unit beside a value. What is left is committed as by every loss of
/// the focus, what is entered is selected.
///
/// Belongs to whoever owns the fields; these may go before it.

#include "gui_base/gui_base_export.h"

#include <wx/choice.h>
#include <wx/textctrl.h>
#include <wx/weakref.h>

#include <span>
#include <vector>

class GUI_BASE_EXPORT ValueKeys
{
public:
    /// A value and, where it has one, the choice of its unit.
    struct Cell
    {
        wxTextCtrl* field;
        wxChoice* unit = nullptr;
    };

    ValueKeys() = default;
    ValueKeys(const ValueKeys&) = delete;
    ValueKeys& operator=(const ValueKeys&) = delete;

    /// Adds a column behind the others.
    void AddColumn(std::span<const Cell> cells);
    /// Forgets all columns, before other ones are added.
    void Clear();

private:
    struct KeptCell
    {
        wxWeakRef<wxTextCtrl> field;
        wxWeakRef<wxChoice> unit;
        std::size_t column;
    };

    void OnKeyDown(wxKeyEvent& event);
    /// The place of the field, or the number of cells.
    std::size_t PlaceOf(const wxObject* field) const;
    /// Goes to the next value that can be typed, in steps of +1 or -1; false where there is none.
    bool Go(std::size_t from, int step);
    bool GoToColumn(std::size_t from, int step);
    bool Enter(const KeptCell& cell);
    static bool CanBeTyped(const KeptCell& cell);

    std::vector<KeptCell> m_cells;
    std::size_t m_columns = 0;
};
