// SPDX-License-Identifier: MIT
#include "gui_base/water/tools/blend_dialog.h"

#include "gui_base/dialogs/dialog_buttons.h"
#include "gui_base/support/translation.h"

#include <wx/scrolwin.h>
#include <wx/settings.h>
#include <wx/sizer.h>

#include <algorithm>

namespace {

constexpr int kGap = 12;
constexpr int kMostHeight = 480;
constexpr int kMessageWidth = 320;
constexpr int kScrollStep = 16;

}  // namespace

BlendDialog::BlendDialog(wxWindow* parent, const std::vector<std::string>& waters,
                         const water::BlendRecipe& recipe, const std::string& unitSystem)
    : wxDialog(parent, wxID_ANY, i18n::Translated("Blend waters"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER)
{
    auto* scrolled =
        new wxScrolledWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxVSCROLL);
    scrolled->SetScrollRate(0, FromDIP(kScrollStep));
    m_form = new BlendForm(scrolled, waters, recipe);
    m_form->Localize(unitSystem);
    auto* inner = new wxBoxSizer(wxVERTICAL);
    inner->Add(m_form, wxSizerFlags(1).Expand());
    scrolled->SetSizer(inner);
    const wxSize best = inner->CalcMin();
    scrolled->SetMinSize({best.x + wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, this),
                          std::min(best.y, FromDIP(kMostHeight))});
    m_message = new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition,
                                 FromDIP(wxSize(kMessageWidth, -1)), wxST_NO_AUTORESIZE);
    auto* outer = new wxBoxSizer(wxVERTICAL);
    const int gap = FromDIP(kGap);
    outer->Add(scrolled, wxSizerFlags(1).Expand().Border(wxALL, gap));
    outer->Add(m_message, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, gap));
    outer->Add(dialogs::CreateButtons(*this, true), wxSizerFlags().Expand().Border(wxALL, gap));
    SetSizerAndFit(outer);
    Bind(wxEVT_BUTTON, &BlendDialog::OnOk, this, wxID_OK);
    CentreOnParent();
}

void BlendDialog::OnOk(wxCommandEvent& event)
{
    if (GetRecipe().IsComplete()) {
        event.Skip();
        return;
    }
    m_message->SetLabelText(i18n::Translated("A blend needs two waters with their amounts"));
}
