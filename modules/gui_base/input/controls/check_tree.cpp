// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/check_tree.h"

#include "gui_base/input/controls/check_tree_images.h"

#include <wx/imaglist.h>
#include <wx/settings.h>
#include <wx/wupdlock.h>

#include <memory>

wxDEFINE_EVENT(wxEVT_CKTR_ITEM_SELECTED, wxCheckTreeCtrlEvent);
wxDEFINE_EVENT(wxEVT_CKTR_ITEM_UNSELECTED, wxCheckTreeCtrlEvent);

namespace {

constexpr int kStateBits = 3;
constexpr int kDisabledBit = 4;
constexpr int kPictureSize = 16;

/// State of an item's image; an item without an image has no box.
int StateOfImage(int image)
{
    return image == wxWithImages::NO_IMAGE ? wxCKTR_NO_BOX : image;
}

}  // namespace

wxBitmap wxCheckTreeCtrl::ms_uncheckedBmp;
wxBitmap wxCheckTreeCtrl::ms_checkedBmp;
wxBitmap wxCheckTreeCtrl::ms_partialBmp;
wxBitmap wxCheckTreeCtrl::ms_noBmp;
wxBitmap wxCheckTreeCtrl::ms_uncheckedDisBmp;
wxBitmap wxCheckTreeCtrl::ms_checkedDisBmp;
wxBitmap wxCheckTreeCtrl::ms_partialDisBmp;
wxBitmap wxCheckTreeCtrl::ms_noDisBmp;

wxCheckTreeCtrlEvent::wxCheckTreeCtrlEvent(wxEventType type, int windowId) : wxNotifyEvent(type, windowId) {}

wxCheckTreeCtrl::wxCheckTreeCtrl(wxWindow* parent, int id, const wxPoint& pos, const wxSize& size, long style,
                                 const wxValidator& validator, const wxString& name)
    : wxTreeCtrl(parent, id, pos, size, style | wxTR_HAS_BUTTONS | wxTR_LINES_AT_ROOT, validator, name)
{
    EnsureBitmaps();
    auto images = std::make_unique<wxImageList>(kPictureSize, kPictureSize);
    for (const wxBitmap* bitmap : {&ms_uncheckedBmp, &ms_checkedBmp, &ms_partialBmp, &ms_noBmp,
                                   &ms_uncheckedDisBmp, &ms_checkedDisBmp, &ms_partialDisBmp, &ms_noDisBmp})
        images->Add(*bitmap);
    AssignImageList(images.release());
    BindEvents();
}

void wxCheckTreeCtrl::EnsureBitmaps()
{
    using namespace checktree;
    if (ms_uncheckedBmp.IsOk())
        return;
    const bool isDark = wxSystemSettings::GetAppearance().IsDark();
    const Palette& enabled = isDark ? kEnabledDark : kEnabled;
    const Palette& disabled = isDark ? kDisabledDark : kDisabled;
    ms_uncheckedBmp = Picture(kUnchecked, enabled);
    ms_checkedBmp = Picture(kChecked, enabled);
    ms_partialBmp = Picture(kPartial, enabled);
    ms_noBmp = Picture(kNoBox, enabled);
    ms_uncheckedDisBmp = Picture(kUnchecked, disabled);
    ms_checkedDisBmp = Picture(kChecked, disabled);
    ms_partialDisBmp = Picture(kPartial, disabled);
    ms_noDisBmp = Picture(kNoBox, disabled);
}

void wxCheckTreeCtrl::BindEvents()
{
    Bind(wxEVT_LEFT_DOWN, &wxCheckTreeCtrl::OnLeftDown, this);
    Bind(wxEVT_LEFT_DCLICK, &wxCheckTreeCtrl::OnLeftDown, this);
    Bind(wxEVT_CHAR, &wxCheckTreeCtrl::OnChar, this);
}

wxTreeItemId wxCheckTreeCtrl::AddRoot(const wxString& text, int image, int selectedImage,
                                      wxTreeItemData* data)
{
    return wxTreeCtrl::AddRoot(text, StateOfImage(image), selectedImage, data);
}

wxTreeItemId wxCheckTreeCtrl::AddRoot(const wxString& text, bool checked, wxTreeItemData* data)
{
    const int state = checked ? wxCKTR_CHECKED : wxCKTR_UNCHECKED;
    return AddRoot(text, state, state, data);
}

wxTreeItemId wxCheckTreeCtrl::AppendItem(const wxTreeItemId& parent, const wxString& text, int image,
                                         int selectedImage, wxTreeItemData* data)
{
    return wxTreeCtrl::AppendItem(parent, text, StateOfImage(image), selectedImage, data);
}

wxTreeItemId wxCheckTreeCtrl::AppendItem(const wxTreeItemId& parent, const wxString& text, bool checked,
                                         wxTreeItemData* data)
{
    const int state = checked ? wxCKTR_CHECKED : wxCKTR_UNCHECKED;
    return AppendItem(parent, text, state, state, data);
}

