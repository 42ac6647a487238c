// SPDX-License-Identifier: MIT
// What the user does to the feed composition, as its controller hears of it.
#include "gui_base/dialogs/questions.h"
#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/input/controls/tv_searchctrl.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/ionexchange/feed/feed_composition_grid.h"
#include "gui_base/ionexchange/feed/feed_composition_panel.h"
#include "gui_base/ionexchange/feed/feed_medium_box.h"
#include "gui_base/support/translation.h"

#include <wx/menu.h>
#include <wx/utils.h>

#include <algorithm>

namespace {

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

bool IsMenuKey(int key)
{
    return key == WXK_MENU || key == WXK_WINDOWS_MENU || (key == WXK_F10 && wxGetKeyState(WXK_SHIFT));
}

}  // namespace

void FeedCompositionPanel::DoBindEvents()
{
    m_list->SetOnSelection([this] { OnCompoundSelected(); });
    m_list->Bind(wxEVT_LIST_ITEM_ACTIVATED, &FeedCompositionPanel::OnCompoundAddedToComposition, this);
    m_list->Bind(wxEVT_LIST_ITEM_RIGHT_CLICK, &FeedCompositionPanel::OnListContextMenu, this);
    m_list->Bind(wxEVT_LIST_KEY_DOWN, &FeedCompositionPanel::OnListKey, this);
    m_search->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { Post(tvFEED_SEARCH); });
    m_search->Bind(wxEVT_SEARCH_CANCEL, [this](wxCommandEvent&) {
        CancelTextSearch();
        Post(tvFEED_SEARCH);
    });
    // Enter goes on to what was found.
    m_search->Bind(wxEVT_SEARCH, [this](wxCommandEvent&) { m_list->SetFocus(); });
    m_element->Bind(tvCHANGE_EVENT, &FeedCompositionPanel::OnChoice, this);
    m_category->Bind(tvCHANGE_EVENT, &FeedCompositionPanel::OnChoice, this);
    for (const Button& entry : m_buttons) {
        entry.button->Bind(wxEVT_BUTTON, [this, event = entry.event](wxCommandEvent&) {
            if (event == tvFEED_COMPOUND_EDIT)
                OnEditCompoundClick();
            else if (event == tvFEED_COMPOUND_DELETE)
                OnDeleteCompoundClick();
            else
                Post(event);
        });
    }
    BindGrid(*m_feedGrid, tvFEED_CELL_EDITED);
    BindGrid(*m_effluentGrid, tvFEED_EFFLUENT_CELL_EDITED);
    m_medium->SetOnChange([this] { OnFeedMediumChanged(); });
    m_adjustPh->Bind(wxEVT_CHECKBOX, &FeedCompositionPanel::OnAdjustPhChecked, this);
    m_totalPh->Bind(wxEVT_TEXT_ENTER, &FeedCompositionPanel::OnTotalPhEnter, this);
    m_useEffluent->Bind(wxEVT_CHECKBOX, &FeedCompositionPanel::OnUseEffluentChecked, this);
    Bind(wxEVT_SHOW, [this](wxShowEvent& event) {
        event.Skip();
        if (event.IsShown())
            Post(tvFEED_SHOWN);
    });
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        ArrangeTop();
        event.Skip();
    });
}

void FeedCompositionPanel::BindGrid(FeedCompositionGridBase& grid, wxEventType edited)
{
    grid.SetOnEdit([this, edited](std::size_t row, FeedComposition::Unit unit, double value) {
        FeedEvent event(edited);
        event.row = row;
        event.unit = unit;
        event.value = value;
        PostFeedEvent(event);
    });
    grid.SetOnRemove([this](std::size_t row) { PostCompositionChangedEvent(tvFEED_ENTRY_REMOVED, row); });
    grid.SetOnImport([this](std::size_t row) { PostCompositionChangedEvent(tvFEED_ENTRY_IMPORTED, row); });
}

void FeedCompositionPanel::PostFeedEvent(FeedEvent event)
{
    if (m_closing || IsBeingDeleted())
        return;
    event.SetId(GetId());
    event.SetEventObject(this);
    // To the controller alone, which has bound itself to this panel.
    event.StopPropagation();
    ProcessWindowEvent(event);
}

void FeedCompositionPanel::PostCompoundAddedEvent(std::vector<int> compounds)
{
    FeedEvent event(tvFEED_COMPOUND_ADDED);
    event.compounds = std::move(compounds);
    PostFeedEvent(event);
}

void FeedCompositionPanel::PostCompoundSelectedEvent(int compound)
{
    FeedEvent event(tvFEED_COMPOUND_SELECTED);
    event.compounds = {compound};
    PostFeedEvent(event);
}

