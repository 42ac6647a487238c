// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"
#include "gui_base/input/binding/detail_container_window.h"
#include "projectbase/details/detail_data.h"

#include <wx/choice.h>

#include <string>
#include <utility>
#include <vector>

/// A choice of translated items with text keys, bound to a text detail that holds the key of the chosen item.
/// Choosing an item stores its key and then processes a tvCHANGE_EVENT with that key as its text on the
/// choice, which climbs to the panel. A key that no item has clears the selection. The wheel over a choice
/// without the focus scrolls the panel instead of the choice.
class GUI_BASE_EXPORT tvChoiceAdv : public wxChoice, public DetailContainerWindow
{
public:
    /// Key and source label.
    using Item = std::pair<wxString, wxString>;
    using Items = std::vector<Item>;

    /// `detail` is not owned and may be null.
    tvChoiceAdv(const Items& items, DetailData* detail, wxWindow* parent, int id,
                const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize, long style = 0,
                const wxValidator& validator = wxDefaultValidator,
                const wxString& name = wxASCII_STR(wxChoiceNameStr));

    using wxChoice::Set;
    /// Replaces the items and keeps the selected key where the new items have it.
    void Set(const Items& items);
    void Localize(const std::string& unitSystem);

    /// Key of the selected item; empty without a selection.
    wxString GetKey() const;
    wxString GetStringUnlocalized() const;
    /// Selects the first item with that key; a key that no item has clears the selection.
    void SelectKey(const wxString& key);

    void TransferDetailToWindow() override;
    void UpdateUnit(const std::string& unitSystem) override { Localize(unitSystem); }

    const Items& GetItems() const { return m_items; }

private:
    const Item* GetSelectedItem() const;
    void OnChosen(wxCommandEvent& event);
    void OnWheel(wxMouseEvent& event);

    Items m_items;
    DetailData* m_detail;
};
