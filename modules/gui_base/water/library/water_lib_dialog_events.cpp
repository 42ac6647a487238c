// SPDX-License-Identifier: MIT
// What the water library does when its controls are used.
#include "dbinterfaces/master_database.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/dialogs/questions.h"
#include "gui_base/input/controls/tv_searchctrl.h"
#include "gui_base/support/help_file_provider.h"
#include "gui_base/support/image_loader.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/library/water_lib_details.h"
#include "gui_base/water/library/water_lib_dialog.h"
#include "gui_base/water/library/water_lib_list.h"
#include "gui_base/water/library/water_lib_tree.h"

#include <wx/button.h>
#include <wx/menu.h>

namespace {

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

/// The key that opens a context menu, as lists and trees report it.
bool IsMenuKey(int key, bool shift)
{
    return key == WXK_MENU || key == WXK_WINDOWS_MENU || (key == WXK_F10 && shift);
}

}  // namespace

void WaterLibDialog::PopupRemove(wxWindow& window, const wxPoint& position,
                                 void (WaterLibDialog::*handler)(wxCommandEvent&))
{
    wxMenu menu;
    auto* item = new wxMenuItem(&menu, wxID_ANY, Tr("Remove"));
    item->SetBitmap(ImageLoader::LoadBundle("icons/i16/delete.png", wxSize(16, 16)));
    menu.Append(item);
    menu.Bind(wxEVT_MENU, handler, this, item->GetId());
    window.PopupMenu(&menu, position);
}

void WaterLibDialog::OnTreeItemSelected(wxTreeEvent& event)
{
    // Who goes to a folder wants to see what is in it.
    if (SearchesAll()) {
        m_search->ChangeValue(wxString());
        m_waters->SetFilter(wxString());
    }
    ShowWaters();
    event.Skip();
}

void WaterLibDialog::OnListItemSelected(wxListEvent&)
{
    const WaterLibListViewItem* water = m_waters->GetSelectedWater();
    if (water == nullptr || m_waters->IsArranging())
        return;
    const bool shown = Guarded([&] {
        FillDetailList(water->IsUserEntry()
                           ? ProjectDatabase::WaterLib_GetUserAnalysisById(water->GetIdentifier())
                           : MasterDatabase::WaterLib_GetAnalysisById(water->GetIdentifier()));
        m_details->ShowOrigin(*water);
        m_use->Enable();
        NameList(water);
    });
    if (!shown)
        ClearDetails();
}

void WaterLibDialog::OnColumnClick(wxListEvent& event)
{
    if (event.GetColumn() >= 0)
        SortWaterListbyColumn(event.GetColumn());
}

void WaterLibDialog::OnKeyDownList(wxListEvent& event)
{
    const WaterLibListViewItem* water = m_waters->GetSelectedWater();
    const bool removable = water != nullptr && ListItemIsUserEntry(*water);
    if (removable && event.GetKeyCode() == WXK_DELETE)
        OnListItemDelete(event);
    else if (removable && IsMenuKey(event.GetKeyCode(), wxGetKeyState(WXK_SHIFT)))
        PopupRemove(*m_waters, wxDefaultPosition, &WaterLibDialog::OnListItemDelete);
    else
        event.Skip();
}

void WaterLibDialog::OnKeyDownTree(wxTreeEvent& event)
{
    const wxTreeItemId node = m_tree->GetFocusedItem();
    const bool removable = m_tree->IsUserCountry(node);
    m_menuNode = node;
    if (removable && event.GetKeyCode() == WXK_DELETE)
        OnTreeItemDelete(event);
    else if (removable && IsMenuKey(event.GetKeyCode(), event.GetKeyEvent().ShiftDown()))
        PopupRemove(*m_tree, wxDefaultPosition, &WaterLibDialog::OnTreeItemDelete);
    else
        event.Skip();
}

void WaterLibDialog::OnListItemRClicked(wxListEvent& event)
{
    wxListItem item;
    item.SetId(event.GetIndex());
    if (ListItemIsUserEntry(item))
        PopupRemove(*m_waters, wxDefaultPosition, &WaterLibDialog::OnListItemDelete);
}

void WaterLibDialog::OnTreeItemRClicked(wxTreeEvent& event)
{
    if (!m_tree->IsUserCountry(event.GetItem()))
        return;
    m_menuNode = event.GetItem();
    PopupRemove(*m_tree, wxDefaultPosition, &WaterLibDialog::OnTreeItemDelete);
}

void WaterLibDialog::OnListItemDelete(wxCommandEvent&)
{
    const WaterLibListViewItem* water = m_waters->GetSelectedWater();
    if (water == nullptr || !water->IsUserEntry() || !ShowDeleteConfirmation())
        return;
    const int id = water->GetIdentifier();
    bool removed = false;
    Guarded([&] { removed = ProjectDatabase::WaterLib_DeleteUserWater(id); });
    if (!removed)
        return;
    ClearDetails();
    m_waters->RemoveUserWater(id);
    ShowWaterCount();
}

void WaterLibDialog::OnTreeItemDelete(wxCommandEvent&)
{
    const wxTreeItemId node = m_menuNode;
    if (!m_tree->IsUserCountry(node))
        return;
    const WaterLibTreeItemData* data = m_tree->GetNode(node);
    // Others may have saved waters since the tree was filled.
    std::size_t count = 0;
    Guarded(
        [&] { count = ProjectDatabase::WaterLib_GetUserWatersByCriteria({data->GetIdentifier()}).size(); });
    if (!ShowDeleteConfirmation(wxString::Format(Tr("Its waters go with it: %d"), static_cast<int>(count))))
        return;
    bool removed = false;
    Guarded([&] { removed = ProjectDatabase::WaterLib_DeleteUserCountry(data->GetIdentifier()); });
    if (!removed)
        return;
    m_tree->Delete(node);
    ShowWaters();
}

void WaterLibDialog::OnUseSelectedClick(wxCommandEvent&)
{
    if (m_details->GetLiquid() == nullptr)
        return;
    const int answer =
        dialogs::AskYesNo(this, Tr("Overwrite current water analysis?"), Tr("Confirm"), wxICON_QUESTION);
    if (answer == wxID_YES) {
        m_accepted = true;
        CloseWith(wxID_OK);
    } else if (answer == wxID_NO) {
        CloseWith(wxID_CANCEL);
    }
}

void WaterLibDialog::ApplySearch()
{
    ClearDetails();
    m_waters->SetFilter(m_search->GetValue());
    if (SearchesAll() != m_showsAll)
        ShowWaters();
    else
        ShowWaterCount();
}

void WaterLibDialog::ClearSearch()
{
    m_search->SetFocus();
    m_search->ChangeValue(wxString());
    ApplySearch();
}

void WaterLibDialog::GoToFirstWater()
{
    if (m_waters->GetItemCount() == 0)
        return;
    m_waters->SetFocus();
    m_waters->Select(0);
    m_waters->Focus(0);
}

void WaterLibDialog::OnCharHook(wxKeyEvent& event)
{
    if (event.GetKeyCode() == WXK_DOWN && !event.HasAnyModifiers() && m_search->HasFocus())
        GoToFirstWater();
    else if (event.GetKeyCode() == WXK_F1 && m_help != nullptr)
        m_help->DisplayHelpSection("waterlibrary.html");
    else
        event.Skip();
}
