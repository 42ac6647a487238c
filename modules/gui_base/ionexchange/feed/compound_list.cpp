// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/feed/compound_list.h"

#include "dbinterfaces/compound_names.h"
#include "gui_base/support/compound_name.h"
#include "gui_base/support/list_column.h"
#include "gui_base/support/translation.h"

#include <wx/intl.h>

#include <algorithm>
#include <array>
#include <unordered_set>

namespace {

enum Column : long
{
    kName,
    kFormula,
    kCategory
};
const std::array kLabels{wxTRANSLATE("Name"), wxTRANSLATE("Formula"), wxTRANSLATE("Category")};
constexpr std::array kWidths{240, 120, 140};

}  // namespace

CompoundList::CompoundList(wxWindow* parent, int id)
    : wxListView(parent, id, wxDefaultPosition, wxDefaultSize, wxLC_REPORT | wxLC_VIRTUAL)
{
    for (std::size_t i = 0; i < kLabels.size(); ++i)
        list_column::Append(*this, i18n::Translated(kLabels[i]), kWidths[i]);
    Bind(wxEVT_LIST_ITEM_SELECTED, &CompoundList::QueueSelection, this);
    Bind(wxEVT_LIST_ITEM_DESELECTED, &CompoundList::QueueSelection, this);
    Bind(wxEVT_LIST_ITEM_FOCUSED, &CompoundList::QueueSelection, this);
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        FitColumns();
        event.Skip();
    });
}

void CompoundList::FitColumns()
{
    // The name takes the width that the others leave.
    int width = GetClientSize().x;
    for (int column = kFormula; column <= kCategory; ++column)
        width -= GetColumnWidth(column);
    SetColumnWidth(kName, std::max(width, FromDIP(kWidths[kName]) / 2));
}

void CompoundList::SetCompounds(Compounds compounds)
{
    for (long row = GetFirstSelected(); row != wxNOT_FOUND; row = GetNextSelected(row))
        Select(row, false);
    m_compounds = std::move(compounds);
    m_language = i18n::CompoundLanguage();
    if (!m_language.empty())
        compound_names::SortAsShown(m_compounds, m_language);
    SetItemCount(static_cast<long>(m_compounds.size()));
    if (!m_compounds.empty())
        EnsureVisible(0);
    m_told.clear();
    Refresh();
}

void CompoundList::SortAgain()
{
    const std::vector<int> before = GetSelectedIds();
    const std::unordered_set<int> selected(before.begin(), before.end());
    compound_names::SortAsShown(m_compounds, m_language);
    for (long row = 0; row < GetItemCount(); ++row) {
        const bool isSelected = selected.contains(GetId(row));
        if (IsSelected(row) != isSelected)
            Select(row, isSelected);
    }
    // The same compounds in other rows are no news.
    m_told = GetSelectedIds();
}

std::vector<int> CompoundList::GetSelectedIds() const
{
    std::vector<int> ids;
    for (long row = GetFirstSelected(); row != wxNOT_FOUND; row = GetNextSelected(row))
        ids.push_back(GetId(row));
    return ids;
}

void CompoundList::QueueSelection(wxListEvent& event)
{
    event.Skip();
    // One click deselects some rows and selects others, each with an event of its own.
    if (m_queued)
        return;
    m_queued = true;
    CallAfter([this] {
        m_queued = false;
        std::vector<int> selected = GetSelectedIds();
        if (selected == m_told)
            return;
        m_told = std::move(selected);
        if (m_onSelection)
            m_onSelection();
    });
}

void CompoundList::Localize(const std::string&)
{
    for (std::size_t i = 0; i < kLabels.size(); ++i) {
        wxListItem item;
        item.SetText(i18n::Translated(kLabels[i]));
        SetColumn(static_cast<int>(i), item);
    }
    if (std::string language = i18n::CompoundLanguage(); language != m_language) {
        m_language = std::move(language);
        SortAgain();
    }
    Refresh();
}

wxString CompoundList::OnGetItemText(long row, long column) const
{
    if (row < 0 || static_cast<std::size_t>(row) >= m_compounds.size())
        return {};
    const DBObjects::Compound& compound = m_compounds[static_cast<std::size_t>(row)];
    switch (column) {
        case kName:
            return i18n::CompoundName(compound.name, compound.formula);
        case kFormula:
            return wxString::FromUTF8(compound.formula);
        default:
            return i18n::Translated(wxString::FromUTF8(compound.category));
    }
}
