// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_choiceadv.h"

tvChoiceAdv::tvChoiceAdv(const Items& items, DetailData* detail, wxWindow* parent, int id, const wxPoint& pos,
                         const wxSize& size, long style, const wxValidator& validator, const wxString& name)
    : KeyedChoice(items, detail, parent, id, pos, size, style, validator, name)
{
    tvChoiceAdv::TransferDetailToWindow();
}

wxString tvChoiceAdv::GetKey() const
{
    const Item* item = GetSelectedItem();
    return item != nullptr ? item->first : wxString();
}

void tvChoiceAdv::TransferDetailToWindow()
{
    if (const DetailData* detail = GetDetail())
        SelectKey(detail->GetStringValue());
}

wxString tvChoiceAdv::StoreChoice(const Item& item)
{
    if (DetailData* detail = GetDetail())
        detail->SetValue(item.first);
    return item.first;
}
