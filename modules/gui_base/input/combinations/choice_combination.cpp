// SPDX-License-Identifier: MIT
#include "gui_base/input/combinations/choice_combination.h"

#include "gui_base/input/events.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/events.h"
#include "gui_base/support/translation.h"

namespace {

constexpr int kGap = 3;

tvChoice* MakeChoice(const tvChoice::Items& items, DetailData* detail, wxWindow* parent, int id)
{
    return new tvChoice(items, detail, parent, id);
}

tvChoiceAdv* MakeChoice(const tvChoiceAdv::Items& items, DetailData* detail, wxWindow* parent, int id)
{
    return new tvChoiceAdv(items, detail, parent, id);
}

}  // namespace

template <typename Choice>
LabelledChoice<Choice>::LabelledChoice(wxWindow* parent, int id, const wxString& label,
                                       const wxString& suffix, const Items& items, DetailData* detail,
                                       wxSizer* sizer)
    : m_parent(parent),
      m_sizer(sizer != nullptr ? sizer : new wxBoxSizer(wxHORIZONTAL)),
      m_labelText(label),
      m_label(new TvStaticText(parent, wxID_ANY, label, suffix)),
      m_choice(MakeChoice(items, detail, parent, id))
{
    m_sizer->Add(m_label.get(), wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM, kGap).CenterVertical());
    m_sizer->Add(m_choice.get(), wxSizerFlags().Border(wxBOTTOM, kGap).CenterVertical());
    m_choice->Bind(tvCHANGE_EVENT, &LabelledChoice::OnChosen, this);
    accessibility::SetName(*m_choice, i18n::Translated(label));
}

template <typename Choice>
LabelledChoice<Choice>::~LabelledChoice()
{
    if (m_choice)
        m_choice->Unbind(tvCHANGE_EVENT, &LabelledChoice::OnChosen, this);
}

template <typename Choice>
void LabelledChoice<Choice>::SetItems(const Items& items)
{
    if (!m_choice)
        return;
    m_choice->Set(items);
    m_choice->TransferDetailToWindow();
}

template <typename Choice>
void LabelledChoice<Choice>::Localize(const std::string& unitSystem)
{
    if (m_label)
        m_label->Localize(unitSystem);
    if (!m_choice)
        return;
    m_choice->Localize(unitSystem);
    accessibility::SetName(*m_choice, i18n::Translated(m_labelText));
}

template <typename Choice>
void LabelledChoice<Choice>::TransferDetailToWindow()
{
    if (m_choice)
        m_choice->TransferDetailToWindow();
}

template <typename Choice>
void LabelledChoice<Choice>::OnChosen(wxCommandEvent& event)
{
    events::SendEvent(m_parent, tvCHANGE_EVENT, GetControlId(), 0, event.GetString());
}

template class LabelledChoice<tvChoice>;
template class LabelledChoice<tvChoiceAdv>;
