// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_choice.h"

#include "gui_base/input/controls/wheel.h"
#include "gui_base/input/events.h"
#include "gui_base/support/translation.h"

#include <algorithm>

namespace {

wxArrayString TranslatedLabels(const tvChoice::Items& items, bool translate)
{
    wxArrayString labels;
    labels.reserve(items.size());
    for (const auto& [key, label] : items)
        labels.push_back(translate ? i18n::Translated(label) : label);
    return labels;
}

tvChoice::Items Numbered(const std::vector<wxString>& labels)
{
    tvChoice::Items items;
    for (const wxString& label : labels)
        items.emplace_back(static_cast<long>(items.size()), label);
    return items;
}

int IndexOfLabel(const tvChoice::Items& items, const wxString& label)
{
    const auto found =
        std::find_if(items.begin(), items.end(), [&label](const auto& item) { return item.second == label; });
    return found == items.end() ? wxNOT_FOUND : static_cast<int>(found - items.begin());
}

int IndexOfKey(const tvChoice::Items& items, long key)
{
    const auto found =
        std::find_if(items.begin(), items.end(), [key](const auto& item) { return item.first == key; });
    return found == items.end() ? wxNOT_FOUND : static_cast<int>(found - items.begin());
}

}  // namespace

tvChoice::tvChoice(const Items& items, DetailData* detail, wxWindow* parent, int id, const wxPoint& pos,
                   const wxSize& size, long style, const wxValidator& validator, const wxString& name)
    : wxChoice(parent, id, pos, size, TranslatedLabels(items, true), style, validator, name),
      m_items(items),
      m_detail(detail)
{
    tvChoice::TransferDetailToWindow();
    Bind(wxEVT_CHOICE, &tvChoice::OnChosen, this);
    Bind(wxEVT_MOUSEWHEEL, [this](wxMouseEvent& event) { wheel::ScrollParentUnlessFocused(*this, event); });
}

void tvChoice::Set(const Items& items)
{
    m_items = items;
    wxArrayString labels;
    for (const auto& [key, label] : m_items)
        labels.push_back(DisplayText(label));
    wxChoice::Set(labels);
}

wxString tvChoice::DisplayText(const wxString& label) const
{
    return i18n::Translated(label);
}

void tvChoice::Localize(const std::string&)
{
    const int selection = GetSelection();
    bool replaced = false;
    for (unsigned i = 0; i < m_items.size(); ++i) {
        const wxString text = DisplayText(m_items[i].second);
        if (GetString(i) == text)
            continue;
        SetString(i, text);
        replaced = true;
    }
    // Replacing the text of the selected item deselects it.
    if (replaced)
        SetSelection(selection);
}

tvChoice::Item tvChoice::GetSelectedData() const
{
    const int selection = GetSelection();
    if (selection < 0 || static_cast<std::size_t>(selection) >= m_items.size())
        return {wxNOT_FOUND, wxString()};
    return m_items[static_cast<std::size_t>(selection)];
}

long tvChoice::GetID() const
{
    return GetSelectedData().first;
}

void tvChoice::SelectIndex(int index)
{
    if (GetSelection() != index)
        SetSelection(index);
}

void tvChoice::SetStringSelectionFromUnlocalized(const wxString& label)
{
    SelectIndex(IndexOfLabel(m_items, label));
}

void tvChoice::SetDefault(long key)
{
    if (const int index = IndexOfKey(m_items, key); index != wxNOT_FOUND)
        SelectIndex(index);
}

void tvChoice::TransferDetailToWindow()
{
    if (m_detail == nullptr)
        return;
    if (m_detail->GetType() == DetailType::String)
        SelectIndex(IndexOfLabel(m_items, m_detail->GetStringValue()));
    else
        SelectIndex(IndexOfKey(m_items, m_detail->GetLongValue()));
}

void tvChoice::OnChosen(wxCommandEvent& event)
{
    event.Skip();
    const auto [key, label] = GetSelectedData();
    if (m_detail != nullptr) {
        if (m_detail->GetType() == DetailType::String)
            m_detail->SetValue(label);
        else
            m_detail->SetValue(key);
    }
    wxCommandEvent changed(tvCHANGE_EVENT, GetId());
    changed.SetEventObject(this);
    changed.SetString(label);
    ProcessWindowEvent(changed);
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

bool tvUnitChoice::Offers(const wxString& unit) const
{
    const int index = IndexOfLabel(GetItems(), unit);
    return index != wxNOT_FOUND && static_cast<std::size_t>(index) < m_offered;
}

void tvUnitChoice::TransferDetailToWindow()
{
    const wxString unit = GetDetail() != nullptr ? GetDetail()->GetStringValue() : wxString();
    const bool hasExtra = GetItems().size() > m_offered;
    const bool wantsExtra = !unit.empty() && !Offers(unit);
    const bool extraFits = hasExtra && wantsExtra && GetItems().back().second == unit;
    if ((hasExtra || wantsExtra) && !extraFits) {
        Items items(GetItems().begin(), GetItems().begin() + static_cast<std::ptrdiff_t>(m_offered));
        if (wantsExtra)
            items.emplace_back(static_cast<long>(m_offered), unit);
        Set(items);
    }
    tvChoice::TransferDetailToWindow();
}
