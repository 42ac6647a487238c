// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/regeneration/chemical_dilution_panel.h"

#include "gui_base/input/controls/tv_choiceadv.h"
#include "gui_base/input/controls/tv_staticboxsizer.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/input/form/form_grid.h"
#include "projectbase/design/regenerants.h"
#include "projectbase/units/unit_system_manager.h"

#include <wx/statbox.h>
#include <wx/translation.h>

namespace {

constexpr int kFieldWidth = 90;

TvChemicalDiliutionPanel::Chemicals AllChemicals()
{
    TvChemicalDiliutionPanel::Chemicals chemicals{{wxString(), wxTRANSLATE("None")}};
    for (const design::Regenerant& regenerant : design::Regenerants())
        chemicals.emplace_back(wxString::FromUTF8(regenerant.key), wxString::FromUTF8(regenerant.name));
    return chemicals;
}

}  // namespace

TvChemicalDiliutionPanel::TvChemicalDiliutionPanel(Project* project, wxWindow* parent,
                                                   const DilutionDetails& details, Chemicals chemicals,
                                                   const char* kind, const char* label)
    : FormPanel(project, project->GetDetails(), parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                wxTAB_TRAVERSAL),
      m_dilution(details),
      m_chemicals(std::move(chemicals)),
      m_kind(kind),
      m_label(label)
{
    Create();
}

void TvChemicalDiliutionPanel::DoCreateForm()
{
    GetFields().SetFieldWidth(kFieldWidth);
    auto* box = AddLocalizable(new TvStaticBoxSizer(wxVERTICAL, this, m_label));
    wxWindow* const parent = box->GetStaticBox();
    auto* grid = new wxFlexGridSizer(4, FromDIP(wxSize(2 * form::kGap, form::kGap)));
    AddChemical(parent, *grid);
    AddDilutions(parent, *grid);
    box->Add(grid, wxSizerFlags().Border(wxALL, FromDIP(form::kGap)));
    SetSizer(box);
}

void TvChemicalDiliutionPanel::AddChemical(wxWindow* parent, wxSizer& grid)
{
    const wxSizerFlags cell = wxSizerFlags().CentreVertical();
    const wxString kind = m_kind;
    grid.Add(GetFields().AddLabel(parent, kind), cell);
    grid.Add(GetFields().AddSelfStoring(new tvChoiceAdv(m_chemicals, &m_dilution.chemical, parent, wxID_ANY),
                                        kind),
             wxSizerFlags().Expand());
    grid.AddSpacer(0);
    grid.AddSpacer(0);
    const auto row = [&](DetailData& detail, const char* label) {
        GetFields().AddRow(parent, grid, {.key = detail.GetName().c_str(), .label = label}, detail);
        grid.AddSpacer(0);
    };
    row(m_dilution.consumption, wxTRANSLATE("Specific consumption"));
    row(m_dilution.supply, wxTRANSLATE("Concentration as supplied"));
}

void TvChemicalDiliutionPanel::AddDilutions(wxWindow* parent, wxSizer& grid)
{
    const wxSizerFlags cell = wxSizerFlags().CentreVertical();
    grid.AddSpacer(0);
    grid.Add(
        GetFields().CreateField(
            parent, {.key = m_dilution.progressive.GetName().c_str(), .label = wxTRANSLATE("Progressive")},
            m_dilution.progressive),
        cell);
    grid.AddSpacer(0);
    grid.AddSpacer(0);
    const auto text = [&](const char* label) { grid.Add(GetFields().AddLabel(parent, label), cell); };
    grid.AddSpacer(0);
    text(wxTRANSLATE("1. Dilution"));
    text(wxTRANSLATE("2. Dilution"));
    grid.AddSpacer(0);
    const auto pair = [&](const char* label, DetailData& first, DetailData& second) {
        text(label);
        for (DetailData* detail : {&first, &second})
            grid.Add(
                GetFields().CreateField(parent, {.key = detail->GetName().c_str(), .label = label}, *detail),
                cell);
    };
    pair(wxTRANSLATE("Concentration as applied"), m_dilution.first, m_dilution.second);
    grid.Add(GetFields().AddUnitLabel(parent, "%", false), cell);
    pair(wxTRANSLATE("Portion [%]"), m_dilution.firstPortion, m_dilution.secondPortion);
    grid.AddSpacer(0);
    m_temperatureLabel = GetFields().AddLabel(parent, wxTRANSLATE("Temperature"));
    grid.Add(m_temperatureLabel, cell);
    grid.Add(
        GetFields().CreateField(
            parent, {.key = m_dilution.temperature.GetName().c_str(), .label = wxTRANSLATE("Temperature")},
            m_dilution.temperature),
        cell);
    grid.AddSpacer(0);
    grid.AddSpacer(0);
}

