// SPDX-License-Identifier: MIT
#include "gui_base/network/authentication_entry_dialog.h"

#include "gui_base/dialogs/dialog_buttons.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <wx/sizer.h>
#include <wx/stattext.h>

namespace {

constexpr int kGap = 12;
constexpr int kFieldWidth = 240;
constexpr unsigned long kMostLetters = 256;

}  // namespace

AuthenticationEntryDialog::AuthenticationEntryDialog(wxWindow* parent, const wxString& user)
    : wxDialog(parent, wxID_ANY, i18n::Translated("Proxy server authentication"), wxDefaultPosition,
               wxDefaultSize, wxDEFAULT_DIALOG_STYLE, "AuthenticationEntryDialog")
{
    auto* outer = new wxBoxSizer(wxVERTICAL);
    const wxSizerFlags spaced = wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap));
    outer->Add(
        new wxStaticText(this, wxID_ANY, i18n::Translated("Please enter your proxy server authentication!")),
        spaced);
    auto* grid = new wxFlexGridSizer(2, FromDIP(wxSize(kGap, kGap / 2)));
    grid->AddGrowableCol(1);
    m_user = AddField(*grid, i18n::Translated("User ID"), 0);
    m_password = AddField(*grid, i18n::Translated("Password"), wxTE_PASSWORD);
    outer->Add(grid, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, FromDIP(kGap)));
    outer->Add(dialogs::CreateButtons(*this, true), spaced);
    SetSizerAndFit(outer);
    m_user->SetValue(user);
    (user.empty() ? m_user : m_password)->SetFocus();
    CentreOnParent();
}

wxTextCtrl* AuthenticationEntryDialog::AddField(wxSizer& grid, const wxString& label, long style)
{
    grid.Add(new wxStaticText(this, wxID_ANY, label), wxSizerFlags().CentreVertical());
    auto* field = new TvTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition,
                                 FromDIP(wxSize(kFieldWidth, -1)), style);
    field->SetMaxLength(kMostLetters);
    accessibility::SetName(*field, label);
    grid.Add(field, wxSizerFlags().Expand());
    return field;
}
