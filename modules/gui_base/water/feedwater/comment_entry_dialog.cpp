// SPDX-License-Identifier: MIT
#include "gui_base/water/feedwater/comment_entry_dialog.h"

#include "core/text_limits.h"
#include "gui_base/input/controls/text_length.h"
#include "gui_base/support/accessibility.h"
#include "gui_base/support/button_label.h"
#include "gui_base/support/translation.h"

#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/valgen.h>

namespace {

/// In DIP: what the buttons have beside their texts, on both sides together.
constexpr int kBesideText = 12;

}  // namespace

CommentEntryDialog::CommentEntryDialog(wxWindow* parent, int id, const wxString& title, const wxPoint& pos,
                                       const wxSize& size, long style)
{
    Create(parent, id, title, pos, size, style);
}

bool CommentEntryDialog::Create(wxWindow* parent, int id, const wxString& title, const wxPoint& pos,
                                const wxSize& size, long style)
{
    if (!wxDialog::Create(parent, id, title, pos, size, style))
        return false;
    CreateControls();
    SetValidators();
    BindEvents();
    m_field->SetFocus();
    return true;
}

void CommentEntryDialog::CreateControls()
{
    const wxString label = i18n::Translated("Comments");
    const int gap = FromDIP(4);
    m_field = new wxTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxTE_MULTILINE);
    text_length::Limit(*m_field, text_limits::kText);
    // The window may be made as small as a line of text.
    m_field->SetMinSize(wxSize(-1, GetCharHeight() + gap));
    accessibility::SetName(*m_field, label);
    const auto button = [this](int id, const wxString& text) {
        auto* made = new wxButton(this, id, wxString(), wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT);
        button_label::Set(*made, text);
        made->SetMinSize(made->GetBestSize() + FromDIP(wxSize(kBesideText, 0)));
        return made;
    };
    m_save = button(wxID_OK, i18n::Translated("&Save"));
    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    buttons->Add(new wxStaticText(this, wxID_ANY, label),
                 wxSizerFlags().CentreVertical().Border(wxRIGHT, 2 * gap));
    buttons->AddStretchSpacer();
    buttons->Add(m_save, wxSizerFlags().Border(wxRIGHT, gap));
    buttons->Add(button(wxID_CANCEL, i18n::Translated("&Cancel")));
    auto* outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(buttons, wxSizerFlags().Expand().Border(wxALL, gap));
    outer->Add(m_field, wxSizerFlags().Expand().Proportion(1).Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    m_field->MoveBeforeInTabOrder(m_save);
    SetSizer(outer);
    // In most languages label and buttons want more width than it is usually given.
    wxSize size = GetSize();
    size.IncTo(ClientToWindowSize(outer->GetMinSize()));
    SetSize(size);
    Layout();
}

void CommentEntryDialog::SetValidators()
{
    m_field->SetValidator(wxGenericValidator(&m_comment));
}

void CommentEntryDialog::BindEvents()
{
    m_save->Bind(wxEVT_BUTTON, &CommentEntryDialog::OnSaveClick, this);
    Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
        wxCommandEvent save;
        if (event.GetKeyCode() == WXK_RETURN && event.ControlDown())
            OnSaveClick(save);
        else
            event.Skip();
    });
}

void CommentEntryDialog::SetComment(const wxString& comment)
{
    m_comment = comment;
    if (m_field == nullptr)
        return;
    m_field->ChangeValue(comment);
    m_field->SetInsertionPointEnd();
}

void CommentEntryDialog::OnSaveClick(wxCommandEvent&)
{
    m_comment = m_field->GetValue();
    if (IsModal()) {
        EndModal(wxID_OK);
    } else {
        SetReturnCode(wxID_OK);
        Hide();
    }
}
