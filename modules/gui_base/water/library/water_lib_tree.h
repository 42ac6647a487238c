// SPDX-License-Identifier: MIT
#pragma once

/// The tree of the water library: categories of supplied and of the user's waters, and the countries in them.

#include "dbinterfaces/db_objects.h"
#include "gui_base/gui_base_export.h"
#include "gui_base/water/library/water_lib_items.h"
#include "gui_base/water/library/water_lib_texts.h"

#include <wx/treectrl.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class GUI_BASE_EXPORT WaterLibTree : public wxTreeCtrl
{
public:
    /// Runs what asks a database; false, with a message to the user, when that fails.
    using Guard = std::function<bool(const std::function<void()>&)>;

    explicit WaterLibTree(wxWindow* parent);

    /// Reads both databases, each guarded for itself.
    void Fill(const Guard& guarded);
    void SelectFirst();
    /// What a node stands for, or null.
    const WaterLibTreeItemData* GetNode(const wxTreeItemId& node) const;
    bool IsUserEntry(const wxTreeItemId& node) const;
    /// A country of the user, which can be removed; the category is there always.
    bool IsUserCountry(const wxTreeItemId& node) const;
    /// The waters of the selected nodes. Throws DatabaseError.
    std::vector<DBObjects::WaterLibWater> ReadSelectedWaters() const;
    /// Those of all nodes.
    std::vector<DBObjects::WaterLibWater> ReadAllWaters() const;
    /// The category that a water stands in, as the tree names it; empty where the tree does not hold it.
    wxString FolderOf(const DBObjects::WaterLibWater& water) const;
    /// Name of a country in the language of the texts.
    wxString CountryName(const std::string& english) const;

private:
    std::vector<DBObjects::WaterLibWater> ReadWaters(const std::vector<wxTreeItemId>& nodes) const;
    void AddCategory(const DBObjects::WaterLibCategory& category, bool user,
                     const std::vector<DBObjects::WaterLibCountry>& countries);

    std::unique_ptr<water_library::CountryNames> m_countryNames;
    /// Categories by their countries: of the user or not, and the identifier.
    std::map<std::pair<bool, int>, wxString> m_folders;
};
