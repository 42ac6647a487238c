// SPDX-License-Identifier: MIT
#include "gui_base/water/library/water_lib_dialog.h"

#include "gui_base/dialogs/questions.h"
#include "gui_base/input/controls/nothing_found.h"
#include "gui_base/input/controls/tv_searchctrl.h"
#include "gui_base/messages/user_message.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/library/water_lib_arrangement.h"
#include "gui_base/water/library/water_lib_details.h"
#include "gui_base/water/library/water_lib_list.h"
#include "gui_base/water/library/water_lib_tree.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/infobar.h>
#include <wx/stattext.h>

#include <stdexcept>
#include <utility>

namespace {

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

}  // namespace

WaterLibDialog::WaterLibDialog(Logger& logger) : WaterLibDialog(logger, nullptr) {}

WaterLibDialog::WaterLibDialog(Logger& logger, wxWindow* parent, int id, const wxPoint& pos)
    : wxDialog(parent, id, Tr("Water library"), pos, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX),
      m_logger(logger)
{
    CreateControls();
    m_arrangement = std::make_unique<water_library::Arrangement>(*this, *m_vertical, *m_horizontal, m_logger);
    m_arrangement->Restore();
    if (pos == wxDefaultPosition)
        CentreOnParent();
    BindEvents();
    InitDataTree();
    ClearDetails();
    m_tree->SelectFirst();
    m_search->SetFocus();
}

WaterLibDialog::~WaterLibDialog()
{
    // The tree tells of its selection while it is emptied.
    m_tree->Unbind(wxEVT_TREE_SEL_CHANGED, &WaterLibDialog::OnTreeItemSelected, this);
    DestroyChildren();
}

void WaterLibDialog::BindEvents()
{
    m_tree->Bind(wxEVT_TREE_SEL_CHANGED, &WaterLibDialog::OnTreeItemSelected, this);
    m_tree->Bind(wxEVT_TREE_KEY_DOWN, &WaterLibDialog::OnKeyDownTree, this);
    m_tree->Bind(wxEVT_TREE_ITEM_RIGHT_CLICK, &WaterLibDialog::OnTreeItemRClicked, this);
    m_waters->Bind(wxEVT_LIST_ITEM_SELECTED, &WaterLibDialog::OnListItemSelected, this);
    m_waters->Bind(wxEVT_LIST_COL_CLICK, &WaterLibDialog::OnColumnClick, this);
    m_waters->Bind(wxEVT_LIST_KEY_DOWN, &WaterLibDialog::OnKeyDownList, this);
    m_waters->Bind(wxEVT_LIST_ITEM_RIGHT_CLICK, &WaterLibDialog::OnListItemRClicked, this);
    m_waters->Bind(wxEVT_LIST_ITEM_ACTIVATED, [this](wxListEvent&) {
        wxCommandEvent event;
        OnUseSelectedClick(event);
    });
    m_search->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { ApplySearch(); });
    m_thisFolder->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { ApplySearch(); });
    m_use->Bind(wxEVT_BUTTON, &WaterLibDialog::OnUseSelectedClick, this);
    Bind(wxEVT_CHAR_HOOK, &WaterLibDialog::OnCharHook, this);
}

bool WaterLibDialog::Guarded(const std::function<void()>& action)
{
    try {
        action();
        return true;
    } catch (const std::exception& error) {
        const wxString text = MessageOf(error).text;
        m_logger.Error(text.utf8_string());
        m_problem->ShowMessage(wxString::Format(Tr("The water library cannot be used: %s"), text),
                               wxICON_ERROR);
        return false;
    }
}

void WaterLibDialog::InitDataTree()
{
    m_tree->Fill([this](const auto& action) { return Guarded(action); });
}

bool WaterLibDialog::TreeNodeisUserEntry(const wxTreeItemId& node) const
{
    return m_tree->IsUserEntry(node);
}

bool WaterLibDialog::ListItemIsUserEntry(const wxListItem& item) const
{
    const auto* water = dynamic_cast<const WaterLibListViewItem*>(&item);
    if (water == nullptr)
        water = m_waters->GetWater(item.GetId());
    return water != nullptr && water->IsUserEntry();
}

