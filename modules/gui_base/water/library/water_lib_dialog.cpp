// SPDX-License-Identifier: MIT
#include "gui_base/water/library/water_lib_dialog.h"

#include "dbinterfaces/master_database.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/dialogs/questions.h"
#include "gui_base/input/controls/tv_searchctrl.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/library/water_lib_list.h"
#include "projectbase/water/normalization.h"

#include <wx/button.h>
#include <wx/infobar.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/uilocale.h>
#include <wx/wupdlock.h>

#include <algorithm>
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
    RestoreArrangement();
    if (pos == wxDefaultPosition)
        CentreOnParent();
    BindEvents();
    InitDataTree();
    ClearDetails();
    wxTreeItemIdValue cookie;
    const wxTreeItemId first = m_tree->GetFirstChild(m_tree->GetRootItem(), cookie);
    if (first.IsOk())
        m_tree->SelectItem(first);
    m_tree->SetFocus();
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
    m_search->Bind(wxEVT_TEXT, &WaterLibDialog::OnSearch, this);
    m_use->Bind(wxEVT_BUTTON, &WaterLibDialog::OnUseSelectedClick, this);
    Bind(wxEVT_CHAR_HOOK, &WaterLibDialog::OnCharHook, this);
}

bool WaterLibDialog::Guarded(const std::function<void()>& action)
{
    try {
        action();
        return true;
    } catch (const std::exception& error) {
        m_logger.Error(error.what());
        m_problem->ShowMessage(
            wxString::Format(Tr("The water library cannot be used: %s"), wxString::FromUTF8(error.what())),
            wxICON_ERROR);
        return false;
    }
}

void WaterLibDialog::InitDataTree()
{
    const wxWindowUpdateLocker frozen(m_tree);
    m_tree->DeleteAllItems();
    m_tree->AddRoot(Tr("Library"));
    Guarded([this] {
        m_countryNames = std::make_unique<water_library::CountryNames>();
        for (const auto& category : MasterDatabase::WaterLib_GetCategories())
            AddCategory(category, false, MasterDatabase::WaterLib_GetCountries(category.id));
    });
    Guarded([this] {
        for (const auto& category : ProjectDatabase::WaterLib_GetUserCategories())
            AddCategory(category, true, ProjectDatabase::WaterLib_GetUserCountries(category.id));
    });
    m_tree->Expand(m_tree->GetRootItem());
}

void WaterLibDialog::AddCategory(const DBObjects::WaterLibCategory& category, bool user,
                                 const std::vector<DBObjects::WaterLibCountry>& countries)
{
    const wxTreeItemId node =
        m_tree->AppendItem(m_tree->GetRootItem(), i18n::Translated(wxString::FromUTF8(category.name)), -1, -1,
                           new WaterLibTreeItemData(category.id, WaterLibTreeItemData::kCategory, user));
    for (const auto& country : countries) {
        const wxString name =
            m_countryNames ? (*m_countryNames)(country.name) : wxString::FromUTF8(country.name);
        m_tree->AppendItem(
            node, name, -1, -1,
            new WaterLibTreeItemData(country.id, WaterLibTreeItemData::kCountry, user, country.waterCount));
    }
    m_tree->Expand(node);
}

const WaterLibTreeItemData* WaterLibDialog::NodeData(const wxTreeItemId& node) const
{
    return node.IsOk() ? dynamic_cast<const WaterLibTreeItemData*>(m_tree->GetItemData(node)) : nullptr;
}

bool WaterLibDialog::TreeNodeisUserEntry(const wxTreeItemId& node) const
{
    const WaterLibTreeItemData* data = NodeData(node);
    return data != nullptr && data->IsUserEntry();
}

bool WaterLibDialog::ListItemIsUserEntry(const wxListItem& item) const
{
    const auto* water = dynamic_cast<const WaterLibListViewItem*>(&item);
    if (water == nullptr)
        water = m_waters->GetWater(item.GetId());
    return water != nullptr && water->IsUserEntry();
}

