// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_choice.h"

#include "core/ion_units.h"

#include <algorithm>

namespace {

tvChoice::Items Numbered(const std::vector<wxString>& labels)
{
    tvChoice::Items items;
    for (const wxString& label : labels)
        items.emplace_back(static_cast<long>(items.size()), label);
    return items;
}

}  // namespace

tvChoice::tvChoice(const Items& items, DetailData* detail, wxWindow* parent, int id, const wxPoint& pos,
                   const wxSize& size, long style, const wxValidator& validator, const wxString& name)
    : KeyedChoice(items, detail, parent, id, pos, size, style, validator, name)
{
    tvChoice::TransferDetailToWindow();
}

tvChoice::Item tvChoice::GetSelectedData() const
{
    const Item* item = GetSelectedItem();
    return item != nullptr ? *item : Item(wxNOT_FOUND, wxString());
}

void tvChoice::SetDefault(long key)
{
    if (const int index = IndexOfKey(key); index != wxNOT_FOUND)
        SelectIndex(index);
}

void tvChoice::TransferDetailToWindow()
{
    DetailData* detail = GetDetail();
    if (detail == nullptr)
        return;
    if (detail->GetType() == DetailType::String)
        SelectIndex(IndexOfLabel(detail->GetStringValue()));
    else
        SelectIndex(IndexOfKey(detail->GetLongValue()));
}

wxString tvChoice::StoreChoice(const Item& item)
{
    if (DetailData* detail = GetDetail()) {
        if (detail->GetType() == DetailType::String)
            detail->SetValue(item.second);
        else
            detail->SetValue(item.first);
    }
    return item.second;
}

tvUnitChoice::tvUnitChoice(const Items& units, DetailData* unitDetail, wxWindow* parent, int id,
                           const wxPoint& pos, const wxSize& size, long style, const wxString& name)
    : tvChoice(units, unitDetail, parent, id, pos, size, style, wxDefaultValidator, name),
      m_offered(units.size())
{
    Localize("iso");
    tvUnitChoice::TransferDetailToWindow();
}

tvUnitChoice::tvUnitChoice(const std::vector<wxString>& units, DetailData* unitDetail, wxWindow* parent,
                           int id, const wxPoint& pos, const wxSize& size, long style, const wxString& name)
    : tvUnitChoice(Numbered(units), unitDetail, parent, id, pos, size, style, name)
{}

wxString tvUnitChoice::DisplayText(const wxString& label) const
{
    const bool isConcentration = ions::KindOf(label.utf8_string()) != ions::UnitKind::None;
    return m_translates && !isConcentration ? tvChoice::DisplayText(label) : label;
}

void tvUnitChoice::TranslateUnits()
{
    m_translates = true;
    Localize({});
}

void tvUnitChoice::SetOffered(const Items& units)
{
    m_offered = units.size();
    Set(units);
    TransferDetailToWindow();
}

bool tvUnitChoice::Offers(const wxString& unit) const
{
    const int index = IndexOfLabel(unit);
    return index != wxNOT_FOUND && static_cast<std::size_t>(index) < m_offered;
}

void tvUnitChoice::TransferDetailToWindow()
{
    // A detail of another type holds the key of a unit that is offered.
    const bool isText = GetDetail() != nullptr && GetDetail()->GetType() == DetailType::String;
    const wxString unit = isText ? GetDetail()->GetStringValue() : wxString();
    const bool hasExtra = GetItems().size() > m_offered;
    const bool wantsExtra = !unit.empty() && !Offers(unit);
    const bool extraFits = hasExtra && wantsExtra && GetItems().back().second == unit;
    if ((hasExtra || wantsExtra) && !extraFits) {
        Items items(GetItems().begin(), GetItems().begin() + static_cast<std::ptrdiff_t>(m_offered));
        long key = 0;
        for (const Item& item : items)
            key = std::max(key, item.first + 1);
        if (wantsExtra)
            items.emplace_back(key, unit);
        Set(items);
    }
    tvChoice::TransferDetailToWindow();
}
