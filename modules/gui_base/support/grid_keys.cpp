// SPDX-License-Identifier: MIT
#include "gui_base/support/grid_keys.h"

#include <wx/toplevel.h>

#include <algorithm>
#include <vector>

namespace grid_keys {

namespace {

/// The windows that Tab reaches, in their order; `whole` counts as one of them.
void CollectTabStops(wxWindow& parent, const wxWindow& whole, std::vector<wxWindow*>& stops)
{
    for (wxWindow* child : parent.GetChildren()) {
        if (!child->IsShown() || !child->IsEnabled())
            continue;
        const bool isStop = child == &whole || child->GetChildren().empty();
        if (!isStop)
            CollectTabStops(*child, whole, stops);
        else if (child == &whole || child->AcceptsFocusFromKeyboard())
            stops.push_back(child);
    }
}

}  // namespace

bool IsMenuKey(const wxKeyEvent& event)
{
    const int key = event.GetKeyCode();
    return key == WXK_MENU || key == WXK_WINDOWS_MENU || (key == WXK_F10 && event.ShiftDown());
}

void LeaveByTab(wxWindow& grid, bool forward)
{
    std::vector<wxWindow*> stops;
    CollectTabStops(*wxGetTopLevelParent(&grid), grid, stops);
    const auto own = std::find(stops.begin(), stops.end(), &grid);
    if (own == stops.end() || stops.size() < 2)
        return;
    const auto count = static_cast<std::ptrdiff_t>(stops.size());
    const auto next = (own - stops.begin() + (forward ? 1 : count - 1)) % count;
    stops[static_cast<std::size_t>(next)]->SetFocus();
}

}  // namespace grid_keys
