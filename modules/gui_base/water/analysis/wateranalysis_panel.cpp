// SPDX-License-Identifier: MIT
#include "gui_base/water/analysis/wateranalysis_panel.h"

#include "core/polarization.h"
#include "gui_base/input/controls/flow_sizer.h"
#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/support/events.h"
#include "gui_base/support/exception_text.h"
#include "gui_base/support/help_file_provider.h"
#include "gui_base/water/analysis/analysis_type_box.h"
#include "gui_base/water/analysis/balance_panel.h"
#include "gui_base/water/analysis/ions_box.h"
#include "gui_base/water/analysis/others_box.h"
#include "gui_base/water/analysis/summary_box.h"
#include "gui_base/water/rows/unit_lists.h"
#include "gui_base/water/tools/alkalization_dialog.h"
#include "projectbase/project/project_edit.h"
#include "projectbase/project/range_faults.h"
#include "projectbase/water/blend_recipe.h"
#include "projectbase/water/normalization.h"

#include <stdexcept>
#include <utility>

namespace {

/// Level of the calculation to which the waters of a project belong: everything else follows from them.
constexpr long kWaterStatus = 1;

LiquidData& RequireLiquid(Project* project, std::size_t index)
{
    if (project == nullptr)
        throw std::invalid_argument("WaterAnalysisPanel::WaterAnalysisPanel: a water needs a project");
    return project->GetLiquid(index);
}

template <typename Rows>
std::vector<wxString> Labels(const Rows& rows)
{
    std::vector<wxString> labels;
    for (const auto& row : rows)
        labels.push_back(wxString::FromUTF8(row.label));
    return labels;
}

}  // namespace

WaterAnalysisPanel::WaterAnalysisPanel(Project* project, std::size_t detailIndex, wxWindow* parent, int id,
                                       TVHelpFileProvider* help, const wxPoint& pos, const wxSize& size,
                                       long style)
    : WaterAnalysisPanel(CreatedByDerived(), project, detailIndex, parent, id, help, pos, size, style)
{
    Create();
}

WaterAnalysisPanel::WaterAnalysisPanel(CreatedByDerived, Project* project, std::size_t detailIndex,
                                       wxWindow* parent, int id, TVHelpFileProvider* help, const wxPoint& pos,
                                       const wxSize& size, long style)
    : FormPanel(project, *RequireLiquid(project, detailIndex).GetDetails(), parent, id, pos, size, style,
                "water analysis"),
      m_liquid(project->GetLiquid(detailIndex)),
      m_help(help),
      m_units{.ordinary = water_units::OfIons(), .equivalent = water_units::OfEquivalents()}
{}

void WaterAnalysisPanel::CreateControls()
{
    using namespace wateranalysis;
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, FromDIP(form::kGap));
    auto* outer = new wxBoxSizer(wxVERTICAL);
    m_head = new FlowSizer;
    m_typeBox = new AnalysisTypeBox(this, GetFields());
    m_head->Add(m_typeBox, wxSizerFlags(spaced).Expand());
    m_balance = new BalancePanel(this, GetFields());
    m_head->Add(m_balance, wxSizerFlags(spaced).Expand());
    outer->Add(m_head);

    m_columns = new wxBoxSizer(wxHORIZONTAL);
    m_ions = new IonsBox(this, GetFields(), m_units);
    CreateCationGrid(wxTRANSLATE("Cations"), Labels(kCationRows));
    CreateAnionGrid(wxTRANSLATE("Anions"), Labels(kAnionRows));
    m_columns->Add(m_ions, wxSizerFlags(spaced).Top());
    m_rightColumn = new wxBoxSizer(wxVERTICAL);
    m_rightColumn->Add(CreateOthersPanel(), wxSizerFlags(spaced).Expand());
    m_summary = CreateSummaryPanel();
    m_rightColumn->Add(m_summary, wxSizerFlags(spaced).Expand());
    m_columns->Add(m_rightColumn);
    outer->Add(m_columns);
    SetSizer(outer);
    DoArrange(WidthToArrange());
}

wxSizer* WaterAnalysisPanel::CreateCationGrid(const wxString& title, const std::vector<wxString>& labels)
{
    return m_ions->AddCations(title, labels);
}

wxSizer* WaterAnalysisPanel::CreateAnionGrid(const wxString& title, const std::vector<wxString>& labels)
{
    return m_ions->AddAnions(title, labels);
}

