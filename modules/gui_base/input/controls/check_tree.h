// SPDX-License-Identifier: MIT
#pragma once

/// A tree whose items carry a check box.
///
/// The state of an item is the index of its image in the control's own image list; nothing is kept beside it.
/// A click on the box (or the space bar on the focused item) asks the owner by a `wxCheckTreeCtrlEvent` that
/// can be vetoed and then checks or unchecks that item alone; the operations that reach children and parents
/// are the owner's to call. GUI thread only.

#include "gui_base/gui_base_export.h"

#include <wx/bitmap.h>
#include <wx/treectrl.h>

#include <list>

/// What an item shows; also the index of its image. The low two bits are the state, the third greys it.
enum wxCheckTreeState
{
    wxCKTR_UNCHECKED = 0,
    wxCKTR_CHECKED = 1,
    wxCKTR_PARTIAL = 2,
    wxCKTR_NO_BOX = 3,
    wxCKTR_UNCHECKED_DISABLED = 4,
    wxCKTR_CHECKED_DISABLED = 5,
    wxCKTR_PARTIAL_DISABLED = 6,
    wxCKTR_NO_BOX_DISABLED = 7
};

/// The user wants to change `GetItem()`; a veto leaves it as it is.
class GUI_BASE_EXPORT wxCheckTreeCtrlEvent : public wxNotifyEvent
{
public:
    explicit wxCheckTreeCtrlEvent(wxEventType type = wxEVT_NULL, int windowId = 0);
    wxCheckTreeCtrlEvent(const wxCheckTreeCtrlEvent& event) = default;

    wxTreeItemId GetItem() const { return m_item; }
    void SetItem(const wxTreeItemId& item) { m_item = item; }
    wxEvent* Clone() const override { return new wxCheckTreeCtrlEvent(*this); }

private:
    wxTreeItemId m_item;
};

/// An item is about to become checked.
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, wxEVT_CKTR_ITEM_SELECTED, wxCheckTreeCtrlEvent);
/// An item is about to become unchecked.
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, wxEVT_CKTR_ITEM_UNSELECTED, wxCheckTreeCtrlEvent);

class GUI_BASE_EXPORT wxCheckTreeCtrl : public wxTreeCtrl
{
public:
    /// Expand buttons and lines at the root are added to the style.
    explicit wxCheckTreeCtrl(wxWindow* parent, int id = wxID_ANY, const wxPoint& pos = wxDefaultPosition,
                             const wxSize& size = wxDefaultSize, long style = wxTR_DEFAULT_STYLE,
                             const wxValidator& validator = wxDefaultValidator,
                             const wxString& name = wxASCII_STR(wxTreeCtrlNameStr));

    /// An item added without an image has no box. The images are states (`wxCheckTreeState`).
    wxTreeItemId AddRoot(const wxString& text, int image = wxWithImages::NO_IMAGE,
                         int selectedImage = wxWithImages::NO_IMAGE, wxTreeItemData* data = nullptr) override;
    virtual wxTreeItemId AddRoot(const wxString& text, bool checked, wxTreeItemData* data = nullptr);
    virtual wxTreeItemId AppendItem(const wxTreeItemId& parent, const wxString& text,
                                    int image = wxWithImages::NO_IMAGE,
                                    int selectedImage = wxWithImages::NO_IMAGE,
                                    wxTreeItemData* data = nullptr);
    virtual wxTreeItemId AppendItem(const wxTreeItemId& parent, const wxString& text, bool checked,
                                    wxTreeItemData* data = nullptr);

    /// Checks or unchecks one item; asks and tells nobody. A greyed item is enabled by it, as by `SetState`.
    virtual void Check(const wxTreeItemId& item, bool check);
    virtual void SetState(const wxTreeItemId& item, wxCheckTreeState state);
    bool IsChecked(const wxTreeItemId& item) const;
    bool IsPartial(const wxTreeItemId& item) const;
    /// Checks or unchecks the item and everything below it.
    void RecursiveCheck(const wxTreeItemId& item, bool check);
    /// Shows every item above this one, up to the root, as partially checked. Where such an item has another
    /// image while it is selected, that one stays.
    void PropagatePartialToRoot(const wxTreeItemId& item);

    /// Enables or disables the window and greys its items; their check states stay.
    bool Enable(bool enable = true) override;

protected:
    virtual void OnLeftDown(wxMouseEvent& event);
    /// The item and all items below it, each before its children.
    void GetItemChildrenRecursive(const wxTreeItemId& item, std::list<wxTreeItemId>& items) const;

private:
    static void EnsureBitmaps();

    void BindEvents();
    void OnChar(wxKeyEvent& event);
    int GetState(const wxTreeItemId& item) const;
    bool ItemIsEnabled(const wxTreeItemId& item) const;
    void EnableItem(const wxTreeItemId& item, bool enable);
    /// Turns the item's box over unless a handler vetoes it.
    void ToggleByUser(const wxTreeItemId& item);
    void ShowImage(const wxTreeItemId& item, int image, wxTreeItemIcon which);

    // Empty until the first control is made: bitmaps need the running toolkit.
    static wxBitmap ms_uncheckedBmp;
    static wxBitmap ms_checkedBmp;
    static wxBitmap ms_partialBmp;
    static wxBitmap ms_noBmp;
    static wxBitmap ms_uncheckedDisBmp;
    static wxBitmap ms_checkedDisBmp;
    static wxBitmap ms_partialDisBmp;
    static wxBitmap ms_noDisBmp;
};
