// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/sizer.h>

/// Places items from left to right and begins a new line where the next one would not fit. The same room
/// gives the same lines, whatever the room was before. Items with wxEXPAND are as high as their line,
/// unless they are folded to a line of their own; all below each other they are as wide as the widest. A flow
/// in a flow is a part of its line: it breaks its own lines beside what stands before it.
class GUI_BASE_EXPORT FlowSizer : public wxSizer
{
public:
    /// Without a room of its own everything stands on one line. `gap` in pixels, between items and lines.
    explicit FlowSizer(int gap = 0) : m_gap(gap) {}

    /// Width in pixels that lines may have; an item that is wider has a line of its own. Whoever owns the
    /// window says it before the layout.
    void SetRoom(int width) { m_room = width; }

    /// Gives all flows of `sizer` and of the sizers in it what borders and boxes around them leave of `width`
    /// pixels. What stands beside a flow is seen only where it is an item of a flow as well; any other has
    /// its line to itself.
    static void GiveRoom(wxSizer& sizer, int width);

    /// What the line of the first item leaves of the room, in pixels; negative where it has not enough.
    int GetSpareWidth();

    wxSize CalcMin() override;
    void RepositionChildren(const wxSize& minSize) override;

private:
    /// The room of an item of this flow: what the items before it leave, if that is enough for it.
    int RoomFor(const wxSizerItem& item, int width) const;
    /// In the narrowest room.
    int GetLeastWidth();

    template <typename Place>
    wxSize Arrange(const Place& place) const;

    int m_gap;
    int m_room = 0;
};
