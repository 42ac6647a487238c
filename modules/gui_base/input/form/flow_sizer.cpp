// SPDX-License-Identifier: MIT
#include "gui_base/input/form/flow_sizer.h"

#include <algorithm>
#include <vector>

/// Calls `place` with each item, its position and its size; returns what all take.
template <typename Place>
wxSize FlowSizer::Arrange(const Place& place) const
{
    struct Placed
    {
        wxSizerItem* item;
        int x;
        wxSize size;
    };
    std::vector<Placed> line;
    wxSize taken;
    int x = 0;
    const auto endLine = [&] {
        int height = 0;
        for (const Placed& placed : line)
            height = std::max(height, placed.size.y);
        const int y = taken.y > 0 ? taken.y + m_gap : 0;
        for (const Placed& placed : line) {
            const bool isHigh = (placed.item->GetFlag() & wxEXPAND) != 0;
            place(*placed.item, wxPoint(placed.x, y), wxSize(placed.size.x, isHigh ? height : placed.size.y));
        }
        if (!line.empty())
            taken.y = y + height;
        line.clear();
        x = 0;
    };
    for (wxSizerItem* item : GetChildren()) {
        if (!item->IsShown())
            continue;
        const wxSize size = item->GetMinSizeWithBorder();
        if (m_room > 0 && !line.empty() && x + size.x > m_room)
            endLine();
        line.push_back({item, x, size});
        taken.x = std::max(taken.x, x + size.x);
        x += size.x + m_gap;
    }
    endLine();
    return taken;
}

wxSize FlowSizer::CalcMin()
{
    for (wxSizerItem* item : GetChildren()) {
        if (item->IsShown())
            item->CalcMin();
    }
    return Arrange([](wxSizerItem&, const wxPoint&, const wxSize&) {});
}

void FlowSizer::RepositionChildren(const wxSize&)
{
    Arrange([this](wxSizerItem& item, const wxPoint& place, const wxSize& size) {
        item.SetDimension(m_position + place, size);
    });
}
