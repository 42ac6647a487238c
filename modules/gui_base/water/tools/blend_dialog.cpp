// SPDX-License-Identifier: MIT
#include "gui_base/water/tools/blend_dialog.h"

#include "gui_base/dialogs/dialog_buttons.h"
#include "gui_base/input/controls/tv_choice.h"
#include "gui_base/input/controls/tv_double_slider.h"
#include "gui_base/input/events.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <wx/intl.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>

namespace {

constexpr int kDecimals = 1;
constexpr int kMostShare = 1000;  // 100.0 %
constexpr int kPage = 50;

}  // namespace

BlendDialog::BlendDialog(wxWindow* parent, const std::vector<std::string>& waters, const BlendRecipe& recipe)
    : wxDialog(parent, wxID_ANY, i18n::Translated("Blend waters"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      m_waters(waters)
{
    auto* form = new wxFlexGridSizer(2, FromDIP(wxSize(12, 8)));
    form->AddGrowableCol(1);
    m_first = AddWater(*form, wxTRANSLATE("First water"), recipe.first);
    m_second = AddWater(*form, wxTRANSLATE("Second water"), recipe.second);
    const wxString label = i18n::Translated("Share of the first water [%]");
    form->Add(new wxStaticText(this, wxID_ANY, label), wxSizerFlags().Top());
    m_share = new TvDoubleSlider(this, wxID_ANY, kDecimals, 0, 0, kMostShare, wxDefaultPosition,
                                 FromDIP(wxSize(280, -1)),
                                 wxSL_HORIZONTAL | wxSL_MIN_MAX_LABELS | wxSL_VALUE_LABEL);
    m_share->SetPageSize(kPage);
    m_share->SetValue(m_share->FromDoubleValue(recipe.share));
    accessibility::SetName(*m_share, label);
    form->Add(m_share, wxSizerFlags().Expand());
    auto* outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(form, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(12)));
    outer->Add(dialogs::CreateButtons(*this, true), wxSizerFlags().Expand().Border(wxALL, FromDIP(12)));
    SetSizerAndFit(outer);
    Bind(tvCHANGE_EVENT, [this](wxCommandEvent&) { EnableOk(); });
    EnableOk();
    CentreOnParent();
}

tvChoice* BlendDialog::AddWater(wxSizer& form, const char* label, const std::string& selected)
{
    tvChoice::Items items;
    long chosen = 0;
    for (const std::string& name : m_waters) {
        if (name == selected)
            chosen = static_cast<long>(items.size());
        items.emplace_back(static_cast<long>(items.size()), wxString::FromUTF8(name));
    }
    const wxString text = i18n::Translated(label);
    form.Add(new wxStaticText(this, wxID_ANY, text), wxSizerFlags().CentreVertical());
    auto* choice = new tvChoice(items, nullptr, this, wxID_ANY);
    choice->SetDefault(chosen);
    accessibility::SetName(*choice, text);
    form.Add(choice, wxSizerFlags().Expand());
    return choice;
}

void BlendDialog::EnableOk()
{
    FindWindow(wxID_OK)->Enable(m_first->GetID() != m_second->GetID());
}

BlendRecipe BlendDialog::GetRecipe() const
{
    const auto name = [this](const tvChoice& choice) {
        return m_waters.at(static_cast<std::size_t>(std::max(choice.GetID(), 0L)));
    };
    return {name(*m_first), name(*m_second), m_share->GetDoubleValue()};
}
