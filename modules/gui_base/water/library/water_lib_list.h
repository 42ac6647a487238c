// SPDX-License-Identifier: MIT
#pragma once

/// The list of waters in the water library: it owns its items and draws only the rows that are seen, so that
/// a library of 100,000 waters opens at once. Rows are sorted and filtered without asking the database.

#include "gui_base/gui_base_export.h"
#include "gui_base/water/library/water_lib_items.h"

#include <wx/listctrl.h>

#include <memory>
#include <vector>

class GUI_BASE_EXPORT WaterLibListView : public wxListView
{
public:
    using Items = std::vector<std::unique_ptr<WaterLibListViewItem>>;

    /// More waters than this are not listed.
    static constexpr std::size_t kMostWaters = 1'000'000;

    WaterLibListView(wxWindow* parent, int id);

    /// Shows other waters in the order given; the filter stays. Nothing is selected then.
    void SetWaters(Items waters);
    /// The shown water of that row, or null.
    const WaterLibListViewItem* GetWater(long row) const;
    const WaterLibListViewItem* GetSelectedWater() const { return GetWater(GetFirstSelected()); }
    /// Removes the user's water with that identifier; nothing when it is not listed. Supplied waters may have
    /// the same identifiers.
    void RemoveUserWater(int id);

    /// Whether a column says in which folder a water stands.
    void ShowFolders(bool shown);

    /// Sorts by a column in the order of the user's locale; by the same column again, the other way round.
    /// The selected water stays selected.
    void SortByColumn(int column);
    /// Leaves the waters of which a column holds the text, whatever its case; an empty text leaves all.
    void SetFilter(const wxString& text);
    /// Whether the list is rearranging itself, so that a selection is none of the user's.
    bool IsArranging() const { return m_arranging; }

protected:
    wxString OnGetItemText(long row, long column) const override;

private:
    void ShowMatching();
    void Deselect();

    Items m_waters;
    std::vector<const WaterLibListViewItem*> m_shown;
    wxString m_filter;
    int m_sortColumn = -1;
    bool m_ascending = true;
    bool m_arranging = false;
};

namespace water_library {

/// The last column takes the width that the others leave, now or at every change of the list's size.
GUI_BASE_EXPORT void FitLastColumn(wxListView& list);
GUI_BASE_EXPORT void FillWidth(wxListView& list);

}  // namespace water_library
