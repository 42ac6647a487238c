// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/feed/compound_editor_dialog.h"

#include "gui_base/dialogs/questions.h"
#include "gui_base/ionexchange/feed/compound_editor_panel.h"
#include "gui_base/support/image_loader.h"
#include "gui_base/support/translation.h"

#include <wx/button.h>
#include <wx/sizer.h>

CompoundEditorDialog::CompoundEditorDialog(const Compound& compound, wxWindow* parent, int id,
                                           const wxString& title, const wxPoint& pos, const wxSize& size,
                                           long style)
    : wxDialog(parent, id, title, pos, size, style), m_compound(compound)
{
    SetIcon(ImageLoader::LoadBundle("icons/tarnvik.png", FromDIP(wxSize(32, 32))).GetIcon(wxDefaultSize));
    m_panel = new CompoundEditorPanel(this);
    m_panel->SetData({compound});
    m_shown = m_panel->GetData().compound;
    auto* outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(m_panel, wxSizerFlags(1).Expand());
    if (size == wxDefaultSize)
        SetSizerAndFit(outer);
    else
        SetSizer(outer);
    m_panel->Bind(tvCOMPOUND_SAVE, [this](wxCommandEvent&) { OnSave(); });
    m_panel->Bind(tvCOMPOUND_CLEAR, [this](wxCommandEvent&) { OnClear(); });
    Bind(wxEVT_CLOSE_WINDOW, &CompoundEditorDialog::OnClose, this);
    Bind(wxEVT_CHAR_HOOK, &CompoundEditorDialog::OnCharHook, this);
}

void CompoundEditorDialog::OnSave()
{
    m_compound = m_panel->GetData().compound;
    End(wxID_OK);
}

void CompoundEditorDialog::OnClear()
{
    Compound empty;
    empty.id = m_compound.id;
    m_panel->SetData({empty});
}

void CompoundEditorDialog::OnClose(wxCloseEvent& event)
{
    if (event.CanVeto() && !MayClose()) {
        event.Veto();
        return;
    }
    End(wxID_CANCEL);
}

void CompoundEditorDialog::OnCharHook(wxKeyEvent& event)
{
    if (event.GetKeyCode() == WXK_ESCAPE) {
        Close();
    } else if (event.GetKeyCode() == 'S' && event.GetModifiers() == wxMOD_CONTROL) {
        wxCommandEvent save(wxEVT_BUTTON, wxID_SAVE);
        if (wxWindow* button = m_panel->FindWindow(wxID_SAVE))
            button->ProcessWindowEvent(save);
    } else {
        event.Skip();
    }
}

void CompoundEditorDialog::End(int result)
{
    if (IsModal()) {
        EndModal(result);
    } else {
        SetReturnCode(result);
        Hide();
    }
}

bool CompoundEditorDialog::MayClose()
{
    if (m_panel->GetData().compound == m_shown)
        return true;
    return dialogs::AskYesNo(this,
                             i18n::Translated("There are unsaved changes. Do you really want to close?"),
                             i18n::Translated("Close editor"), wxICON_QUESTION) == wxID_YES;
}
