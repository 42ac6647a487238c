// SPDX-License-Identifier: MIT
#include "gui_base/dialogs/info_message_dialog.h"

#include "gui_base/dialogs/dialog_buttons.h"
#include "gui_base/support/translation.h"

#include <wx/sizer.h>
#include <wx/stattext.h>

InfoMessageDialog::InfoMessageDialog(const wxString& message, wxWindow* parent, int id, const wxString& title,
                                     const wxPoint& pos, const wxSize& size, long style, const wxString& name)
    : wxDialog(parent, id, i18n::Translated(title.empty() ? wxString(wxTRANSLATE("Information")) : title),
               pos, size, style & ~wxCANCEL, name)
{
    const bool cancel = (style & wxCANCEL) != 0;
    auto* outer = new wxBoxSizer(wxVERTICAL);
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(12));
    auto* text = new wxStaticText(this, wxID_ANY, i18n::Translated(message));
    text->Wrap(FromDIP(480));
    outer->Add(text, spaced);
    m_dontShowAgain = new wxCheckBox(this, wxID_ANY, i18n::Translated("Do not show this message again"));
    outer->Add(m_dontShowAgain, spaced);
    outer->Add(dialogs::CreateButtons(*this, cancel), wxSizerFlags(spaced).Expand());
    SetSizerAndFit(outer);
    SetEscapeId(cancel ? wxID_CANCEL : wxID_OK);
    CentreOnParent();
}
