// SPDX-License-Identifier: MIT
#pragma once

/// The grid of a what-if analysis: Tab goes from input to input, the context menu turns a row round.

#include "gui_base/ionexchange/whatif/wif_table.h"

#include <wx/grid.h>

#include <functional>

class WhatIfGrid : public wxGrid
{
public:
    using OnSearch = std::function<void(int row, int column)>;

    /// Takes the table.
    WhatIfGrid(wxWindow* parent, WifTable* table);

    /// The user wants the value found that is in that cell.
    void SetOnSearch(OnSearch handler) { m_onSearch = std::move(handler); }
    /// Ends the typing in a cell; what was typed counts.
    void CommitCell() { DisableCellEditControl(); }
    void FitColumns();
    /// What the grid needs to show all of them, with its scrollbar.
    int GetWidthOfColumns() const;
    /// Draws all cells as they now are, whatever the grid remembers of them.
    void ShowAnew();

private:
    int GetColLabelWidth(int column);
    void PopupCellMenu(int row, int column, const wxPoint& position);
    void OnRightClick(wxGridEvent& event);
    void OnKeyDown(wxKeyEvent& event);
    void OnTabbing(wxGridEvent& event);

    WifTable* m_table;
    OnSearch m_onSearch;
};
