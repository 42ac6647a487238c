// SPDX-License-Identifier: MIT
#include "gui_base/input/form/form_panel.h"

#include "gui_base/input/form/form_grid.h"

FormPanel::FormPanel(Project* project, DetailList& details, wxWindow* parent, int id, const wxPoint& pos,
                     const wxSize& size, long style, const wxString& name)
    : ModulePanelBase(project, parent, id, pos, size, style, name), m_details(&details)
{}

void FormPanel::CreateWindow(Project* project, DetailList& details, wxWindow* parent, int id,
                             const wxPoint& pos, const wxSize& size, long style, const wxString& name)
{
    m_details = &details;
    ModulePanelBase::CreateWindow(project, parent, id, pos, size, style, name);
}

wxFlexGridSizer* FormPanel::NewGrid(int columns) const
{
    return form::NewGrid(*this, columns);
}

void FormPanel::Commit()
{
    SynchronizeProject();
    SendChangeEvent();
}

void FormPanel::DoCreateControls()
{
    m_fields = std::make_unique<FieldSet>(*m_details);
    DoCreateForm();
    for (const auto& holder : m_fields->Localizables())
        AddLocalizable(holder);
    for (DetailContainerWindow* window : m_fields->SelfRefreshing())
        AddToDetailContainerWindows(window);
}

void FormPanel::DoSetTransferDetails()
{
    m_fields->VisitBindings([this](const TransferDetail& binding) { AddTransfer(binding); });
}

void FormPanel::DoBindEvents()
{
    m_fields->OnCommit([this] { Commit(); }, [this] { Commit(); });
}

void FormPanel::DoPrepare()
{
    DoLocalize();
}

void FormPanel::DoUpdateUnits()
{
    m_fields->UpdateNames(GetCurrentDisplayUnitSystem());
}

void FormPanel::DoLocalize()
{
    m_fields->UpdateNames(GetCurrentDisplayUnitSystem());
}

void FormPanel::DoUpdateValidators()
{
    m_fields->ApplyLimits(GetCurrentDisplayUnitSystem());
}

void FormPanel::DoFollowProject()
{
    ModulePanelBase::DoFollowProject();
    // The name of a field says its unit, which may be another one now.
    m_fields->UpdateNames(GetCurrentDisplayUnitSystem());
}

void FormPanel::DoConnectTvTextCtrlsToStatusbar()
{
    m_fields->SetStatusBar(GetStatusBar());
}