void WaterLibDialog::ShowSelectedNodes()
{
    std::vector<int> supplied;
    std::vector<int> own;
    wxArrayTreeItemIds selected;
    m_tree->GetSelections(selected);
    for (const wxTreeItemId node : selected) {
        if (const WaterLibTreeItemData* data = NodeData(node))
            (data->IsUserEntry() ? own : supplied).push_back(data->GetIdentifier());
    }
    std::vector<DBObjects::WaterLibWater> waters;
    const bool read = Guarded([&] {
        if (!supplied.empty())
            waters = MasterDatabase::WaterLib_GetWatersByCriteria(supplied);
        if (own.empty())
            return;
        auto mine = ProjectDatabase::WaterLib_GetUserWatersByCriteria(own);
        waters.insert(waters.end(), std::make_move_iterator(mine.begin()),
                      std::make_move_iterator(mine.end()));
    });
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
    wxString country = m_countryNames ? (*m_countryNames)(english) : wxString();
    for (const auto& water : waters) {
        if (water.country != english) {
            english = water.country;
            country = m_countryNames ? (*m_countryNames)(english) : wxString::FromUTF8(english);
        }
        items.push_back(std::make_unique<WaterLibListViewItem>(water.id, water.user != 0, country,
                                                               wxString::FromUTF8(water.place),
                                                               wxString::FromUTF8(water.source)));
    }
    FillWaterListView(std::move(items));
}

void WaterLibDialog::FillWaterListView(std::vector<std::unique_ptr<WaterLibListViewItem>> items)
{
    ClearDetails();
    m_waters->SetWaters(std::move(items));
    ShowWaterCount();
}

void WaterLibDialog::ShowWaterCount()
{
    m_count->SetLabel(wxString::Format(Tr("Waters: %d"), m_waters->GetItemCount()));
}

void WaterLibDialog::FillDetailList(const std::vector<DBObjects::WaterLibAttr>& values)
{
    m_liquid = std::make_unique<LiquidData>();
    DetailList& details = *m_liquid->GetDetails();
    details.LoadGroup("liquid", "BASE");
    // A number that is not stored is 0, whatever its default; one that is not known is stored without a text.
    for (auto& [key, detail] : details) {
        if (detail.GetType() == DetailType::Double)
            detail.ClearValue();
    }
    for (const auto& value : values) {
        if (DetailData* detail = details.GetDetail(value.key))
            detail->SetValueFromString(wxString::FromUTF8(value.value));
    }
    water::NormalizeEveryIon(details);
    water::UpdateDerivedValues(details);

    const wxWindowUpdateLocker frozen(m_details);
    m_details->DeleteAllItems();
    for (const water_library::DetailLine& line : water_library::DetailLines(*m_liquid)) {
        const long row = m_details->InsertItem(m_details->GetItemCount(), line.name);
        m_details->SetItem(row, 1, line.value);
        m_details->SetItem(row, 2, line.unit);
    }
}

void WaterLibDialog::ClearDetails()
{
    m_liquid.reset();
    m_details->DeleteAllItems();
    SetGeneralInformationLabels({}, {}, {}, {}, {}, {});
    m_use->Disable();
}

void WaterLibDialog::SetGeneralInformationLabels(const wxString& country, const wxString& place,
                                                 const wxString& source, const wxString& type,
                                                 const wxString& date, const wxString& comments)
{
    const wxString* const texts[]{&country, &place, &source, &type, &date, &comments};
    for (std::size_t i = 0; i < m_general.size(); ++i)
        m_general[i]->ChangeValue(*texts[i]);
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
    KeepArrangement();
    if (m_accepted && m_liquid && liquid != nullptr)
        liquid->GetDetails()->CopyValues(*m_liquid->GetDetails());
    return m_accepted;
}

void WaterLibDialog::CloseWith(int code)
{
    if (IsModal())
        EndModal(code);
    else
        Hide();
}
