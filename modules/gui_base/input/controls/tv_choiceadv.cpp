// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_choiceadv.h"

#include "gui_base/input/events.h"
#include "gui_base/support/translation.h"

#include <algorithm>

namespace {

wxArrayString Labels(const tvChoiceAdv::Items& items)
{
    wxArrayString labels;
    labels.reserve(items.size());
    for (const auto& [key, label] : items)
        labels.push_back(i18n::Translated(label));
    return labels;
}

}  // namespace

tvChoiceAdv::tvChoiceAdv(const Items& items, DetailData* detail, wxWindow* parent, int id, const wxPoint& pos,
                         const wxSize& size, long style, const wxValidator& validator, const wxString& name)
    : wxChoice(parent, id, pos, size, Labels(items), style, validator, name), m_items(items), m_detail(detail)
{
    tvChoiceAdv::TransferDetailToWindow();
    Bind(wxEVT_CHOICE, &tvChoiceAdv::OnChosen, this);
    Bind(wxEVT_MOUSEWHEEL, &tvChoiceAdv::OnWheel, this);
}

const tvChoiceAdv::Item* tvChoiceAdv::GetSelectedItem() const
{
    const int selection = GetSelection();
    if (selection < 0 || static_cast<std::size_t>(selection) >= m_items.size())
        return nullptr;
    return &m_items[static_cast<std::size_t>(selection)];
}

void tvChoiceAdv::Set(const Items& items)
{
    const Item* selected = GetSelectedItem();
    const bool hadSelection = selected != nullptr;
    const wxString key = hadSelection ? selected->first : wxString();
    m_items = items;
    wxChoice::Set(Labels(m_items));
    if (hadSelection)
        SelectKey(key);
}

void tvChoiceAdv::Localize(const std::string&)
{
    const int selection = GetSelection();
    bool replaced = false;
    for (unsigned i = 0; i < m_items.size(); ++i) {
        const wxString text = i18n::Translated(m_items[i].second);
        if (GetString(i) == text)
            continue;
        SetString(i, text);
        replaced = true;
    }
    // Replacing the text of the selected item deselects it.
    if (replaced)
        SetSelection(selection);
}

wxString tvChoiceAdv::GetKey() const
{
    const Item* item = GetSelectedItem();
    return item != nullptr ? item->first : wxString();
}

wxString tvChoiceAdv::GetStringUnlocalized() const
{
    const Item* item = GetSelectedItem();
    return item != nullptr ? item->second : wxString();
}

void tvChoiceAdv::SelectKey(const wxString& key)
{
    const auto found =
        std::find_if(m_items.begin(), m_items.end(), [&key](const Item& item) { return item.first == key; });
    const int index = found == m_items.end() ? wxNOT_FOUND : static_cast<int>(found - m_items.begin());
    if (GetSelection() != index)
        SetSelection(index);
}

void tvChoiceAdv::TransferDetailToWindow()
{
    if (m_detail != nullptr)
        SelectKey(m_detail->GetStringValue());
}

void tvChoiceAdv::OnChosen(wxCommandEvent& event)
{
    event.Skip();
    const wxString key = GetKey();
    if (m_detail != nullptr)
        m_detail->SetValue(key);
    wxCommandEvent changed(tvCHANGE_EVENT, GetId());
    changed.SetEventObject(this);
    changed.SetString(key);
    ProcessWindowEvent(changed);
}

void tvChoiceAdv::OnWheel(wxMouseEvent& event)
{
    if (HasFocus() || GetParent() == nullptr) {
        event.Skip();
        return;
    }
    wxMouseEvent forwarded(event);
    forwarded.SetEventObject(GetParent());
    GetParent()->GetEventHandler()->ProcessEvent(forwarded);
}
