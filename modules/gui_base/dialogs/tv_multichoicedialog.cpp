// SPDX-License-Identifier: MIT
#include "gui_base/dialogs/tv_multichoicedialog.h"

#include "gui_base/support/translation.h"

#include <wx/button.h>
#include <wx/checklst.h>
#include <wx/sizer.h>

TvMultiChoiceDialog::TvMultiChoiceDialog(wxWindow* parent, const wxString& message, const wxString& caption,
                                         int n, const wxString* choices, long style, const wxPoint& pos)
    : wxMultiChoiceDialog(parent, message, caption, n, choices, style, pos)
{
    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    const auto add = [&](const char* label, void (TvMultiChoiceDialog::*handler)(wxCommandEvent&)) {
        auto* button = new wxButton(this, wxID_ANY, i18n::Translated(label));
        button->Bind(wxEVT_BUTTON, handler, this);
        buttons->Add(button, wxSizerFlags().Border(wxRIGHT, FromDIP(8)));
        // In reading order: behind the list, before OK and Cancel.
        button->MoveAfterInTabOrder(m_listbox);
        return button;
    };
    wxButton* all = add(wxTRANSLATE("Select all"), &TvMultiChoiceDialog::OnSelectAll);
    add(wxTRANSLATE("Deselect all"), &TvMultiChoiceDialog::OnDeselectAll)->MoveAfterInTabOrder(all);
    // Below the message and the list, above the standard buttons.
    GetSizer()->Insert(std::min<std::size_t>(2, GetSizer()->GetItemCount()), buttons,
                       wxSizerFlags().Border(wxALL, FromDIP(8)));
    GetSizer()->SetSizeHints(this);
    Fit();
}

void TvMultiChoiceDialog::CheckAll(bool check)
{
    auto* list = dynamic_cast<wxCheckListBox*>(m_listbox);
    for (unsigned i = 0; list != nullptr && i < list->GetCount(); ++i)
        list->Check(i, check);
}

void TvMultiChoiceDialog::OnSelectAll(wxCommandEvent&)
{
    CheckAll(true);
}

void TvMultiChoiceDialog::OnDeselectAll(wxCommandEvent&)
{
    CheckAll(false);
}
