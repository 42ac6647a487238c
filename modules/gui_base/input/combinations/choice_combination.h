// SPDX-License-Identifier: MIT
#pragma once

/// One row of a form: a label and a choice that is bound to one detail.
///
/// The user's choice is stored by the choice itself (keys in a number, source labels or text keys in a text)
/// and told to the parent with, as the event's text, what the choice states; the choice's own tvCHANGE_EVENT
/// ends here. A value that no item has clears the selection.

#include "gui_base/input/combinations/labelled_row.h"
#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/input/controls/tv_choiceadv.h"

#include <string>

/// What the rows with a choice of either kind share.
template <typename Choice>
class LabelledChoice : public LabelledRow<Choice>
{
public:
    using Items = typename Choice::Items;

    ~LabelledChoice() override;

    /// Replaces the items and shows the detail again.
    void SetItems(const Items& items);
    void TransferDetailToWindow() override;

    Choice* GetChoice() const { return this->GetControl(); }

protected:
    LabelledChoice(wxWindow* parent, int id, const wxString& label, const wxString& suffix,
                   const Items& items, DetailData* detail, wxSizer* sizer);

    void DoLocalize(const std::string& unitSystem) override { GetChoice()->Localize(unitSystem); }

private:
    void OnChosen(wxCommandEvent& event) { this->SendChange(event.GetString()); }
};

extern template class GUI_BASE_EXPORT LabelledChoice<tvChoice>;
extern template class GUI_BASE_EXPORT LabelledChoice<tvChoiceAdv>;

/// A row whose items have text keys; its detail holds the key.
class GUI_BASE_EXPORT ChoiceCombination : public LabelledChoice<tvChoiceAdv>
{
public:
    /// Without a `sizer` the row makes a horizontal one, which the caller adds to its own.
    ChoiceCombination(wxWindow* parent, int id, const wxString& label, const wxString& suffix,
                      const Items& items, DetailData* detail, wxSizer* sizer = nullptr)
        : LabelledChoice(parent, id, label, suffix, items, detail, sizer)
    {}
};

/// A row whose items have numeric keys; a text detail holds the source label, any other the key.
class GUI_BASE_EXPORT TvChoiceCombination : public LabelledChoice<tvChoice>
{
public:
    /// Without a `sizer` the row makes a horizontal one, which the caller adds to its own.
    TvChoiceCombination(wxWindow* parent, int id, const wxString& label, const wxString& suffix,
                        const Items& items, DetailData* detail, wxSizer* sizer = nullptr)
        : LabelledChoice(parent, id, label, suffix, items, detail, sizer)
    {}
};
