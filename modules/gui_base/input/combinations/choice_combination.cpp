// SPDX-License-Identifier: MIT
#include "gui_base/input/combinations/choice_combination.h"

template <typename Choice>
LabelledChoice<Choice>::LabelledChoice(wxWindow* parent, int id, const wxString& label,
                                       const wxString& suffix, const Items& items, DetailData* detail,
                                       wxSizer* sizer)
    : LabelledRow<Choice>(parent, label, suffix, sizer)
{
    this->AddControl(new Choice(items, detail, parent, id));
    GetChoice()->Bind(tvCHANGE_EVENT, &LabelledChoice::OnChosen, this);
}

template <typename Choice>
LabelledChoice<Choice>::~LabelledChoice()
{
    if (Choice* choice = GetChoice())
        choice->Unbind(tvCHANGE_EVENT, &LabelledChoice::OnChosen, this);
}

template <typename Choice>
void LabelledChoice<Choice>::SetItems(const Items& items)
{
    if (Choice* choice = GetChoice()) {
        choice->Set(items);
        choice->TransferDetailToWindow();
    }
}

template <typename Choice>
void LabelledChoice<Choice>::TransferDetailToWindow()
{
    if (Choice* choice = GetChoice())
        choice->TransferDetailToWindow();
}

template class LabelledChoice<tvChoice>;
template class LabelledChoice<tvChoiceAdv>;
