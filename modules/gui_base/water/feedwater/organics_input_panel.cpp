// SPDX-License-Identifier: MIT
#include "gui_base/water/feedwater/organics_input_panel.h"

#include "dbinterfaces/master_database.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/controls/tv_validated_textctrl.h"
#include "gui_base/input/validation/double_validator.h"
#include "projectbase/project/project.h"

#include <wx/intl.h>
#include <wx/statbox.h>

namespace {

constexpr int kGap = 4;
constexpr int kTemperatureWidth = 70;
constexpr double kMaxCelsius = 100.0;

}  // namespace

OrganicsInputPanel::OrganicsInputPanel(DetailData* mediumDetail, DetailData* organicsDetail, wxWindow* parent,
                                       wxStatusBar* statusBar, int id, const wxPoint& pos, const wxSize& size,
                                       long style)
    : TvPanel(parent, id, pos, size, style)
{
    auto* box = AddControl(new TvStaticBoxSizer(wxVERTICAL, this, wxTRANSLATE("Organics input")));
    wxWindow* inside = box->GetStaticBox();
    auto* form = new wxFlexGridSizer(5, FromDIP(wxSize(2 * kGap, kGap)));
    const wxSizerFlags cell = wxSizerFlags().CentreVertical();
    const auto label = [&](const char* text) {
        form->Add(AddControl(new TvStaticText(inside, wxID_ANY, text, ":")), cell);
        return i18n::Translated(text);
    };
    wxString name = label(wxTRANSLATE("Medium"));
    m_medium = AddControl(new tvChoice({}, mediumDetail, inside, wxID_ANY));
    accessibility::SetName(*m_medium, name);
    form->Add(m_medium, wxSizerFlags().Expand());
    name = label(wxTRANSLATE("Temperature"));
    m_temperatureField =
        AddControl(new TvValidatedDoubleTextCtrl({.parent = inside,
                                                  .size = FromDIP(wxSize(kTemperatureWidth, -1)),
                                                  .style = wxTE_RIGHT,
                                                  .precision = 3,
                                                  .validatorFlags = CheckMin | CheckMax | ShowPreciseValue,
                                                  .detail = &m_temperature,
                                                  .statusBar = statusBar,
                                                  .followUnitSystem = false}));
    accessibility::SetName(*m_temperatureField, name);
    form->Add(m_temperatureField, wxSizerFlags().Expand());
    m_temperatureUnit = AddControl(new tvChoice({}, nullptr, inside, wxID_ANY));
    form->Add(m_temperatureUnit, cell);
    name = label(wxTRANSLATE("Organics"));
    m_organics = AddControl(new tvChoiceAdv({}, organicsDetail, inside, wxID_ANY));
    accessibility::SetName(*m_organics, name);
    form->Add(m_organics, wxSizerFlags().Expand());
    box->Add(form, wxSizerFlags().Border(wxALL, FromDIP(kGap)));
    SetSizer(box);
    Fit();
    m_temperatureField->Bind(wxEVT_TEXT_ENTER,
                             [this](wxCommandEvent&) { m_temperatureField->TransferDataFromWindow(); });
    m_temperatureUnit->Bind(tvCHANGE_EVENT, &OrganicsInputPanel::OnTemperatureUnit, this);
}

OrganicsInputPanel::~OrganicsInputPanel()
{
    // The field is bound to a detail of this object.
    DestroyChildren();
}

FeedMedium::Data OrganicsInputPanel::GetMedium() const
{
    const long id = m_medium->GetID();
    return {id, Temperature(m_temperature.GetDoubleValue(), GetTemperatureUnit()), m_density};
}

void OrganicsInputPanel::SetMedium(const FeedMedium::Data& medium)
{
    m_density = medium.density;
    m_medium->SetDefault(medium.id);
    m_temperatureUnit->SetDefault(static_cast<long>(medium.temperature.GetUnit()));
    ShowTemperature(medium.temperature);
}

void OrganicsInputPanel::SetMediumSelection(const std::vector<std::pair<long, wxString>>& mediums)
{
    m_medium->Set(mediums);
    m_medium->TransferDetailToWindow();
    Layout();
}

void OrganicsInputPanel::SetOrganicsSelection(const std::vector<std::pair<wxString, wxString>>& organics)
{
    m_organics->Set(organics);
    m_organics->TransferDetailToWindow();
    Layout();
}

void OrganicsInputPanel::SetTemperatureUnitSelection(const std::vector<std::pair<long, wxString>>& units)
{
    m_temperatureUnit->Set(units);
    m_temperatureUnit->SetDefault(static_cast<long>(m_shownUnit));
    Layout();
}

TemperatureUnit OrganicsInputPanel::GetTemperatureUnit() const
{
    const long unit = m_temperatureUnit->GetID();
    return unit == wxNOT_FOUND ? m_shownUnit : static_cast<TemperatureUnit>(unit);
}

void OrganicsInputPanel::ShowTemperature(const Temperature& temperature)
{
    m_shownUnit = temperature.GetUnit();
    const auto inUnit = [this](double celsius) {
        return Temperature(celsius, TemperatureUnit::Celsius).In(m_shownUnit);
    };
    if (auto* validator = dynamic_cast<DoubleValidator*>(m_temperatureField->GetValidator())) {
        validator->SetMinValue(inUnit(0.0));
        validator->SetMaxValue(inUnit(kMaxCelsius));
    }
    m_temperature.SetValue(temperature.GetValue());
    m_temperatureField->TransferDetailToWindow();
}

void OrganicsInputPanel::OnTemperatureUnit(wxCommandEvent& event)
{
    // The temperature stays what it is; only its number changes.
    const Temperature shown(m_temperature.GetDoubleValue(), m_shownUnit);
    ShowTemperature(shown.ConvertedTo(GetTemperatureUnit()));
    event.Skip();
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
    panel->Bind(tvCHANGE_EVENT, &OrganicsInputPanelController::OnChanged, this);
}

OrganicsInputPanelController::~OrganicsInputPanelController()
{
    if (m_panel)
        m_panel->Unbind(tvCHANGE_EVENT, &OrganicsInputPanelController::OnChanged, this);
}

void OrganicsInputPanelController::TransferToView()
{
    if (!m_panel)
        return;
    m_panel->TransferDetailsToWindow();
    FeedMedium::Data medium = m_project->LoadFeedMediumFromDetails();
    medium.temperature = medium.temperature.ConvertedTo(m_panel->GetMedium().temperature.GetUnit());
    m_panel->SetMedium(medium);
}

void OrganicsInputPanelController::OnChanged(wxCommandEvent&)
{
    // Another medium has brought its own density; one that was entered for the present medium stays.
    FeedMedium::Data medium = m_panel->GetMedium();
    medium.density = m_project->LoadFeedMediumFromDetails().density;
    m_project->SaveFeedMediumToDetails(medium);
    TransferToView();
    events::SendEvent(m_panel->GetParent(), tvCHANGE_EVENT, m_panel->GetId(), 0, wxString());
}