wxSizer* WaterAnalysisPanel::CreateOthersPanel()
{
    m_others = new wateranalysis::OthersBox(this, GetFields(), m_units.ordinary);
    return m_others;
}

wxSizer* WaterAnalysisPanel::CreateSummaryPanel()
{
    return new wateranalysis::SummaryBox(this, GetFields());
}

void WaterAnalysisPanel::SetTransferInfo()
{
    FormPanel::DoSetTransferDetails();
}

void WaterAnalysisPanel::SetValidators(const std::string&)
{
    FormPanel::DoSetValidators();
}

void WaterAnalysisPanel::DoConnectTvTextCtrlsToStatusbar()
{
    FormPanel::DoConnectTvTextCtrlsToStatusbar();
    // What a short analysis is based on has a handler of its own.
    for (TvTextCtrl* field : GetFields().GetNumbers()) {
        if (field->IsEditable() && field != &m_typeBox->GetTds() && field != &m_typeBox->GetConductivity())
            SetupInputControl(field);
    }
}

void WaterAnalysisPanel::DoPrepare()
{
    NormalizeLiquid();
    FormPanel::DoPrepare();
}

long WaterAnalysisPanel::GetPanelProjectStatus()
{
    return kWaterStatus;
}

void WaterAnalysisPanel::DoLocalize()
{
    m_ions->Localize();
    FormPanel::DoLocalize();
}

void WaterAnalysisPanel::DoUpdateValidators()
{
    UpdateTempOrigCtrlValidatorLimits();
    GetFields().ApplyUnitLimits();
}

void WaterAnalysisPanel::UpdateTempOrigCtrlValidatorLimits()
{
    if (!m_others->UpdateTemperatureLimits())
        GetProject()->GetLogger().Error(
            "Silent exception in  WaterAnalysisPanel::UpdateTempOrigCtrlValidatorLimits, set limits from "
            "Celsius as default.");
}

void WaterAnalysisPanel::DoTransferDetailsToWindows()
{
    FormPanel::DoTransferDetailsToWindows();
    if (m_others == nullptr)
        return;
    TellAlkalization();
    CheckAnalysisType();
    m_others->ShowAlkalization(m_liquid, GetCurrentDisplayUnitSystem());
    if (m_others->ShowTemperature(GetCurrentDisplayUnitSystem()))
        FitAndLayout();
}

bool WaterAnalysisPanel::FocusDetail(const DetailAddress& address)
{
    TvCheckBox* const automatic = m_balance->GetAutoCheckBox();
    if (address == DetailAddress{m_liquid.GetOwner(), "liquid/balance.auto"} && automatic->CanAcceptFocus()) {
        automatic->SetFocus();
        return true;
    }
    return FormPanel::FocusDetail(address);
}

bool WaterAnalysisPanel::DoConcerns(const ProjectChanges& changes)
{
    // What belongs to the project beside its waters: the arrangement. When waters come, go or move, another
    // one is the first, and a blend may be an ordinary water or no longer one.
    return changes.Touches(m_liquid.GetOwner()) || changes.Touches({}) || changes.HasStructure();
}

void WaterAnalysisPanel::DoSendVisualizeMessageEvent()
{
    std::vector<std::string> keys;
    for (const RangeFault& fault : RangeFaults(*m_liquid.GetDetails()))
        keys.push_back(fault.address.key);
    if (m_sentViolations == keys)
        return;
    m_sentViolations = keys;
    wxQueueEvent(wxGetTopLevelParent(this),
                 new VisualizeMessageEvent(tvVISUALIZE_MESSAGE, GetId(),
                                           wxString::FromUTF8(GetProject()->GetModuleType()),
                                           GetUnitSystemDisplay(), std::move(keys)));
}

void WaterAnalysisPanel::NormalizeIon(const wxString& ion, bool checkName)
{
    try {
        GetProject()->NormalizeIon(m_liquid.GetPosition(), ion.utf8_string(), checkName);
    } catch (const std::exception& error) {
        GetProject()->GetLogger().Error(ExceptionText("WaterAnalysisPanel::NormalizeIon", error));
        throw;
    }
}

void WaterAnalysisPanel::NormalizeLiquid()
{
    GetProject()->CalculateLiquid(m_liquid.GetPosition());
    TellAlkalization();
}

