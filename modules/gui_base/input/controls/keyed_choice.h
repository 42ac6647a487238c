// SPDX-License-Identifier: MIT
#pragma once

/// What the choices of keyed, translated items share: see tvChoice (numeric keys) and tvChoiceAdv (text
/// keys).
///
/// Choosing an item stores it in the detail and then processes a tvCHANGE_EVENT on the choice, which climbs
/// to the panel. The wheel over a choice without the focus scrolls the panel instead of the choice.

#include "gui_base/gui_base_export.h"
#include "gui_base/input/binding/detail_container_window.h"
#include "projectbase/details/detail_data.h"

#include <wx/choice.h>

#include <string>
#include <utility>
#include <vector>

template <typename Key>
class KeyedChoice : public wxChoice, public DetailContainerWindow
{
public:
    /// Key and source label.
    using Item = std::pair<Key, wxString>;
    using Items = std::vector<Item>;

    using wxChoice::Set;
    /// Replaces the items and keeps the selected key where the new items have it.
    void Set(const Items& items);
    void Localize(const std::string& unitSystem);
    /// Source label of the selected item; empty without a selection.
    wxString GetStringUnlocalized() const;

    void UpdateUnit(const std::string& unitSystem) override { Localize(unitSystem); }

    DetailData* GetDetail() const { return m_detail; }
    const Items& GetItems() const { return m_items; }

protected:
    KeyedChoice(const Items& items, DetailData* detail, wxWindow* parent, int id, const wxPoint& pos,
                const wxSize& size, long style, const wxValidator& validator, const wxString& name);

    /// Text that is shown for a source label.
    virtual wxString DisplayText(const wxString& label) const;
    /// Stores the chosen item in the detail, where there is one; returns the text of the change event.
    virtual wxString StoreChoice(const Item& item) = 0;

    /// The selected item, or null.
    const Item* GetSelectedItem() const;
    void SelectIndex(int index);
    int IndexOfKey(const Key& key) const;
    int IndexOfLabel(const wxString& label) const;

private:
    void OnChosen(wxCommandEvent& event);

    Items m_items;
    wxArrayString m_shown;  ///< the texts of the items in the toolkit
    DetailData* m_detail;
};

extern template class GUI_BASE_EXPORT KeyedChoice<long>;
extern template class GUI_BASE_EXPORT KeyedChoice<wxString>;
