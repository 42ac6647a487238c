// SPDX-License-Identifier: MIT
#pragma once

/// One row of a form: a label and a combo control whose drop-down is a list with columns, bound to one
/// detail.
///
/// Each item has a key, which is what the detail holds (as text, or as a number where the detail is one); the
/// combo control shows the first column of the chosen item. Texts of headings and cells are source texts and
/// shown translated. A column may have a unit: its cells are then numbers in that ISO unit, shown in the
/// displayed unit system with the unit in the heading. The user's choice (a click, Enter, or the arrow keys
/// of the closed control) is stored and told to the parent with the key as the event's text. A value that no
/// item has clears the selection.

#include "gui_base/input/combinations/labelled_row.h"
#include "projectbase/details/detail_data.h"

#include <wx/combo.h>
#include <wx/listbase.h>

#include <string>
#include <variant>
#include <vector>

class tvListViewComboPopup;

class GUI_BASE_EXPORT ComboCombination : public LabelledRow<wxComboCtrl>
{
public:
    /// Without a `sizer` the row makes a horizontal one, which the caller adds to its own. A null detail
    /// throws std::runtime_error.
    ComboCombination(wxWindow* parent, int id, const wxString& label, const wxString& suffix,
                     DetailData* detail, wxSizer* sizer = nullptr, const wxSize& size = wxDefaultSize);
    ~ComboCombination() override;

    /// Add a column and return its index; numbers are best aligned to the right. Items get an empty cell.
    long AppendColumn(const wxString& heading, wxListColumnFormat format = wxLIST_FORMAT_LEFT,
                      int width = wxLIST_AUTOSIZE);
    long InsertColumn(long column, const wxString& heading, wxListColumnFormat format = wxLIST_FORMAT_LEFT,
                      int width = wxLIST_AUTOSIZE);
    /// Gives a column its ISO unit (UTF-8); an empty one takes it away.
    void InsertUnit(long column, const std::string& isoUnit);
    /// Adds an item before `row` (or last) and returns its index. Without a `key` the label is the key.
    long InsertItem(long row, const wxString& label, const wxString& key = {});
    /// Set a cell. `row` and `column` that do not exist throw std::out_of_range, in the other calls too.
    void SetItem(long row, long column, const wxString& text);
    void SetItem(long row, long column, double isoValue);
    void DeleteAllItems();
    /// Makes the columns as wide as their headings and cells need.
    void AdjustColumnsWidth();
    /// Shows `row` as chosen (none for wxNOT_FOUND); neither stores nor tells it.
    void Select(long row);
    /// Selects the item whose key the detail holds.
    void SetToDetailValue();

    void TransferDetailToWindow() override { SetToDetailValue(); }

    wxComboCtrl* GetCombo() const { return GetControl(); }
    tvListViewComboPopup* GetList() const { return m_list; }
    long GetSelection() const { return m_selection; }
    long GetItemCount() const { return static_cast<long>(m_items.size()); }

protected:
    void DoLocalize(const std::string& unitSystem) override;

private:
    struct Column
    {
        wxString heading;
        std::string isoUnit;
    };
    using Cell = std::variant<wxString, double>;
    struct Item
    {
        wxString key;
        std::vector<Cell> cells;
    };

    wxString HeadingText(const Column& column) const;
    wxString CellText(const Item& item, std::size_t column) const;
    void ShowHeading(long column);
    void ShowCell(long row, long column);
    void ShowSelection();
    void OnChosen(wxCommandEvent& event);

    DetailData* m_detail;
    tvListViewComboPopup* m_list;
    std::string m_unitSystem;
    std::vector<Column> m_columns;
    std::vector<Item> m_items;
    long m_selection = wxNOT_FOUND;
};
