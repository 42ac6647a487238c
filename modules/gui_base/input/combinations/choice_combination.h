// SPDX-License-Identifier: MIT
#pragma once

/// One row of a form: a label and a choice that is bound to one detail.
///
/// The user's choice is stored by the choice itself (keys in a number, source labels or text keys in a text)
/// and told to the parent by one queued tvCHANGE_EVENT with the choice's id and, as its text, what the choice
/// states; the choice's own tvCHANGE_EVENT ends here. A value that no item has clears the selection. The
/// controls belong to the parent window and may go before the combination; the detail outlives both.

#include "gui_base/input/binding/database_combination.h"
#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/input/controls/tv_choiceadv.h"
#include "gui_base/input/controls/tv_statictext.h"

#include <wx/sizer.h>
#include <wx/weakref.h>

#include <string>

/// What the rows with a choice of either kind share.
template <typename Choice>
class LabelledChoice : public DataBaseCombination
{
public:
    using Items = typename Choice::Items;

    ~LabelledChoice() override;
    LabelledChoice(const LabelledChoice&) = delete;
    LabelledChoice& operator=(const LabelledChoice&) = delete;

    /// Replaces the items and shows the detail again.
    void SetItems(const Items& items);
    void Localize(const std::string& unitSystem);

    void TransferDetailToWindow() override;
    void UpdateUnit(const std::string& unitSystem) override { Localize(unitSystem); }
    int GetControlId() const override { return m_choice ? m_choice->GetId() : wxID_ANY; }

    wxSizer* GetSizer() const { return m_sizer; }
    TvStaticText* GetLabel() const { return m_label.get(); }
    Choice* GetChoice() const { return m_choice.get(); }

protected:
    LabelledChoice(wxWindow* parent, int id, const wxString& label, const wxString& suffix,
                   const Items& items, DetailData* detail, wxSizer* sizer);

private:
    void OnChosen(wxCommandEvent& event);

    wxWindow* m_parent;
    wxSizer* m_sizer;
    wxString m_labelText;
    wxWeakRef<TvStaticText> m_label;
    wxWeakRef<Choice> m_choice;
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
