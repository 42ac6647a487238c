// SPDX-License-Identifier: MIT
#include "gui_base/water/library/water_lib_list.h"

#include "gui_base/support/list_column.h"
#include "gui_base/support/translation.h"

#include <wx/uilocale.h>
#include <wx/wupdlock.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

namespace {

using Columns = std::array<int, WaterLibListViewItem::kColumns>;

/// Order of two waters by the columns, one after the other.
int Compare(const wxUILocale& locale, const WaterLibListViewItem& a, const WaterLibListViewItem& b,
            const Columns& columns)
{
    for (const int column : columns) {
        const wxString& left = a.GetColumnText(column);
        const wxString& right = b.GetColumnText(column);
        if (left == right)
            continue;
        const int order = locale.CompareStrings(left, right);
        if (order != 0)
            return order;
    }
    return 0;
}

}  // namespace

WaterLibListView::WaterLibListView(wxWindow* parent, int id)
    : wxListView(parent, id, wxDefaultPosition, wxDefaultSize, wxLC_REPORT | wxLC_VIRTUAL | wxLC_SINGLE_SEL)
{
    list_column::Append(*this, i18n::Translated("Country"), 150);
    list_column::Append(*this, i18n::Translated("Place"), 190);
    list_column::Append(*this, i18n::Translated("Water source"), 300);
}

void WaterLibListView::SetWaters(Items waters)
{
    m_shown.clear();
    m_waters = std::move(waters);
    m_sortColumn = -1;
    m_ascending = true;
    RemoveSortIndicator();
    ShowMatching();
}

void WaterLibListView::ShowFolders(bool shown)
{
    constexpr int kWidth = 180;
    constexpr int kLeastSource = 140;
    constexpr int kFolder = WaterLibListViewItem::kFolder;
    constexpr int kSource = WaterLibListViewItem::kSource;
    if (shown == (GetColumnCount() > kFolder))
        return;
    if (shown) {
        list_column::Append(*this, i18n::Translated("Folder"), kWidth);
        // The source, which had all that the others left, makes room.
        SetColumnWidth(kSource, std::max(GetColumnWidth(kSource) - FromDIP(kWidth), FromDIP(kLeastSource)));
    } else {
        RemoveSortIndicator();
        DeleteColumn(kFolder);
    }
    water_library::FitLastColumn(*this);
}

const WaterLibListViewItem* WaterLibListView::GetWater(long row) const
{
    return row >= 0 && row < static_cast<long>(m_shown.size()) ? m_shown[static_cast<std::size_t>(row)]
                                                               : nullptr;
}

void WaterLibListView::RemoveUserWater(int id)
{
    const auto found = std::find_if(m_waters.begin(), m_waters.end(), [id](const auto& water) {
        return water->IsUserEntry() && water->GetIdentifier() == id;
    });
    if (found == m_waters.end())
        return;
    m_shown.clear();
    m_waters.erase(found);
    ShowMatching();
}

void WaterLibListView::SortByColumn(int column)
{
    const WaterLibListViewItem* selected = GetSelectedWater();
    m_ascending = column != m_sortColumn || !m_ascending;
    m_sortColumn = column;
    const wxUILocale locale = wxUILocale::GetCurrent();
    Columns columns;
    std::iota(columns.begin(), columns.end(), 0);
    // First by the one that was clicked.
    const auto clicked = std::find(columns.begin(), columns.end(), column);
    std::rotate(columns.begin(), clicked, clicked == columns.end() ? clicked : clicked + 1);
    std::stable_sort(m_waters.begin(), m_waters.end(), [&](const auto& a, const auto& b) {
        return m_ascending ? Compare(locale, *a, *b, columns) < 0 : Compare(locale, *b, *a, columns) < 0;
    });
    ShowMatching();
    ShowSortIndicator(column, m_ascending);
    const auto row = std::find(m_shown.begin(), m_shown.end(), selected);
    if (row == m_shown.end())
        return;
    m_arranging = true;
    Select(row - m_shown.begin());
    Focus(row - m_shown.begin());
    m_arranging = false;
}

void WaterLibListView::SetFilter(const wxString& text)
{
    const wxString filter = text.Lower();
    if (filter == m_filter)
        return;
    m_filter = filter;
    ShowMatching();
}

void WaterLibListView::ShowMatching()
{
    const wxWindowUpdateLocker frozen(this);
    m_arranging = true;
    Deselect();
    m_shown.clear();
    m_shown.reserve(m_waters.size());
    for (const auto& water : m_waters) {
        if (m_filter.empty() || water->GetSearchText().Contains(m_filter))
            m_shown.push_back(water.get());
    }
    SetItemCount(static_cast<long>(m_shown.size()));
    Refresh();
    m_arranging = false;
}

void WaterLibListView::Deselect()
{
    const long row = GetFirstSelected();
    if (row != wxNOT_FOUND)
        Select(row, false);
}

wxString WaterLibListView::OnGetItemText(long row, long column) const
{
    const WaterLibListViewItem* water = GetWater(row);
    return water != nullptr ? water->GetColumnText(column) : wxString();
}

void water_library::FitLastColumn(wxListView& list)
{
    int width = list.GetClientSize().x;
    const int last = list.GetColumnCount() - 1;
    for (int column = 0; column < last; ++column)
        width -= list.GetColumnWidth(column);
    if (width > list.FromDIP(40))
        list.SetColumnWidth(last, width);
}

void water_library::FillWidth(wxListView& list)
{
    list.Bind(wxEVT_SIZE, [&list](wxSizeEvent& event) {
        FitLastColumn(list);
        event.Skip();
    });
}
