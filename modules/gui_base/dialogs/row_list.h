// SPDX-License-Identifier: MIT
#pragma once

/// A list of rows of texts that a search narrows down. Only the rows that are seen are drawn. One row can be
/// selected; Enter and a double click send wxEVT_LIST_ITEM_ACTIVATED.

#include "gui_base/gui_base_export.h"

#include <wx/listctrl.h>

#include <cstddef>
#include <optional>
#include <vector>

class GUI_BASE_EXPORT RowList : public wxListView
{
public:
    struct Column
    {
        wxString title;  ///< as it is shown
        int width = 0;   ///< in pixels of a usual display
        wxListColumnFormat align = wxLIST_FORMAT_LEFT;
    };
    using Row = std::vector<wxString>;  ///< a text for each column

    /// `growing` is the column that takes the width that the others leave.
    RowList(wxWindow* parent, const std::vector<Column>& columns, int growing);

    /// Shows other rows; the search stays. The row that was selected stays so, or one with its first text.
    void SetRows(std::vector<Row> rows);
    /// Leaves the rows that hold every word of the text in any column, whatever the case of its letters. A
    /// row whose first text is the search is selected then; else the selected one stays.
    void SetSearch(const wxString& text);
    /// Which of the rows of SetRows is selected.
    std::optional<std::size_t> GetSelectedRow() const;
    /// Selects a row of SetRows and scrolls to it; nothing where the search hides it.
    void SelectRow(std::size_t row);
    /// What is shown in a line of the list.
    const Row& GetShownRow(long line) const { return m_rows[m_shown.at(static_cast<std::size_t>(line))]; }

protected:
    wxString OnGetItemText(long line, long column) const override;

private:
    void Show(std::optional<std::size_t> selected);
    /// Of those that are shown: the one whose first text is the search, else the one that was selected, else
    /// the first one.
    std::size_t BestRow(std::optional<std::size_t> selected) const;
    void FitColumns();

    std::vector<Column> m_columns;
    int m_growing;
    std::vector<Row> m_rows;
    std::vector<wxString> m_words;
    std::vector<std::size_t> m_shown;
};
