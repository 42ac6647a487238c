// SPDX-License-Identifier: MIT
#include "gui_base/graphics/chart/chart_page.h"

namespace {

constexpr int kLeastSide = 160;

}  // namespace

ChartPage::ChartPage(Project& project, wxWindow* parent) : FormPanel(&project, project.GetDetails(), parent)
{
    Create();
}

ChartPage::~ChartPage() = default;

void ChartPage::DoCreateForm()
{
    m_panel = new ChartViewerPanel(ChartViewerController::DiagramTypes(), ChartViewerController::Media(),
                                   ChartViewerController::Resins(*GetProject()), this, wxID_ANY);
    // The panel scrolls by itself.
    m_panel->SetMinSize(FromDIP(wxSize(kLeastSide, kLeastSide)));
    auto* outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(m_panel, wxSizerFlags(1).Expand());
    SetSizer(outer);
    m_controller = std::make_unique<ChartViewerController>(*GetProject(), *m_panel);
}

void ChartPage::Follow()
{
    m_panel->Localize(GetCurrentDisplayUnitSystem());
    m_controller->Follow();
}

void ChartPage::DoFollowProject()
{
    FormPanel::DoFollowProject();
    m_controller->Follow();
}

void ChartPage::DoLocalize()
{
    FormPanel::DoLocalize();
    Follow();
}

void ChartPage::DoUpdateUnits()
{
    FormPanel::DoUpdateUnits();
    Follow();
}

void ChartPage::DoConnectTvTextCtrlsToStatusbar()
{
    FormPanel::DoConnectTvTextCtrlsToStatusbar();
    for (TvTextCtrl* field : m_panel->GetFields())
        ConnectControlToStatusBar(field);
}
