// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/feed/compound_element_listctrl.h"

#include "gui_base/input/validation/numeric_validator.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <wx/translation.h>

#include <array>
#include <cmath>
#include <stdexcept>

namespace {

struct ColumnHeader
{
    const char* title;
    bool isNumber;
};
constexpr std::array<ColumnHeader, CompoundElementListCtrl::ColumnCount> kColumns{{
    {wxTRANSLATE("Element"), false},
    {wxTRANSLATE("Name"), false},
    {wxTRANSLATE("Count"), true},
    {wxTRANSLATE("Atomic mass"), true},
    {wxTRANSLATE("Class"), false},
    {wxTRANSLATE("Atomic number"), true},
    {wxTRANSLATE("Electron config"), false},
    {wxTRANSLATE("Group 1"), true},
    {wxTRANSLATE("Group 2"), false},
    {wxTRANSLATE("Period"), true},
    {wxTRANSLATE("State"), false},
    {wxTRANSLATE("E-1 Oxidation numbers"), false},
    {wxTRANSLATE("Oxidation number"), true},
}};

/// Empty for a number that an unknown element does not have.
wxString Positive(int number)
{
    return number > 0 ? wxString::Format("%d", number) : wxString();
}

wxString Mass(double gramsPerMol)
{
    const numbertext::Style style{.format = TvTextCtrlFormat::General, .precision = 7, .trimZeros = true};
    return wxString::FromUTF8(numbertext::Format(gramsPerMol, style, NumericValidator::LocaleSeparators()));
}

/// Data of the elements are stored in English.
wxString Shown(const std::string& english)
{
    return english.empty() ? wxString() : i18n::Translated(wxString::FromUTF8(english));
}

}  // namespace

CompoundElementListCtrl::CompoundElementListCtrl(wxWindow* parent, int id, const wxPoint& pos,
                                                 const wxSize& size, long style)
    : wxListCtrl(parent, id, pos, size, style | wxLC_REPORT | wxLC_VIRTUAL)
{
    for (const ColumnHeader& column : kColumns)
        AppendColumn(i18n::Translated(column.title),
                     column.isNumber ? wxLIST_FORMAT_RIGHT : wxLIST_FORMAT_LEFT);
    accessibility::SetName(*this, i18n::Translated("Elements"));
    ShowRows();
}

void CompoundElementListCtrl::ClearList()
{
    m_elements.clear();
    ShowRows();
}

void CompoundElementListCtrl::InsertRow(const CompoundElement& element)
{
    m_elements.push_back(element);
    ShowRows();
}

void CompoundElementListCtrl::InsertRows(const std::vector<CompoundElement>& elements)
{
    m_elements.insert(m_elements.end(), elements.begin(), elements.end());
    ShowRows();
}

const CompoundElement& CompoundElementListCtrl::GetItem(long row) const
{
    if (row < 0)
        throw std::out_of_range("CompoundElementListCtrl::GetItem: no such row");
    return m_elements.at(static_cast<std::size_t>(row));
}

wxString CompoundElementListCtrl::OnGetItemText(long row, long column) const
{
    if (row < 0 || row >= static_cast<long>(m_elements.size()))
        return {};
    const CompoundElement& element = GetItem(row);
    switch (column) {
        case Element:
            return wxString::FromUTF8(element.symbol);
        case Name:
            return Shown(element.name);
        case Count:
            return wxString::Format("%d", element.count);
        case AtomicMass:
            return Mass(element.atomicMass);
        case Class:
            return Shown(element.elementClass);
        case AtomicNumber:
            return Positive(element.atomicNumber);
        case ElectronConfig:
            return wxString::FromUTF8(element.electronConfiguration);
        case Group1:
            return wxString::FromUTF8(element.group1);
        case Group2:
            return wxString::FromUTF8(element.group2);
        case Period:
            return Positive(element.period);
        case State:
            return Shown(element.state);
        case OxidationNumbers:
            return wxString::FromUTF8(element.oxidationNumbers);
        case OxidationNumber:
            return wxString::FromUTF8(element.oxidationNumber);
        default:
            return {};
    }
}

void CompoundElementListCtrl::ShowRows()
{
    SetItemCount(static_cast<long>(m_elements.size()));
    // As wide as the header and the widest text: the list is virtual and does not measure its rows.
    for (int column = 0; column < ColumnCount; ++column) {
        int width = GetTextExtent(i18n::Translated(kColumns[static_cast<std::size_t>(column)].title)).x;
        for (long row = 0; row < static_cast<long>(m_elements.size()); ++row)
            width = std::max(width, GetTextExtent(OnGetItemText(row, column)).x);
        SetColumnWidth(column, width + FromDIP(16));
    }
    Refresh();
}
