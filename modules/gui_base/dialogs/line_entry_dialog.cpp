// SPDX-License-Identifier: MIT
#include "gui_base/dialogs/line_entry_dialog.h"

#include "gui_base/dialogs/dialog_buttons.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/translation.h"

#include <wx/sizer.h>
#include <wx/stattext.h>

namespace {

constexpr int kGap = 12;
constexpr int kFieldWidth = 320;

}  // namespace

LineEntryDialog::LineEntryDialog(wxWindow* parent, const wxString& title, const wxString& label,
                                 const wxString& text, unsigned long most)
    : wxDialog(parent, wxID_ANY, title),
      m_field(new TvTextCtrl(this, wxID_ANY, text, wxDefaultPosition, FromDIP(wxSize(kFieldWidth, -1))))
{
    m_field->SetMaxLength(most);
    m_field->SelectAll();
    accessibility::SetName(*m_field, label);
    auto* outer = new wxBoxSizer(wxVERTICAL);
    const wxSizerFlags spaced = wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap));
    outer->Add(new wxStaticText(this, wxID_ANY, label + i18n::Colon()), spaced);
    outer->Add(m_field, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, FromDIP(kGap)));
    outer->Add(dialogs::CreateButtons(*this, true), spaced);
    SetSizerAndFit(outer);
    m_field->Bind(wxEVT_TEXT, [this](wxCommandEvent& event) {
        FindWindow(wxID_OK)->Enable(!GetText().empty());
        event.Skip();
    });
    m_field->SetFocus();
    CentreOnParent();
}

wxString LineEntryDialog::GetText() const
{
    return m_field->GetValue().Trim(true).Trim(false);
}
