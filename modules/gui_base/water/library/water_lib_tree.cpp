// SPDX-License-Identifier: MIT
#include "gui_base/water/library/water_lib_tree.h"

#include "dbinterfaces/master_database.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <wx/wupdlock.h>

#include <iterator>

WaterLibTree::WaterLibTree(wxWindow* parent)
    : wxTreeCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                 wxTR_HAS_BUTTONS | wxTR_NO_LINES | wxTR_MULTIPLE | wxTR_FULL_ROW_HIGHLIGHT)
{
    accessibility::SetName(*this, i18n::Translated("Library"));
}

void WaterLibTree::Fill(const Guard& guarded)
{
    const wxWindowUpdateLocker frozen(this);
    DeleteAllItems();
    m_folders.clear();
    AddRoot(i18n::Translated("Library"));
    guarded([this] {
        m_countryNames = std::make_unique<water_library::CountryNames>();
        for (const auto& category : MasterDatabase::WaterLib_GetCategories())
            AddCategory(category, false, MasterDatabase::WaterLib_GetCountries(category.id));
    });
    guarded([this] {
        for (const auto& category : ProjectDatabase::WaterLib_GetUserCategories())
            AddCategory(category, true, ProjectDatabase::WaterLib_GetUserCountries(category.id));
    });
    Expand(GetRootItem());
}

void WaterLibTree::AddCategory(const DBObjects::WaterLibCategory& category, bool user,
                               const std::vector<DBObjects::WaterLibCountry>& countries)
{
    const wxTreeItemId node =
        AppendItem(GetRootItem(), i18n::Translated(wxString::FromUTF8(category.name)), -1, -1,
                   new WaterLibTreeItemData(category.id, WaterLibTreeItemData::kCategory, user));
    for (const auto& country : countries) {
        AppendItem(node, CountryName(country.name), -1, -1,
                   new WaterLibTreeItemData(country.id, WaterLibTreeItemData::kCountry, user));
        m_folders[{user, country.id}] = GetItemText(node);
    }
    Expand(node);
}

wxString WaterLibTree::FolderOf(const DBObjects::WaterLibWater& water) const
{
    const auto found = m_folders.find({water.user != 0, water.countryId});
    return found != m_folders.end() ? found->second : wxString();
}

wxString WaterLibTree::CountryName(const std::string& english) const
{
    return m_countryNames ? (*m_countryNames)(english) : wxString::FromUTF8(english);
}

void WaterLibTree::SelectFirst()
{
    wxTreeItemIdValue cookie;
    const wxTreeItemId first = GetFirstChild(GetRootItem(), cookie);
    if (first.IsOk())
        SelectItem(first);
}

const WaterLibTreeItemData* WaterLibTree::GetNode(const wxTreeItemId& node) const
{
    return node.IsOk() ? dynamic_cast<const WaterLibTreeItemData*>(GetItemData(node)) : nullptr;
}

bool WaterLibTree::IsUserEntry(const wxTreeItemId& node) const
{
    const WaterLibTreeItemData* data = GetNode(node);
    return data != nullptr && data->IsUserEntry();
}

bool WaterLibTree::IsUserCountry(const wxTreeItemId& node) const
{
    return IsUserEntry(node) && GetNode(node)->GetLevel() == WaterLibTreeItemData::kCountry;
}

std::vector<DBObjects::WaterLibWater> WaterLibTree::ReadSelectedWaters() const
{
    wxArrayTreeItemIds selected;
    GetSelections(selected);
    return ReadWaters(std::vector<wxTreeItemId>(selected.begin(), selected.end()));
}

std::vector<DBObjects::WaterLibWater> WaterLibTree::ReadAllWaters() const
{
    std::vector<wxTreeItemId> categories;
    wxTreeItemIdValue cookie;
    for (wxTreeItemId node = GetFirstChild(GetRootItem(), cookie); node.IsOk();
         node = GetNextChild(GetRootItem(), cookie))
        categories.push_back(node);
    return ReadWaters(categories);
}

std::vector<DBObjects::WaterLibWater> WaterLibTree::ReadWaters(const std::vector<wxTreeItemId>& nodes) const
{
    std::vector<int> supplied;
    std::vector<int> own;
    for (const wxTreeItemId& node : nodes) {
        if (const WaterLibTreeItemData* data = GetNode(node))
            (data->IsUserEntry() ? own : supplied).push_back(data->GetIdentifier());
    }
    std::vector<DBObjects::WaterLibWater> waters;
    if (!supplied.empty())
        waters = MasterDatabase::WaterLib_GetWatersByCriteria(supplied);
    if (own.empty())
        return waters;
    auto mine = ProjectDatabase::WaterLib_GetUserWatersByCriteria(own);
    waters.insert(waters.end(), std::make_move_iterator(mine.begin()), std::make_move_iterator(mine.end()));
    return waters;
}
