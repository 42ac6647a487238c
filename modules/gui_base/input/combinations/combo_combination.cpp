// SPDX-License-Identifier: MIT
#include "gui_base/input/combinations/combo_combination.h"

#include "gui_base/input/controls/tv_listview_combopopup.h"
#include "gui_base/input/validation/numeric_validator.h"
#include "projectbase/units/unit_system_manager.h"

#include <wx/renderer.h>
#include <wx/settings.h>

#include <algorithm>
#include <stdexcept>

namespace {

constexpr int kCellDigits = 4;

std::size_t Index(long index)
{
    return static_cast<std::size_t>(index);
}

/// Framed like the fields around it: the toolkit draws a frame of its own with sharp corners.
class FramedCombo : public wxComboCtrl
{
public:
    FramedCombo(wxWindow* parent, int id, const wxSize& size)
        : wxComboCtrl(parent, id, wxString(), wxDefaultPosition, size, wxCB_READONLY | wxBORDER_NONE)
    {}

protected:
    void PrepareBackground(wxDC& dc, const wxRect& rect, int flags) const override
    {
        if ((flags & wxCONTROL_ISSUBMENU) != 0)
            return wxComboCtrl::PrepareBackground(dc, rect, flags);
        int state = 0;
        if (!IsThisEnabled())
            state |= wxCONTROL_DISABLED;
        if (ShouldDrawFocus())
            state |= wxCONTROL_FOCUSED;
        const wxRect field(0, 0, m_btnArea.x, GetClientSize().y);
        wxRendererNative::Get().DrawTextCtrl(const_cast<FramedCombo*>(this), dc, field, state);
        dc.SetTextForeground(
            wxSystemSettings::GetColour(IsThisEnabled() ? wxSYS_COLOUR_WINDOWTEXT : wxSYS_COLOUR_GRAYTEXT));
    }
};

/// Before anything is made. Returns `parent`.
wxWindow* RequireDetail(const DetailData* detail, wxWindow* parent)
{
    if (detail == nullptr)
        throw std::runtime_error("ComboCombination::ComboCombination: no detail");
    return parent;
}

}  // namespace

ComboCombination::ComboCombination(wxWindow* parent, int id, const wxString& label, const wxString& suffix,
                                   DetailData* detail, wxSizer* sizer, const wxSize& size)
    : LabelledRow(RequireDetail(detail, parent), label, suffix, sizer),
      m_detail(detail),
      m_list(new tvListViewComboPopup),
      m_unitSystem("iso")
{
    auto* combo = new FramedCombo(parent, id, size);
    combo->SetPopupControl(m_list);
    // The toolkit takes the drop-down for a focusable child, which would keep Tab from the control itself.
    combo->SetCanFocus(true);
    AddControl(combo);
    combo->Bind(wxEVT_COMBOBOX, &ComboCombination::OnChosen, this);
}

ComboCombination::~ComboCombination()
{
    if (wxComboCtrl* combo = GetCombo())
        combo->Unbind(wxEVT_COMBOBOX, &ComboCombination::OnChosen, this);
}

long ComboCombination::AppendColumn(const wxString& heading, wxListColumnFormat format, int width)
{
    return InsertColumn(static_cast<long>(m_columns.size()), heading, format, width);
}

long ComboCombination::InsertColumn(long column, const wxString& heading, wxListColumnFormat format,
                                    int width)
{
    const long last = static_cast<long>(m_columns.size());
    if (column < 0 || column > last)
        column = last;
    m_columns.insert(m_columns.begin() + column, {heading, {}});
    for (Item& item : m_items)
        item.cells.insert(item.cells.begin() + column, Cell());
    m_list->InsertColumn(column, HeadingText(m_columns[Index(column)]), format, width);
    return column;
}

void ComboCombination::InsertUnit(long column, const std::string& isoUnit)
{
    m_columns.at(Index(column)).isoUnit = isoUnit;
    ShowHeading(column);
    for (long row = 0; row < GetItemCount(); ++row)
        ShowCell(row, column);
}

long ComboCombination::InsertItem(long row, const wxString& label, const wxString& key)
{
    if (row < 0 || row > GetItemCount())
        row = GetItemCount();
    Item item{key, std::vector<Cell>(std::max<std::size_t>(m_columns.size(), 1))};
    item.cells.front() = label;
    m_items.insert(m_items.begin() + row, std::move(item));
    m_list->InsertItem(row, CellText(m_items[Index(row)], 0));
    if (m_selection >= row)
        ++m_selection;
    return row;
}

