// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/keyed_choice.h"

#include "gui_base/input/controls/wheel.h"
#include "gui_base/input/events.h"
#include "gui_base/support/translation.h"

#include <algorithm>

namespace {

template <typename Items, typename Predicate>
int IndexIf(const Items& items, Predicate predicate)
{
    const auto found = std::find_if(items.begin(), items.end(), predicate);
    return found == items.end() ? wxNOT_FOUND : static_cast<int>(found - items.begin());
}

template <typename Items>
wxArrayString TranslatedLabels(const Items& items)
{
    wxArrayString labels;
    labels.reserve(items.size());
    for (const auto& [key, label] : items)
        labels.push_back(i18n::Translated(label));
    return labels;
}

}  // namespace

template <typename Key>
KeyedChoice<Key>::KeyedChoice(const Items& items, DetailData* detail, wxWindow* parent, int id,
                              const wxPoint& pos, const wxSize& size, long style,
                              const wxValidator& validator, const wxString& name)
    : wxChoice(parent, id, pos, size, TranslatedLabels(items), style, validator, name),
      m_items(items),
      m_shown(TranslatedLabels(items)),
      m_detail(detail)
{
    Bind(wxEVT_CHOICE, &KeyedChoice::OnChosen, this);
    Bind(wxEVT_MOUSEWHEEL, [this](wxMouseEvent& event) { wheel::ScrollParentUnlessFocused(*this, event); });
}

template <typename Key>
wxString KeyedChoice<Key>::DisplayText(const wxString& label) const
{
    return i18n::Translated(label);
}

template <typename Key>
void KeyedChoice<Key>::Set(const Items& items)
{
    const Item* selected = GetSelectedItem();
    const bool hadSelection = selected != nullptr;
    const Key key = hadSelection ? selected->first : Key();
    m_items = items;
    wxArrayString labels;
    labels.reserve(m_items.size());
    for (const Item& item : m_items)
        labels.push_back(DisplayText(item.second));
    if (labels != m_shown)
        wxChoice::Set(labels);
    m_shown = labels;
    if (hadSelection)
        SelectIndex(IndexOfKey(key));
}

template <typename Key>
void KeyedChoice<Key>::Localize(const std::string&)
{
    const int selection = GetSelection();
    bool replaced = false;
    for (unsigned i = 0; i < m_items.size(); ++i) {
        const wxString text = DisplayText(m_items[i].second);
        // Asking the toolkit for the text of an item costs more than all the rest, with a list of countries.
        if (m_shown[i] == text)
            continue;
        SetString(i, text);
        m_shown[i] = text;
        replaced = true;
    }
    // Replacing the text of the selected item deselects it.
    if (replaced)
        SetSelection(selection);
}

template <typename Key>
const typename KeyedChoice<Key>::Item* KeyedChoice<Key>::GetSelectedItem() const
{
    const int selection = GetSelection();
    if (selection < 0 || static_cast<std::size_t>(selection) >= m_items.size())
        return nullptr;
    return &m_items[static_cast<std::size_t>(selection)];
}

template <typename Key>
wxString KeyedChoice<Key>::GetStringUnlocalized() const
{
    const Item* item = GetSelectedItem();
    return item != nullptr ? item->second : wxString();
}

template <typename Key>
void KeyedChoice<Key>::SelectIndex(int index)
{
    if (GetSelection() != index)
        SetSelection(index);
}

template <typename Key>
int KeyedChoice<Key>::IndexOfKey(const Key& key) const
{
    return IndexIf(m_items, [&key](const Item& item) { return item.first == key; });
}

template <typename Key>
int KeyedChoice<Key>::IndexOfLabel(const wxString& label) const
{
    return IndexIf(m_items, [&label](const Item& item) { return item.second == label; });
}

template <typename Key>
void KeyedChoice<Key>::OnChosen(wxCommandEvent& event)
{
    event.Skip();
    const Item* item = GetSelectedItem();
    if (item == nullptr)
        return;
    wxCommandEvent changed(tvCHANGE_EVENT, GetId());
    changed.SetEventObject(this);
    changed.SetString(StoreChoice(*item));
    ProcessWindowEvent(changed);
}

template class KeyedChoice<long>;
template class KeyedChoice<wxString>;
