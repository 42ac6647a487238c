// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/input/controls/keyed_choice.h"

/// A choice of translated items with text keys, bound to a text detail that holds the key of the chosen item.
/// A key that no item has clears the selection. The text of its tvCHANGE_EVENT is the key.
class GUI_BASE_EXPORT tvChoiceAdv : public KeyedChoice<wxString>
{
public:
    /// `detail` is not owned and may be null.
    tvChoiceAdv(const Items& items, DetailData* detail, wxWindow* parent, int id,
                const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize, long style = 0,
                const wxValidator& validator = wxDefaultValidator,
                const wxString& name = wxASCII_STR(wxChoiceNameStr));

    /// Key of the selected item; empty without a selection.
    wxString GetKey() const;
    /// Selects the first item with that key; a key that no item has clears the selection.
    void SelectKey(const wxString& key) { SelectIndex(IndexOfKey(key)); }

    void TransferDetailToWindow() override;

protected:
    wxString StoreChoice(const Item& item) override;
};