void WaterAnalysisPanel::CalculateAlkalization()
{
    GetProject()->CalculateAlkalization(m_liquid.GetPosition());
    TellAlkalization();
}

void WaterAnalysisPanel::TellAlkalization()
{
    const water::AlkalizationResult result = m_liquid.GetAlkalization();
    const wxString reason = wxString::FromUTF8(water::Explain(result));
    if (std::exchange(m_toldAlkalization, result) != result && !reason.empty())
        GetProject()->GetLogger().Warning(
            (wxString(wxTRANSLATE("Alkalization")) + ": " + reason).utf8_string());
}

double WaterAnalysisPanel::ReversePolarizationEffect(double conductivity)
{
    return ions::ReversePolarizationEffect(conductivity);
}

void WaterAnalysisPanel::UpdateAnalysis()
{
    SynchronizeProject();
    CheckAnalysisType();
}

void WaterAnalysisPanel::SignalChanges()
{
    SendChangeEvent();
}

void WaterAnalysisPanel::InitializeExtended()
{
    water::ResetHydrogenAndHydroxide(*m_liquid.GetDetails());
}

bool WaterAnalysisPanel::IsFull() const
{
    const DetailList& liquid = *m_liquid.GetDetails();
    // What is mixed of other waters is typed there.
    return wateranalysis::GetAnalysisType(liquid) == wateranalysis::AnalysisType::Full &&
           !GetProject()->IsMixed(m_liquid);
}

void WaterAnalysisPanel::StoreType(wateranalysis::AnalysisType type)
{
    wateranalysis::SetAnalysisType(*m_liquid.GetDetails(), type);
    UpdateAndSignal();
}

void WaterAnalysisPanel::UpdateAndSignal()
{
    UpdateAnalysis();
    SignalChanges();
}

void WaterAnalysisPanel::ShortAnalysisTDS()
{
    StoreType(wateranalysis::AnalysisType::ShortTds);
}

void WaterAnalysisPanel::ShortAnalysisCond()
{
    StoreType(wateranalysis::AnalysisType::ShortConductivity);
}

void WaterAnalysisPanel::CheckAnalysisType()
{
    const wateranalysis::AnalysisType type = wateranalysis::GetAnalysisType(*m_liquid.GetDetails());
    m_typeBox->ShowType(type);
    EnableInputFields();
    EnableDefaultUnitButton(type == wateranalysis::AnalysisType::Full);
}

void WaterAnalysisPanel::EnableInputFields()
{
    // Blends ask for every ion of the waters that they are made of.
    DisableShortAnalysis(GetProject()->GetDetails().At("arrangement/calculate.blend").GetBoolValue());
    m_ions->EnableRows(IsFull());
    m_others->EnableInputs(!GetProject()->IsMixed(m_liquid));
    m_balance->Enable(IsFull());
}

void WaterAnalysisPanel::DisableShortAnalysis(bool disable)
{
    m_typeBox->EnableShortTypes(!disable);
}

void WaterAnalysisPanel::EnableDefaultUnitButton(bool enable)
{
    m_ions->GetDefaultUnitButton().Enable(enable);
}

const wateranalysis::IonGrid& WaterAnalysisPanel::GetFocusedGrid() const
{
    return m_ions->GetFocusedGrid();
}

void WaterAnalysisPanel::StoreTypedValues(const std::vector<std::pair<std::string, double>>& values)
{
    {
        const ProjectEdit edit(*GetProject(), wxTRANSLATE("paste column"));
        for (const auto& [key, value] : values)
            m_liquid.GetDetails()->At(key).SetValue(value);
    }
    UpdateAndSignal();
}

void WaterAnalysisPanel::StoreUnitOfIons(const std::string& unit, water::TypedNumbers numbers)
{
    {
        const ProjectEdit edit(*GetProject(), wxTRANSLATE("unit of all ions"));
        water::SetUnitOfIons(*m_liquid.GetDetails(), unit, numbers);
    }
    GetFields().UpdateNames(GetCurrentDisplayUnitSystem());
    DoUpdateValidators();
    UpdateAndSignal();
}

void WaterAnalysisPanel::ShowHelp() const
{
    if (m_help != nullptr)
        m_help->DisplayHelpSection("wateranalysis.html");
}
