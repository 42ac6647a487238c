// SPDX-License-Identifier: MIT
#include "gui_base/water/tools/liquid_tool_dialog.h"

#include "gui_base/dialogs/dialog_buttons.h"
#include "gui_base/input/validation/commit.h"

LiquidToolDialog::LiquidToolDialog(Project* project, int liquid, wxWindow* parent, int id,
                                   const wxString& title, const wxPoint& pos, const wxSize& size, long style,
                                   const wxString& name)
    : wxDialog(parent, id, title, pos, size, style, name), m_project(project), m_liquid(liquid)
{}

DetailList& LiquidToolDialog::GetDetails() const
{
    return *m_project->GetLiquid(static_cast<std::size_t>(m_liquid)).GetDetails();
}

void LiquidToolDialog::CreateControls(LiquidToolPanel* panel)
{
    m_panel = panel;
    auto* outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(panel, wxSizerFlags(1).Expand());
    outer->Add(dialogs::CreateButtons(*this, true), wxSizerFlags().Expand().Border(wxALL, FromDIP(12)));
    SetSizerAndFit(outer);
    CentreOnParent();
}

void LiquidToolDialog::BindEvents()
{
    Bind(wxEVT_BUTTON, &LiquidToolDialog::OnOK, this, wxID_OK);
    Bind(wxEVT_BUTTON, &LiquidToolDialog::OnCancel, this, wxID_CANCEL);
    Bind(wxEVT_CLOSE_WINDOW, &LiquidToolDialog::OnClose, this);
}

void LiquidToolDialog::OnOK(wxCommandEvent&)
{
    CommitFocusedField();
    if (m_panel->Validate() && m_panel->TransferDataFromWindow()) {
        m_panel->SynchronizeProject();
        EndModal(wxID_OK);
    }
}

void LiquidToolDialog::OnCancel(wxCommandEvent&)
{
    RestoreData();
    EndModal(wxID_CANCEL);
}

void LiquidToolDialog::OnClose(wxCloseEvent& event)
{
    if (GetReturnCode() != wxID_OK)
        RestoreData();
    event.Skip();
}
