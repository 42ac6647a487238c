// SPDX-License-Identifier: MIT
#include "gui_base/dialogs/row_list.h"

#include "gui_base/support/list_column.h"

#include <wx/tokenzr.h>

#include <algorithm>

RowList::RowList(wxWindow* parent, const std::vector<Column>& columns, int growing)
    : wxListView(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                 wxLC_REPORT | wxLC_VIRTUAL | wxLC_SINGLE_SEL),
      m_columns(columns),
      m_growing(growing)
{
    for (const auto& [title, width, align] : m_columns)
        list_column::Append(*this, title, width, align);
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        FitColumns();
        event.Skip();
    });
}

void RowList::SetRows(std::vector<Row> rows)
{
    const auto former = GetSelectedRow();
    const Row selected = former ? m_rows[*former] : Row();
    m_rows = std::move(rows);
    auto same = std::ranges::find(m_rows, selected);
    if (same == m_rows.end() && former)
        same = std::ranges::find(m_rows, selected.front(), [](const Row& row) { return row.front(); });
    Show(same != m_rows.end() ? std::optional(static_cast<std::size_t>(same - m_rows.begin()))
                              : std::nullopt);
}

void RowList::SetSearch(const wxString& text)
{
    const auto selected = GetSelectedRow();
    m_words.clear();
    wxStringTokenizer words(text.Lower(), " \t", wxTOKEN_STRTOK);
    while (words.HasMoreTokens())
        m_words.push_back(words.GetNextToken());
    Show(selected);
}

std::optional<std::size_t> RowList::GetSelectedRow() const
{
    const long line = GetFirstSelected();
    if (line < 0 || static_cast<std::size_t>(line) >= m_shown.size())
        return std::nullopt;
    return m_shown[static_cast<std::size_t>(line)];
}

void RowList::SelectRow(std::size_t row)
{
    const auto found = std::ranges::lower_bound(m_shown, row);
    if (found == m_shown.end() || *found != row)
        return;
    const long line = static_cast<long>(found - m_shown.begin());
    Select(line);
    Focus(line);
}

void RowList::Show(std::optional<std::size_t> selected)
{
    for (long line = GetFirstSelected(); line != wxNOT_FOUND; line = GetFirstSelected())
        Select(line, false);
    const auto holds = [](const Row& row, const wxString& word) {
        return std::ranges::any_of(row,
                                   [&word](const wxString& text) { return text.Lower().Contains(word); });
    };
    m_shown.clear();
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        if (std::ranges::all_of(m_words, [&](const wxString& word) { return holds(m_rows[i], word); }))
            m_shown.push_back(i);
    }
    SetItemCount(static_cast<long>(m_shown.size()));
    if (!m_shown.empty()) {
        EnsureVisible(0);
        SelectRow(BestRow(selected));
    }
    FitColumns();
    Refresh();
}

std::size_t RowList::BestRow(std::optional<std::size_t> selected) const
{
    const auto isMeant = [this](std::size_t row) {
        return m_words.size() == 1 && m_rows[row].front().IsSameAs(m_words.front(), false);
    };
    const auto meant = std::ranges::find_if(m_shown, isMeant);
    if (meant != m_shown.end())
        return *meant;
    return selected && std::ranges::binary_search(m_shown, *selected) ? *selected : m_shown.front();
}

void RowList::FitColumns()
{
    int width = GetClientSize().x;
    for (int column = 0; column < GetColumnCount(); ++column)
        width -= column == m_growing ? 0 : GetColumnWidth(column);
    SetColumnWidth(m_growing, std::max(width, FromDIP(m_columns[static_cast<std::size_t>(m_growing)].width)));
}

wxString RowList::OnGetItemText(long line, long column) const
{
    if (line < 0 || static_cast<std::size_t>(line) >= m_shown.size())
        return {};
    return GetShownRow(line).at(static_cast<std::size_t>(column));
}
