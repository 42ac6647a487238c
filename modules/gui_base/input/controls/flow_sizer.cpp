// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/flow_sizer.h"

#include "gui_base/input/controls/collapsible_box.h"

#include <wx/statbox.h>

#include <algorithm>
#include <utility>
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
            const auto* folded = dynamic_cast<const CollapsibleBox*>(placed.item->GetSizer());
            const bool isHigh =
                (placed.item->GetFlag() & wxEXPAND) != 0 && !(folded != nullptr && folded->IsCollapsed());
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
    bool isColumn = true;
    const wxSize taken = Arrange(
        [&](wxSizerItem&, const wxPoint& place, const wxSize&) { isColumn = isColumn && place.x == 0; });
    Arrange([&](wxSizerItem& item, const wxPoint& place, wxSize size) {
        if (isColumn && (item.GetFlag() & wxEXPAND) != 0)
            size.x = taken.x;
        item.SetDimension(m_position + place, size);
    });
}

int FlowSizer::GetLeastWidth()
{
    const int room = std::exchange(m_room, 1);
    const int width = CalcMin().x;
    m_room = room;
    return width;
}

int FlowSizer::GetSpareWidth()
{
    CalcMin();
    int taken = 0;
    Arrange([&taken](wxSizerItem&, const wxPoint& place, const wxSize& size) {
        if (place.y == 0)
            taken = std::max(taken, place.x + size.x);
    });
    return m_room - taken;
}

int FlowSizer::RoomFor(const wxSizerItem& item, int width) const
{
    auto* const inner = dynamic_cast<FlowSizer*>(item.GetSizer());
    if (inner == nullptr)
        return width;
    int left = width;
    for (wxSizerItem* before : GetChildren()) {
        if (before == &item)
            break;
        if (before->IsShown())
            left -= before->CalcMin().x + m_gap;
    }
    return left >= inner->GetLeastWidth() ? left : width;
}

void FlowSizer::GiveRoom(wxSizer& sizer, int width)
{
    if (const auto* box = dynamic_cast<const wxStaticBoxSizer*>(&sizer)) {
        int top = 0;
        int side = 0;
        box->GetStaticBox()->GetBordersForSizer(&top, &side);
        width -= 2 * side;
    }
    auto* const flow = dynamic_cast<FlowSizer*>(&sizer);
    if (flow != nullptr)
        flow->SetRoom(width);
    for (wxSizerItem* item : sizer.GetChildren()) {
        if (!item->IsSizer())
            continue;
        const int borders = ((item->GetFlag() & wxLEFT) != 0 ? item->GetBorder() : 0) +
                            ((item->GetFlag() & wxRIGHT) != 0 ? item->GetBorder() : 0);
        const int room = flow != nullptr ? flow->RoomFor(*item, width) : width;
        GiveRoom(*item->GetSizer(), room - borders);
    }
}
