// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_listview_combopopup.h"

#include <algorithm>

namespace {

constexpr int kEmptyRowHeight = 20;
constexpr int kScrollBarWidth = 20;

}  // namespace

bool tvListViewComboPopup::Create(wxWindow* parent)
{
    if (!wxListView::Create(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                            wxLC_REPORT | wxLC_SINGLE_SEL))
        return false;
    Bind(wxEVT_LEFT_DOWN, &tvListViewComboPopup::OnLeftDown, this);
    Bind(wxEVT_MOTION, &tvListViewComboPopup::OnMouseMove, this);
    Bind(wxEVT_LIST_ITEM_ACTIVATED, &tvListViewComboPopup::OnEnter, this);
    Bind(wxEVT_KEY_UP, &tvListViewComboPopup::OnKeyUp, this);
    return true;
}

wxString tvListViewComboPopup::GetStringValue() const
{
    if (m_selectedRow < 0 || m_selectedRow >= GetItemCount())
        return wxString();
    return GetItemText(m_selectedRow);
}

void tvListViewComboPopup::SetStringValue(const wxString& value)
{
    // Several rows may have that text: the chosen one stays.
    if (m_selectedRow != wxNOT_FOUND && GetStringValue() == value) {
        Highlight(m_selectedRow);
        return;
    }
    int found = wxNOT_FOUND;
    for (int row = 0; row < GetItemCount() && found == wxNOT_FOUND; ++row)
        if (GetItemText(row) == value)
            found = row;
    SelectRow(found);
}

void tvListViewComboPopup::SelectRow(int row)
{
    m_selectedRow = row;
    Highlight(row);
}

void tvListViewComboPopup::OnComboKeyEvent(wxKeyEvent& event)
{
    const int key = event.GetKeyCode();
    const bool down = key == WXK_DOWN || key == WXK_NUMPAD_DOWN;
    const bool up = key == WXK_UP || key == WXK_NUMPAD_UP;
    const int row = down ? m_selectedRow + 1 : m_selectedRow - 1;
    if ((!down && !up) || event.HasAnyModifiers() || row < 0 || row >= GetItemCount()) {
        event.Skip();
        return;
    }
    Choose(row);
    GetComboCtrl()->SetText(GetStringValue());
}

void tvListViewComboPopup::OnPopup()
{
    Highlight(m_selectedRow);
    SetFocus();
}

wxSize tvListViewComboPopup::GetAdjustedSize(int minWidth, int preferredHeight, int maxHeight)
{
    wxRect firstRow;
    const bool hasRows = GetItemCount() > 0 && GetItemRect(0, firstRow);
    const int rowHeight = hasRows ? firstRow.height : kEmptyRowHeight;
    const int fullHeight = (GetItemCount() + 2) * rowHeight;
    int width = 0;
    for (int column = 0; column < GetColumnCount(); ++column)
        width += GetColumnWidth(column);
    if (fullHeight > preferredHeight)
        width += kScrollBarWidth;
    return wxSize(std::max(width, minWidth), std::min(maxHeight, std::min(fullHeight, preferredHeight)));
}

void tvListViewComboPopup::Highlight(long row)
{
    const long highlighted = GetFirstSelected();
    if (highlighted == row)
        return;
    if (highlighted != wxNOT_FOUND)
        Select(highlighted, false);
    if (row == wxNOT_FOUND)
        return;
    Select(row);
    Focus(row);
}

void tvListViewComboPopup::Choose(long row)
{
    if (row < 0 || row >= GetItemCount())
        return;
    m_selectedRow = static_cast<int>(row);
    // Closing shows the chosen text in the combo control.
    if (GetComboCtrl()->IsPopupShown())
        Dismiss();
    wxComboCtrl* combo = GetComboCtrl();
    wxCommandEvent event(wxEVT_COMBOBOX, combo->GetId());
    event.SetEventObject(combo);
    event.SetInt(m_selectedRow);
    event.SetString(GetStringValue());
    combo->ProcessWindowEvent(event);
}

void tvListViewComboPopup::OnLeftDown(wxMouseEvent& event)
{
    int flags = 0;
    Choose(HitTest(event.GetPosition(), flags));
}

void tvListViewComboPopup::OnMouseMove(wxMouseEvent& event)
{
    event.Skip();
    int flags = 0;
    if (const long row = HitTest(event.GetPosition(), flags); row != wxNOT_FOUND)
        Highlight(row);
}

void tvListViewComboPopup::OnEnter(wxListEvent& event)
{
    Choose(event.GetIndex());
}

void tvListViewComboPopup::OnKeyUp(wxKeyEvent& event)
{
    if (event.GetKeyCode() == WXK_ESCAPE)
        Dismiss();
    else
        event.Skip();
}
