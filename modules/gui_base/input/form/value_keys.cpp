// SPDX-License-Identifier: MIT
#include "gui_base/input/form/value_keys.h"

#include "gui_base/support/choice_popup.h"

#include <algorithm>

void ValueKeys::AddColumn(std::span<const Cell> cells)
{
    for (const Cell& cell : cells) {
        m_cells.push_back({cell.field, cell.unit, m_columns});
        cell.field->Bind(wxEVT_KEY_DOWN, &ValueKeys::OnKeyDown, this);
        if (cell.unit != nullptr)
            cell.unit->Bind(wxEVT_CHOICE, [value = m_cells.back().field](wxCommandEvent& event) {
                event.Skip();
                // Back in the value as if one came to it: after the commit of the unit.
                value->CallAfter([value] {
                    if (value && value->HasFocus())
                        value->SelectAll();
                });
            });
    }
    ++m_columns;
}

void ValueKeys::Clear()
{
    for (const KeptCell& cell : m_cells) {
        if (cell.field)
            cell.field->Unbind(wxEVT_KEY_DOWN, &ValueKeys::OnKeyDown, this);
    }
    m_cells.clear();
    m_columns = 0;
}

std::size_t ValueKeys::PlaceOf(const wxObject* field) const
{
    const auto found =
        std::ranges::find_if(m_cells, [&](const KeptCell& cell) { return cell.field.get() == field; });
    return static_cast<std::size_t>(found - m_cells.begin());
}

bool ValueKeys::CanBeTyped(const KeptCell& cell)
{
    // What is folded away is passed by.
    return cell.field && cell.field->IsEnabled() && cell.field->IsEditable() && cell.field->IsShownOnScreen();
}

bool ValueKeys::Enter(const KeptCell& cell)
{
    if (!CanBeTyped(cell))
        return false;
    cell.field->SetFocus();
    cell.field->SelectAll();
    return true;
}

bool ValueKeys::Go(std::size_t from, int step)
{
    for (auto place = static_cast<std::ptrdiff_t>(from) + step;
         place >= 0 && place < static_cast<std::ptrdiff_t>(m_cells.size()); place += step) {
        if (Enter(m_cells[static_cast<std::size_t>(place)]))
            return true;
    }
    return false;
}

bool ValueKeys::GoToColumn(std::size_t from, int step)
{
    const auto present = static_cast<std::ptrdiff_t>(m_cells[from].column);
    for (std::ptrdiff_t column = present + step;
         column >= 0 && column < static_cast<std::ptrdiff_t>(m_columns); column += step) {
        for (const KeptCell& cell : m_cells) {
            if (cell.column == static_cast<std::size_t>(column) && Enter(cell))
                return true;
        }
    }
    return false;
}

void ValueKeys::OnKeyDown(wxKeyEvent& event)
{
    const std::size_t place = PlaceOf(event.GetEventObject());
    const int key = event.GetKeyCode();
    const bool isDown = key == WXK_DOWN || key == WXK_NUMPAD_DOWN;
    bool isDone = false;
    if (place == m_cells.size()) {
        isDone = false;
    } else if (event.GetModifiers() == wxMOD_ALT ? isDown : key == WXK_F4 && !event.HasAnyModifiers()) {
        isDone = m_cells[place].unit && choice_popup::Open(*m_cells[place].unit);
    } else if (!event.HasAnyModifiers()) {
        // Where there is nothing further, Enter commits and the others stay: the toolkit would leave the
        // form.
        isDone = true;
        if (key == WXK_RETURN || key == WXK_NUMPAD_ENTER)
            isDone = Go(place, 1);
        else if (isDown)
            Go(place, 1);
        else if (key == WXK_UP || key == WXK_NUMPAD_UP)
            Go(place, -1);
        else if (key == WXK_PAGEDOWN || key == WXK_NUMPAD_PAGEDOWN)
            GoToColumn(place, 1);
        else if (key == WXK_PAGEUP || key == WXK_NUMPAD_PAGEUP)
            GoToColumn(place, -1);
        else
            isDone = false;
    }
    event.Skip(!isDone);
}