void FeedCompositionPanel::PostCompoundEditEvent(int compound)
{
    FeedEvent event(tvFEED_COMPOUND_EDIT);
    event.compounds = {compound};
    PostFeedEvent(event);
}

void FeedCompositionPanel::PostCompoundDeleteEvent(std::vector<int> compounds)
{
    FeedEvent event(tvFEED_COMPOUND_DELETE);
    event.compounds = std::move(compounds);
    PostFeedEvent(event);
}

void FeedCompositionPanel::PostCompositionChangedEvent(wxEventType type, std::size_t row)
{
    FeedEvent event(type);
    event.row = row;
    PostFeedEvent(event);
}

void FeedCompositionPanel::OnCompoundAddedToComposition(wxListEvent& event)
{
    const int activated = m_list->GetId(event.GetIndex());
    std::vector<int> compounds = m_list->GetSelectedIds();
    if (std::find(compounds.begin(), compounds.end(), activated) == compounds.end())
        compounds = {activated};
    PostCompoundAddedEvent(std::move(compounds));
}

void FeedCompositionPanel::OnCompoundSelected()
{
    const std::vector<int> selected = m_list->GetSelectedIds();
    if (selected.empty()) {
        UnSelectedCompound();
        Post(tvFEED_COMPOUND_DESELECTED);
        return;
    }
    EnableEditAndDeleteCompoundButtons(selected.size() == 1, true);
    if (selected.size() == 1)
        PostCompoundSelectedEvent(selected.front());
    else
        ShowCompoundDetailFields(false);
}

void FeedCompositionPanel::OnEditCompoundClick()
{
    const std::vector<int> selected = m_list->GetSelectedIds();
    if (selected.size() == 1)
        PostCompoundEditEvent(selected.front());
}

void FeedCompositionPanel::OnDeleteCompoundClick()
{
    std::vector<int> selected = m_list->GetSelectedIds();
    if (selected.empty())
        return;
    const bool one = selected.size() == 1;
    const wxString question = Tr(one ? wxTRANSLATE("Do you really want to delete this entry?")
                                     : wxTRANSLATE("Do you really want to delete these entries?"));
    const wxString title = Tr(one ? wxTRANSLATE("Delete entry") : wxTRANSLATE("Delete entries"));
    if (dialogs::AskYesNo(this, question, title, wxICON_QUESTION) == wxID_YES)
        PostCompoundDeleteEvent(std::move(selected));
}

void FeedCompositionPanel::OnChoice(wxCommandEvent& event)
{
    // A filter changes no project.
    if (event.GetEventObject() == m_element)
        PostElementChoiceEvent();
    else
        PostCategoryChoiceEvent();
}

void FeedCompositionPanel::OnAdjustPhChecked(wxCommandEvent&)
{
    UpdateTotalPhInputMode();
    Post(tvFEED_PH_CHANGED);
}

void FeedCompositionPanel::OnTotalPhEnter(wxCommandEvent&)
{
    if (!m_totalPh->IsEditable())
        return;
    m_totalPh->TransferDataFromWindow();
    m_totalPh->DiscardEdits();
    Post(tvFEED_PH_CHANGED);
}

void FeedCompositionPanel::OnUseEffluentChecked(wxCommandEvent&)
{
    m_effluentGrid->Enable(m_useEffluent->GetValue());
    Post(tvFEED_EFFLUENT_CHANGED);
}

void FeedCompositionPanel::OnListContextMenu(wxListEvent&)
{
    const std::vector<int> selected = m_list->GetSelectedIds();
    if (selected.empty())
        return;
    wxMenu menu;
    menu.Append(wxID_ADD, Tr(wxTRANSLATE("Add to the feed")));
    menu.Append(wxID_EDIT, Tr("Edit"))->Enable(selected.size() == 1);
    menu.Append(wxID_DELETE, Tr("Delete"));
    switch (m_list->GetPopupMenuSelectionFromUser(menu)) {
        case wxID_ADD:
            PostCompoundAddedEvent(selected);
            break;
        case wxID_EDIT:
            OnEditCompoundClick();
            break;
        case wxID_DELETE:
            OnDeleteCompoundClick();
            break;
        default:
            break;
    }
}

void FeedCompositionPanel::OnListKey(wxListEvent& event)
{
    if (event.GetKeyCode() == WXK_DELETE)
        OnDeleteCompoundClick();
    else if (IsMenuKey(event.GetKeyCode()))
        OnListContextMenu(event);
    else
        event.Skip();
}