bool WaterLibDialog::SearchesAll() const
{
    return !m_search->IsEmpty() && !m_thisFolder->GetValue();
}

void WaterLibDialog::ShowWaters()
{
    m_showsAll = SearchesAll();
    std::vector<DBObjects::WaterLibWater> waters;
    const bool read =
        Guarded([&] { waters = m_showsAll ? m_tree->ReadAllWaters() : m_tree->ReadSelectedWaters(); });
    if (!Guarded([&] { FillWaterList(waters); }))
        FillWaterList({});
    else if (read)
        m_problem->Dismiss();
}

void WaterLibDialog::FillWaterList(const std::vector<DBObjects::WaterLibWater>& waters)
{
    if (waters.size() > WaterLibListView::kMostWaters)
        throw std::length_error("list too long");
    std::vector<std::unique_ptr<WaterLibListViewItem>> items;
    items.reserve(waters.size());
    std::string english;
    wxString country = m_tree->CountryName(english);
    for (const auto& water : waters) {
        if (water.country != english) {
            english = water.country;
            country = m_tree->CountryName(english);
        }
        items.push_back(std::make_unique<WaterLibListViewItem>(
            water.id, water.user != 0, country, wxString::FromUTF8(water.place),
            wxString::FromUTF8(water.source), m_showsAll ? m_tree->FolderOf(water) : wxString()));
    }
    FillWaterListView(std::move(items));
}

void WaterLibDialog::FillWaterListView(std::vector<std::unique_ptr<WaterLibListViewItem>> items)
{
    ClearDetails();
    m_waters->ShowFolders(m_showsAll);
    m_waters->SetWaters(std::move(items));
    ShowWaterCount();
}

void WaterLibDialog::ShowWaterCount()
{
    m_count->SetLabel(wxString::Format(Tr("Waters: %d"), m_waters->GetItemCount()));
    m_nothing->ShowIf(m_waters->GetItemCount() == 0 && !m_search->IsEmpty());
}

void WaterLibDialog::FillDetailList(const std::vector<DBObjects::WaterLibAttr>& values)
{
    m_details->SetValues(values);
}

void WaterLibDialog::ClearDetails()
{
    m_details->Clear();
    m_use->Disable();
    NameList(nullptr);
}

void WaterLibDialog::NameList(const WaterLibListViewItem* selected)
{
    // The rows are drawn; what is chosen is said with the name of the whole.
    wxString texts;
    for (long column = 0; selected != nullptr && column < WaterLibListViewItem::kColumns; ++column) {
        if (const wxString& text = selected->GetColumnText(column); !text.empty())
            texts += (texts.empty() ? ": " : ", ") + text;
    }
    accessibility::SetName(*m_waters, Tr("Waters") + texts);
}

void WaterLibDialog::SetGeneralInformationLabels(const wxString& country, const wxString& place,
                                                 const wxString& source, const wxString& type,
                                                 const wxString& date, const wxString& comments)
{
    m_details->SetTexts({country, place, source, type, date, comments});
}

void WaterLibDialog::SortWaterListbyColumn(int column)
{
    m_waters->SortByColumn(column);
}

bool WaterLibDialog::ShowDeleteConfirmation(const wxString& explanation)
{
    return dialogs::AskYesNo(this, Tr("Do you really want to delete the selected entry?"), Tr("Confirm"),
                             wxICON_QUESTION, explanation) == wxID_YES;
}

bool WaterLibDialog::SelectLiquidData(LiquidData* liquid)
{
    m_accepted = false;
    ShowModal();
    m_arrangement->Keep();
    if (m_accepted && m_details->GetLiquid() != nullptr && liquid != nullptr)
        liquid->GetDetails()->CopyValues(*m_details->GetLiquid()->GetDetails());
    return m_accepted;
}

void WaterLibDialog::CloseWith(int code)
{
    if (IsModal()) {
        EndModal(code);
    } else {
        SetReturnCode(code);
        Hide();
    }
}
