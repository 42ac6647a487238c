// SPDX-License-Identifier: MIT
#include "gui_base/water/feedwater/organics_input_panel.h"

#include "dbinterfaces/master_database.h"
#include "gui_base/input/controls/collapsible_box.h"
#include "gui_base/input/events.h"
#include "gui_base/support/events.h"
#include "projectbase/project/project.h"

#include <wx/statbox.h>
#include <wx/translation.h>

namespace {

/// Medium, temperature and organics stand beside each other.
constexpr int kColumns = 6;

}  // namespace

OrganicsInputPanel::OrganicsInputPanel(DetailData* mediumDetail, DetailData* organicsDetail, wxWindow* parent,
                                       wxStatusBar* statusBar, int id, const wxPoint& pos, const wxSize& size,
                                       long style)
    : FeedMediumForm(parent, id, pos, size, style)
{
    auto* box = new CollapsibleBox(wxVERTICAL, this, wxTRANSLATE("Organics input"));
    AddControl<TvStaticBoxSizer>(box);
    auto* grid = form::NewGrid(*this, kColumns);
    GetFields().SetLabelSuffix(":");
    AddMediumRows(box->GetStaticBox(), *grid, wxTRANSLATE("Medium"), mediumDetail);
    const FormRow organics{.key = "organics", .label = wxTRANSLATE("Organics"), .field = FormField::Choice};
    m_organics = static_cast<tvChoiceAdv*>(
        GetFields().AddRow(box->GetStaticBox(), *grid, organics, *organicsDetail).field);
    box->Add(grid, wxSizerFlags().Border(wxALL, FromDIP(form::kGap)));
    box->TakeKeptState();
    SetSizer(box);
    CompleteForm();
    SetStatusBar(statusBar);
    Fit();
}

void OrganicsInputPanel::SetOrganicsSelection(const std::vector<std::pair<wxString, wxString>>& organics)
{
    m_organics->Set(organics);
    m_organics->TransferDetailToWindow();
    Layout();
}

OrganicsInputPanelController::OrganicsInputPanelController(Project* project, OrganicsInputPanel* panel)
    : m_project(project), m_panel(panel)
{
    std::vector<std::pair<long, wxString>> mediums;
    for (const auto& medium : MasterDatabase::GetFeedMediums(project->GetModuleType(), "INPUT_ORGANICS"))
        mediums.emplace_back(medium.id, wxString::FromUTF8(medium.name));
    panel->SetMediumSelection(mediums);
    std::vector<std::pair<wxString, wxString>> organics;
    for (const auto& organic : MasterDatabase::GetOrganics())
        organics.emplace_back(wxString::FromUTF8(organic.key), wxString::FromUTF8(organic.label));
    panel->SetOrganicsSelection(organics);
    std::vector<std::pair<long, wxString>> units;
    for (const TemperatureUnit unit : kTemperatureUnits)
        units.emplace_back(static_cast<long>(unit), wxString::FromUTF8(Temperature::UnitText(unit)));
    panel->SetTemperatureUnitSelection(units);
    TransferToView();
    panel->SetOnChange([this] { OnChanged(); });
}

OrganicsInputPanelController::~OrganicsInputPanelController()
{
    if (m_panel)
        m_panel->SetOnChange({});
}

void OrganicsInputPanelController::TransferToView()
{
    if (!m_panel)
        return;
    m_panel->TransferDetailsToWindow();
    m_panel->SetMedium(m_project->LoadFeedMediumFromDetails());
}

void OrganicsInputPanelController::OnChanged()
{
    // Another medium has brought its own density; one that was entered for the present medium stays.
    FeedMedium::Data medium = m_panel->GetMedium();
    medium.density = m_project->LoadFeedMediumFromDetails().density;
    m_project->SaveFeedMediumToDetails(medium);
    TransferToView();
    events::SendEvent(m_panel->GetParent(), tvCHANGE_EVENT, m_panel->GetId(), 0, wxString());
}
