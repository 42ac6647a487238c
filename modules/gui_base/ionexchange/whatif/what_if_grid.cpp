// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/whatif/what_if_grid.h"

#include "gui_base/support/accessibility.h"
#include "gui_base/support/grid_keys.h"
#include "gui_base/support/translation.h"

#include <wx/dcclient.h>
#include <wx/menu.h>
#include <wx/settings.h>

#include <algorithm>
#include <array>

namespace {

constexpr int kNameWidth = 190;
constexpr int kValueWidth = 110;
constexpr int kUnitWidth = 60;
constexpr int kRowHeight = 26;
constexpr int kScrollbarMargin = 16;

}  // namespace

WhatIfGrid::WhatIfGrid(wxWindow* parent, WifTable* table)
    : wxGrid(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS | wxBORDER_THEME),
      m_table(table)
{
    accessibility::SetName(*this, i18n::Translated(wxTRANSLATE("What-if analysis")));
    SetTable(table, true, wxGridSelectCells);
    HideRowLabels();
    SetColLabelSize(FromDIP(kRowHeight));
    SetDefaultRowSize(FromDIP(kRowHeight), true);
    DisableDragRowSize();
    SetCellHighlightROPenWidth(1);
    FitColumns();
    if (GetNumberRows() > 0)
        SetGridCursor(0, m_table->GetEnteredColumn(0));

    Bind(wxEVT_GRID_CELL_RIGHT_CLICK, &WhatIfGrid::OnRightClick, this);
    Bind(wxEVT_GRID_TABBING, &WhatIfGrid::OnTabbing, this);
    Bind(wxEVT_KEY_DOWN, &WhatIfGrid::OnKeyDown, this);
    Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
        m_table->TakeColours();
        ShowAnew();
        event.Skip();
    });
}

void WhatIfGrid::FitColumns()
{
    constexpr std::array<int, WifTable::kColumnCount> kLeast{kNameWidth, kValueWidth, kUnitWidth,
                                                             kNameWidth, kValueWidth, kUnitWidth};
    constexpr int kLabelMargin = 12;
    for (int column = 0; column < WifTable::kColumnCount; ++column) {
        AutoSizeColumn(column, false);
        const int label = GetColLabelWidth(column) + FromDIP(kLabelMargin);
        SetColSize(column,
                   std::max({GetColSize(column), label, FromDIP(kLeast[static_cast<std::size_t>(column)])}));
    }
}

int WhatIfGrid::GetWidthOfColumns() const
{
    int width = wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, this) + FromDIP(kScrollbarMargin);
    for (int column = 0; column < WifTable::kColumnCount; ++column)
        width += GetColSize(column);
    return width;
}

int WhatIfGrid::GetColLabelWidth(int column)
{
    wxClientDC dc(GetGridColLabelWindow());
    dc.SetFont(GetLabelFont());
    return dc.GetTextExtent(GetColLabelValue(column)).x;
}

void WhatIfGrid::ShowAnew()
{
    ClearAttrCache();
    ForceRefresh();
}

void WhatIfGrid::PopupCellMenu(int row, int column, const wxPoint& position)
{
    if (row < 0 || row >= GetNumberRows() || column < 0)
        return;
    CommitCell();
    SetGridCursor(row, column);
    wxMenu menu;
    constexpr int kSearch = 1;
    menu.Append(kSearch, i18n::Translated(wxTRANSLATE("Search value for this field")));
    menu.Enable(kSearch, WifTable::SideOf(column) != m_table->GetFoundSide(row));
    if (GetPopupMenuSelectionFromUser(menu, position) == kSearch && m_onSearch)
        m_onSearch(row, column);
}

void WhatIfGrid::OnRightClick(wxGridEvent& event)
{
    PopupCellMenu(event.GetRow(), event.GetCol(), wxDefaultPosition);
}

void WhatIfGrid::OnKeyDown(wxKeyEvent& event)
{
    const int row = GetGridCursorRow();
    const int column = GetGridCursorCol();
    if (!grid_keys::IsMenuKey(event) || IsCellEditControlShown() || row < 0) {
        event.Skip();
        return;
    }
    PopupCellMenu(row, column, CalcScrolledPosition(CellToRect(row, column).GetBottomLeft()));
}

void WhatIfGrid::OnTabbing(wxGridEvent& event)
{
    const bool forward = !event.ShiftDown();
    const int column = event.GetCol();
    int row = event.GetRow();
    // From input to input, and out of the grid behind the last one.
    const int input = row >= 0 && row < GetNumberRows() ? m_table->GetEnteredColumn(row) : column;
    if (forward ? column >= input : column <= input)
        row += forward ? 1 : -1;
    CommitCell();
    if (row >= 0 && row < GetNumberRows()) {
        GoToCell(row, m_table->GetEnteredColumn(row));
        return;
    }
    event.Veto();
    CallAfter([this, forward] { grid_keys::LeaveByTab(*this, forward); });
}