void ComboCombination::SetItem(long row, long column, const wxString& text)
{
    m_items.at(Index(row)).cells.at(Index(column)) = text;
    ShowCell(row, column);
}

void ComboCombination::SetItem(long row, long column, double isoValue)
{
    m_items.at(Index(row)).cells.at(Index(column)) = isoValue;
    ShowCell(row, column);
}

void ComboCombination::DeleteAllItems()
{
    m_items.clear();
    m_list->DeleteAllItems();
    Select(wxNOT_FOUND);
}

void ComboCombination::AdjustColumnsWidth()
{
    for (int column = 0; column < m_list->GetColumnCount(); ++column) {
        m_list->SetColumnWidth(column, wxLIST_AUTOSIZE_USEHEADER);
        const int forHeading = m_list->GetColumnWidth(column);
        m_list->SetColumnWidth(column, wxLIST_AUTOSIZE);
        m_list->SetColumnWidth(column, std::max(forHeading, m_list->GetColumnWidth(column)));
    }
}

void ComboCombination::Select(long row)
{
    if (row != wxNOT_FOUND)
        m_items.at(Index(row));
    m_selection = row;
    ShowSelection();
}

void ComboCombination::SetToDetailValue()
{
    const wxString key =
        m_detail->GetType() == DetailType::String ? m_detail->GetStringValue() : m_detail->GetValueAsString();
    const auto found =
        std::find_if(m_items.begin(), m_items.end(), [&key](const Item& item) { return item.key == key; });
    Select(found == m_items.end() ? wxNOT_FOUND : static_cast<long>(found - m_items.begin()));
}

void ComboCombination::DoLocalize(const std::string& unitSystem)
{
    m_unitSystem = unitSystem;
    for (long column = 0; column < static_cast<long>(m_columns.size()); ++column) {
        ShowHeading(column);
        for (long row = 0; row < GetItemCount(); ++row)
            ShowCell(row, column);
    }
    ShowSelection();
}

wxString ComboCombination::HeadingText(const Column& column) const
{
    wxString text = i18n::Translated(column.heading);
    if (!column.isoUnit.empty())
        text +=
            " [" + wxString::FromUTF8(UnitSystemManager::GetUnit(column.isoUnit, m_unitSystem, true)) + "]";
    return text;
}

wxString ComboCombination::CellText(const Item& item, std::size_t column) const
{
    if (const wxString* text = std::get_if<wxString>(&item.cells[column]))
        return i18n::Translated(*text);
    const double value =
        UnitSystemManager::FromISO(column < m_columns.size() ? m_columns[column].isoUnit : std::string(),
                                   m_unitSystem, std::get<double>(item.cells[column]));
    const numbertext::Style style{.precision = kCellDigits, .trimZeros = true};
    return wxString::FromUTF8(numbertext::Format(value, style, NumericValidator::LocaleSeparators()));
}

void ComboCombination::ShowHeading(long column)
{
    wxListItem heading;
    heading.SetMask(wxLIST_MASK_TEXT);
    heading.SetText(HeadingText(m_columns[Index(column)]));
    m_list->SetColumn(static_cast<int>(column), heading);
}

void ComboCombination::ShowCell(long row, long column)
{
    const wxString text = CellText(m_items[Index(row)], Index(column));
    if (m_list->GetItemText(row, static_cast<int>(column)) != text)
        m_list->SetItem(row, static_cast<int>(column), text);
}

void ComboCombination::ShowSelection()
{
    m_list->SelectRow(static_cast<int>(m_selection));
    if (wxComboCtrl* combo = GetCombo())
        combo->SetText(m_selection == wxNOT_FOUND ? wxString() : CellText(m_items[Index(m_selection)], 0));
}

void ComboCombination::OnChosen(wxCommandEvent& event)
{
    m_selection = event.GetInt();
    const wxString key = m_items.at(Index(m_selection)).key;
    const DetailData::Value before = m_detail->GetStoredValue();
    m_detail->SetValueFromString(key);
    if (!SameDetailValue(before, m_detail->GetStoredValue()))
        SendChange(key);
}