void TvChemicalDiliutionPanel::EnableSecondDilution(bool enable)
{
    for (const DetailData* detail : {&m_dilution.second, &m_dilution.secondPortion}) {
        if (TvTextCtrl* field = GetFields().FindField(*detail))
            field->SetEditable(enable);
    }
}

void TvChemicalDiliutionPanel::OnProgressiveChanged()
{
    const bool isProgressive = m_dilution.progressive.GetBoolValue();
    EnableSecondDilution(isProgressive);
    // A first dilution that is the only one takes all.
    if (TvTextCtrl* field = GetFields().FindField(m_dilution.firstPortion))
        field->SetEditable(isProgressive);
}

void TvChemicalDiliutionPanel::DoPrepare()
{
    FormPanel::DoPrepare();
    OnProgressiveChanged();
}

void TvChemicalDiliutionPanel::DoTransferDetailsToWindows()
{
    FormPanel::DoTransferDetailsToWindows();
    OnProgressiveChanged();
}

void TvChemicalDiliutionPanel::DoUpdateUnits()
{
    FormPanel::DoUpdateUnits();
    const wxString unit = UnitSystemManager::GetUnit("°C", GetCurrentDisplayUnitSystem(), true);
    m_temperatureLabel->SetSuffix(" (" + unit + ")");
    m_temperatureLabel->Localize(GetCurrentDisplayUnitSystem());
}

TvChemicalDiliutionPanel* MakeRegenerationPanel(Project* project, wxWindow* parent, OwnerNode& compartment)
{
    DetailList& details = *compartment.GetDetails();
    return new TvChemicalDiliutionPanel(
        project, parent,
        {details.At("stepcomp/rm.chemical"), details.At("stepcomp/level"), details.At("stepcomp/rm.konz"),
         details.At("stepcomp/rm.progressive"), details.At("stepcomp/konz.d"),
         details.At("stepcomp/rm.portion"), details.At("stepcomp/konz.d2"),
         details.At("stepcomp/rm.portion2"), details.At("stepcomp/rm.temp")},
        AllChemicals(), wxTRANSLATE("Kind of regeneration"), wxTRANSLATE("Regenerant"));
}

TvChemicalDiliutionPanel* MakeConditioningPanel(Project* project, wxWindow* parent, OwnerNode& compartment)
{
    DetailList& details = *compartment.GetDetails();
    return new TvChemicalDiliutionPanel(
        project, parent,
        {details.At("stepcomp/cond.chemical"), details.At("stepcomp/cond.spec"),
         details.At("stepcomp/cond.konz"), details.At("stepcomp/cond.progressive"),
         details.At("stepcomp/cond.konz.d"), details.At("stepcomp/cond.portion"),
         details.At("stepcomp/cond.konz.d2"), details.At("stepcomp/cond.portion2"),
         details.At("stepcomp/cond.temp")},
        AllChemicals(), wxTRANSLATE("Kind of conditioning"), wxTRANSLATE("Conditioner"));
}
