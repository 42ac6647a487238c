// SPDX-License-Identifier: MIT
#pragma once

/// A choice of keyed, translated items bound to one detail.
///
/// A detail of text type holds the source-language label of the chosen item, any other the item's key. A
/// value that no item has clears the selection. The text of its tvCHANGE_EVENT is the source label.

#include "gui_base/input/controls/keyed_choice.h"

class GUI_BASE_EXPORT tvChoice : public KeyedChoice<long>
{
public:
    /// `detail` is not owned and may be null.
    tvChoice(const Items& items, DetailData* detail, wxWindow* parent, int id,
             const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize, long style = 0,
             const wxValidator& validator = wxDefaultValidator,
             const wxString& name = wxASCII_STR(wxChoiceNameStr));

    /// Key of the selected item; wxNOT_FOUND without a selection.
    long GetID() const { return GetSelectedData().first; }
    /// Key and source label of the selected item; (wxNOT_FOUND, empty) without a selection.
    Item GetSelectedData() const;
    /// Selects the first item with that source label; a label that no item has clears the selection.
    void SetStringSelectionFromUnlocalized(const wxString& label) { SelectIndex(IndexOfLabel(label)); }
    /// Selects the item with that key; nothing when there is none.
    void SetDefault(long key);

    void TransferDetailToWindow() override;

protected:
    wxString StoreChoice(const Item& item) override;
};

/// A choice of units. Units are not translated unless they are words; a unit that the detail holds but the
/// list does not offer is shown as a further item, so that a value never stands without its unit.
class GUI_BASE_EXPORT tvUnitChoice : public tvChoice
{
public:
    tvUnitChoice(const Items& units, DetailData* unitDetail, wxWindow* parent, int id,
                 const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize, long style = 0,
                 const wxString& name = wxASCII_STR(wxChoiceNameStr));
    tvUnitChoice(const std::vector<wxString>& units, DetailData* unitDetail, wxWindow* parent, int id,
                 const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize, long style = 0,
                 const wxString& name = wxASCII_STR(wxChoiceNameStr));

    /// Shows the translations of the units from now on. A degree of hardness stays: under the sign of another
    /// language's texts it would be another amount.
    void TranslateUnits();
    /// Replaces the units that are offered and shows the detail again.
    void SetOffered(const Items& units);
    /// Whether the list offers `unit`.
    bool Offers(const wxString& unit) const;
    void TransferDetailToWindow() override;

protected:
    wxString DisplayText(const wxString& label) const override;

private:
    std::size_t m_offered;
    bool m_translates = false;
};