void wxCheckTreeCtrl::ShowImage(const wxTreeItemId& item, int image, wxTreeItemIcon which)
{
    // Setting an image measures and redraws the item, equal or not.
    if (GetItemImage(item, which) != image)
        SetItemImage(item, image, which);
}

void wxCheckTreeCtrl::Check(const wxTreeItemId& item, bool check)
{
    SetState(item, check ? wxCKTR_CHECKED : wxCKTR_UNCHECKED);
}

void wxCheckTreeCtrl::SetState(const wxTreeItemId& item, wxCheckTreeState state)
{
    ShowImage(item, state, wxTreeItemIcon_Normal);
    ShowImage(item, state, wxTreeItemIcon_Selected);
}

int wxCheckTreeCtrl::GetState(const wxTreeItemId& item) const
{
    return StateOfImage(GetItemImage(item)) & kStateBits;
}

bool wxCheckTreeCtrl::IsChecked(const wxTreeItemId& item) const
{
    return GetState(item) == wxCKTR_CHECKED;
}

bool wxCheckTreeCtrl::IsPartial(const wxTreeItemId& item) const
{
    return GetState(item) == wxCKTR_PARTIAL;
}

void wxCheckTreeCtrl::GetItemChildrenRecursive(const wxTreeItemId& item, std::list<wxTreeItemId>& items) const
{
    items.push_back(item);
    wxTreeItemIdValue cookie{};
    for (wxTreeItemId child = GetFirstChild(item, cookie); child.IsOk(); child = GetNextChild(item, cookie)) {
        if (ItemHasChildren(child))
            GetItemChildrenRecursive(child, items);
        else
            items.push_back(child);
    }
}

void wxCheckTreeCtrl::RecursiveCheck(const wxTreeItemId& item, bool check)
{
    std::list<wxTreeItemId> items;
    GetItemChildrenRecursive(item, items);
    const wxWindowUpdateLocker frozen(this);
    for (const wxTreeItemId& each : items)
        Check(each, check);
}

void wxCheckTreeCtrl::PropagatePartialToRoot(const wxTreeItemId& item)
{
    for (wxTreeItemId above = GetItemParent(item); above.IsOk(); above = GetItemParent(above))
        ShowImage(above, wxCKTR_PARTIAL, wxTreeItemIcon_Normal);
}

bool wxCheckTreeCtrl::ItemIsEnabled(const wxTreeItemId& item) const
{
    return (StateOfImage(GetItemImage(item)) & kDisabledBit) == 0;
}

void wxCheckTreeCtrl::EnableItem(const wxTreeItemId& item, bool enable)
{
    const int image = StateOfImage(GetItemImage(item));
    ShowImage(item, enable ? image & kStateBits : image | kDisabledBit, wxTreeItemIcon_Normal);
    SetItemTextColour(item, enable ? wxColour() : wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
    wxTreeItemIdValue cookie{};
    for (wxTreeItemId child = GetFirstChild(item, cookie); child.IsOk(); child = GetNextChild(item, cookie))
        EnableItem(child, enable);
}

bool wxCheckTreeCtrl::Enable(bool enable)
{
    if (!wxTreeCtrl::Enable(enable))
        return false;
    const wxWindowUpdateLocker frozen(this);
    if (const wxTreeItemId root = GetRootItem(); root.IsOk())
        EnableItem(root, enable);
    return true;
}

void wxCheckTreeCtrl::ToggleByUser(const wxTreeItemId& item)
{
    const bool check = !IsChecked(item) && !IsPartial(item);
    wxCheckTreeCtrlEvent event(check ? wxEVT_CKTR_ITEM_SELECTED : wxEVT_CKTR_ITEM_UNSELECTED, GetId());
    event.SetEventObject(this);
    event.SetItem(item);
    GetEventHandler()->ProcessEvent(event);
    if (event.IsAllowed())
        Check(item, check);
}

void wxCheckTreeCtrl::OnLeftDown(wxMouseEvent& event)
{
    int flags = 0;
    const wxTreeItemId item = HitTest(event.GetPosition(), flags);
    if (!item.IsOk() || !ItemIsEnabled(item))
        return;
    if ((flags & wxTREE_HITTEST_ONITEMICON) == 0) {
        event.Skip();
        return;
    }
    // The click takes the focus, so that a field that was being edited commits first.
    SetFocus();
    ToggleByUser(item);
}

void wxCheckTreeCtrl::OnChar(wxKeyEvent& event)
{
    const wxTreeItemId item = GetFocusedItem();
    const bool toggles = event.GetKeyCode() == WXK_SPACE && !event.HasAnyModifiers() && item.IsOk() &&
                         ItemIsEnabled(item) && GetState(item) != wxCKTR_NO_BOX;
    if (toggles)
        ToggleByUser(item);
    else
        event.Skip();
}
