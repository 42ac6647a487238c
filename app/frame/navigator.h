// SPDX-License-Identifier: MIT
#pragma once

/// What can be done with waters in the tree of pages: renaming in place (F2 or a second click), dragging to
/// another place, the commands of the menu that opens on them; and the whole name of what is too long to be
/// shown. The pages themselves are `ModuleBook`'s.

#include <wx/treectrl.h>

class LiquidData;

namespace app {

class MainFrame;

class Navigator
{
public:
    /// Neither is owned; the frame outlives the tree.
    Navigator(wxTreeCtrl& tree, MainFrame& frame);
    Navigator(const Navigator&) = delete;
    Navigator& operator=(const Navigator&) = delete;

private:
    /// The water that an item stands for, or null.
    LiquidData* WaterOf(const wxTreeItemId& item) const;
    /// Gives the field of a name that is edited all the room of the tree.
    void WidenEditor();
    void OnEditEnded(wxTreeEvent& event);
    void OnDragBegun(wxTreeEvent& event);
    void OnDragEnded(wxTreeEvent& event);
    void OnMenu(wxTreeEvent& event);
    void OnKey(wxTreeEvent& event);

    wxTreeCtrl& m_tree;
    MainFrame& m_frame;
    wxTreeItemId m_dragged;
};

}  // namespace app
