// SPDX-License-Identifier: MIT
#pragma once

/// A choice of keyed, translated items bound to one detail.
///
/// A detail of text type holds the source-language label of the chosen item, any other the item's key.
/// Choosing an item stores it and then processes a tvCHANGE_EVENT on the choice, which climbs to the panel. A
/// value that no item has clears the selection. The wheel over a choice without the focus scrolls the panel
/// instead of the choice.

#include "gui_base/gui_base_export.h"
#include "gui_base/input/binding/detail_container_window.h"
#include "projectbase/details/detail_data.h"

#include <wx/choice.h>

#include <string>
#include <utility>
#include <vector>

class GUI_BASE_EXPORT tvChoice : public wxChoice, public DetailContainerWindow
{
public:
    using Item = std::pair<long, wxString>;
    using Items = std::vector<Item>;

    /// `detail` is not owned and may be null.
    tvChoice(const Items& items, DetailData* detail, wxWindow* parent, int id,
             const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize, long style = 0,
             const wxValidator& validator = wxDefaultValidator,
             const wxString& name = wxASCII_STR(wxChoiceNameStr));

    using wxChoice::Set;
    /// Replaces the items; nothing is selected afterwards until the detail is shown again.
    void Set(const Items& items);
    void Localize(const std::string& unitSystem);

    /// Key of the selected item; wxNOT_FOUND without a selection.
    long GetID() const;
    /// Key and source label of the selected item; (wxNOT_FOUND, empty) without a selection.
    Item GetSelectedData() const;
    wxString GetStringUnlocalized() const { return GetSelectedData().second; }
    /// Selects the first item with that source label; a label that no item has clears the selection.
    void SetStringSelectionFromUnlocalized(const wxString& label);
    /// Selects the item with that key; nothing when there is none.
    void SetDefault(long key);

    void TransferDetailToWindow() override;
    void UpdateUnit(const std::string& unitSystem) override { Localize(unitSystem); }

    DetailData* GetDetail() const { return m_detail; }
    const Items& GetItems() const { return m_items; }

protected:
    /// Text that is shown for a source label.
    virtual wxString DisplayText(const wxString& label) const;
    void SelectIndex(int index);

private:
    void OnChosen(wxCommandEvent& event);

    Items m_items;
    DetailData* m_detail;
};

/// A choice of units. Units are not translated; a unit that the detail holds but the list does not offer is
/// shown as a further item, so that a value never stands without its unit.
class GUI_BASE_EXPORT tvUnitChoice : public tvChoice
{
public:
    tvUnitChoice(const Items& units, DetailData* unitDetail, wxWindow* parent, int id,
                 const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize, long style = 0,
                 const wxString& name = wxASCII_STR(wxChoiceNameStr));
    tvUnitChoice(const std::vector<wxString>& units, DetailData* unitDetail, wxWindow* parent, int id,
                 const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize, long style = 0,
                 const wxString& name = wxASCII_STR(wxChoiceNameStr));

    /// Whether the list offers `unit`.
    bool Offers(const wxString& unit) const;
    void TransferDetailToWindow() override;

protected:
    wxString DisplayText(const wxString& label) const override { return label; }

private:
    std::size_t m_offered;
};
