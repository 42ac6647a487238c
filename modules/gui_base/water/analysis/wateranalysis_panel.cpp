// SPDX-License-Identifier: MIT
#include "gui_base/water/analysis/wateranalysis_panel.h"

#include "core/polarization.h"
#include "gui_base/input/binding/transfer_detail.h"
#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_radiobutton.h"
#include "gui_base/input/validation/temperature_validator.h"
#include "gui_base/support/events.h"
#include "gui_base/support/help_file_provider.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/analysis/balance_panel.h"
#include "gui_base/water/tools/alkalization_dialog.h"
#include "projectbase/project/project_edit.h"
#include "projectbase/project/range_faults.h"
#include "projectbase/settings/settings.h"
#include "projectbase/units/unit_system_manager.h"
#include "projectbase/water/blend.h"
#include "projectbase/water/composition.h"
#include "projectbase/water/normalization.h"

#include <wx/bmpbuttn.h>
#include <wx/collpane.h>
#include <wx/log.h>

#include <stdexcept>
#include <utility>

namespace {

/// Level of the calculation to which the waters of a project belong: everything else follows from them.
constexpr long kWaterStatus = 1;

constexpr const char* kTypeKey = "liquid/analysis.type";
constexpr const char* kFull = "FULL";
constexpr const char* kShortTds = "SHORT_TDS";
constexpr const char* kShortCond = "SHORT_COND";

constexpr double kMinCelsius = 0.0;
constexpr double kMaxCelsius = 100.0;

LiquidData& RequireLiquid(Project* project, std::size_t index)
{
    if (project == nullptr)
        throw std::invalid_argument("WaterAnalysisPanel::WaterAnalysisPanel: a water needs a project");
    return project->GetLiquid(index);
}

}  // namespace

WaterAnalysisPanel::WaterAnalysisPanel(Project* project, std::size_t detailIndex, wxWindow* parent, int id,
                                       TVHelpFileProvider* help, const wxPoint& pos, const wxSize& size,
                                       long style)
    : ModulePanelBase(project, parent, id, pos, size, style, "water analysis"),
      m_liquid(RequireLiquid(project, detailIndex)),
      m_help(help)
{
    BindPanelEvents();
    Create();
}

void WaterAnalysisPanel::DoCreateControls()
{
    // Recreated controls start from an empty set of variables.
    m_grids.clear();
    m_fields = std::make_unique<FieldSet>(*m_liquid.GetDetails());
    m_limitedTemperatureUnit.clear();
    CreateControls();
    for (const auto& holder : m_fields->Localizables())
        AddLocalizable(holder);
    for (DetailContainerWindow* window : m_fields->SelfRefreshing())
        AddToDetailContainerWindows(window);
}

void WaterAnalysisPanel::SetTransferInfo()
{
    m_fields->VisitBindings([this](const TransferDetail& binding) { AddTransfer(binding); });
}

void WaterAnalysisPanel::SetValidators(const std::string&)
{
    m_fields->SetValidators();
}

void WaterAnalysisPanel::DoConnectTvTextCtrlsToStatusbar()
{
    const TvTextCtrl* const tds = FindField("liquid/tds.short");
    const TvTextCtrl* const conductivity = FindField("liquid/cond.short");
    for (TvTextCtrl* field : m_fields->GetNumbers()) {
        if (field->IsEditable() && field != tds && field != conductivity)
            SetupInputControl(field);
        else
            ConnectControlToStatusBar(field);
    }
}

void WaterAnalysisPanel::DoPrepare()
{
    NormalizeLiquid();
    DoLocalize();
}

long WaterAnalysisPanel::GetPanelProjectStatus()
{
    return kWaterStatus;
}

void WaterAnalysisPanel::DoResetPanelStatus() {}

void WaterAnalysisPanel::DoUpdateUnits()
{
    m_fields->UpdateNames(GetCurrentDisplayUnitSystem());
}

void WaterAnalysisPanel::DoLocalize()
{
    m_furtherPane->SetLabel(i18n::Translated("Further properties"));
    m_defaultUnit->SetToolTip(i18n::Translated("Set default unit (based on 'Na' unit)"));
    m_fields->UpdateNames(GetCurrentDisplayUnitSystem());
}

void WaterAnalysisPanel::DoUpdateValidators()
{
    UpdateTempOrigCtrlValidatorLimits();
    m_fields->ApplyUnitLimits();
}

void WaterAnalysisPanel::UpdateTempOrigCtrlValidatorLimits()
{
    const std::string text = m_temperatureUnit->GetDetail()->GetStdStringValue();
    auto* validator = dynamic_cast<TemperatureValidator*>(m_temperatureField->GetValidator());
    if (text == m_limitedTemperatureUnit || validator == nullptr)
        return;
    m_limitedTemperatureUnit = text;
    Temperature min(kMinCelsius, TemperatureUnit::Celsius);
    Temperature max(kMaxCelsius, TemperatureUnit::Celsius);
    Temperature& temperature = m_fields->TemperatureOf("liquid/temp.orig");
    temperature.SetUnit(TemperatureUnit::Celsius);
    try {
        const auto unit = Temperature::UnitFromText(text);
        if (!unit)
            throw std::runtime_error("unknown temperature unit");
        const DetailData& initial = Settings::GetSetting("temp.init");
        if (initial.HasMinValue())
            min.SetValue(initial.GetMinValue());
        if (initial.HasMaxValue())
            max.SetValue(initial.GetMaxValue());
        temperature.SetUnit(*unit);
    } catch (const std::exception&) {
        GetProject()->GetLogger().Error(
            "Silent exception in  WaterAnalysisPanel::UpdateTempOrigCtrlValidatorLimits, set limits from "
            "Celsius as "
            "default.");
    }
    validator->SetLimits(min.ConvertedTo(temperature.GetUnit()), max.ConvertedTo(temperature.GetUnit()));
}

void WaterAnalysisPanel::DoTransferDetailsToWindows()
{
    ModulePanelBase::DoTransferDetailsToWindows();
    if (!m_fields)
        return;
    TellAlkalization();
    CheckAnalysisType();
    ShowAlkalization();
}

void WaterAnalysisPanel::UpdateToolTips()
{
    const DetailList& details = *m_liquid.GetDetails();
    const auto show = [this](const char* key, const wxString& text) {
        TvTextCtrl* field = FindField(key);
        if (field->GetToolTipText() != text)
            field->SetToolTip(text);
    };
    const auto number = [](double value) {
        return wxString::FromUTF8(
            numbertext::Format(value, {.precision = 4}, NumericValidator::LocaleSeparators()));
    };
    const double residue = water::DryResidue(details.At("liquid/tds").GetDoubleValue(),
                                             details.At("liquid/hco3.mgl").GetDoubleValue());
    show("liquid/tds",
         wxString::Format(i18n::Translated("Sum of all constituents; dry residue at 180 %s: %s mg/l"),
                          wxString::FromUTF8("\u00b0C"), number(residue)));
    const double error =
        water::ElectroneutralityError({.cations = details.At("liquid/sum.c.meql").GetDoubleValue(),
                                       .anions = details.At("liquid/sum.a.meql").GetDoubleValue()});
    const wxString balance = wxString::Format(
        i18n::Translated("Balance error: %s %%, the difference of both sums in percent of their total"),
        number(error));
    show("liquid/sum.c.meql", balance);
    show("liquid/sum.a.meql", balance);
}

bool WaterAnalysisPanel::DoConcerns(const ProjectChanges& changes)
{
    // What belongs to the project beside its waters: the arrangement.
    return changes.Touches(m_liquid.GetOwner()) || changes.Touches({});
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
        GetProject()->NormalizeIon(GetLiquidIndex(), ion.utf8_string(), checkName);
    } catch (const std::exception& error) {
        GetProject()->GetLogger().Error(std::string("Exception in  WaterAnalysisPanel::NormalizeIon: ") +
                                        error.what());
        throw;
    }
}

void WaterAnalysisPanel::NormalizeLiquid()
{
    GetProject()->CalculateLiquid(GetLiquidIndex());
    TellAlkalization();
}

void WaterAnalysisPanel::CalculateAlkalization()
{
    GetProject()->CalculateAlkalization(GetLiquidIndex());
    TellAlkalization();
}

void WaterAnalysisPanel::TellAlkalization()
{
    const water::AlkalizationResult result = m_liquid.GetAlkalization();
    const wxString reason = alkalization::Explain(result);
    if (std::exchange(m_toldAlkalization, result) != result && !reason.empty())
        GetProject()->GetLogger().Warning(
            (wxString(wxTRANSLATE("Alkalization")) + ": " + reason).utf8_string());
}

void WaterAnalysisPanel::ShowAlkalization()
{
    const DetailList& details = *m_liquid.GetDetails();
    const std::string agent = details.At("liquid/alk.type").GetStdStringValue();
    wxString text = i18n::Translated(alkalization::Explain(m_liquid.GetAlkalization()));
    if (m_liquid.GetAlkalization() == water::AlkalizationResult::Done) {
        const auto number = [](double value, int decimals) {
            return wxString::FromUTF8(
                numbertext::Format(value, {.format = TvTextCtrlFormat::Fixed, .precision = decimals},
                                   NumericValidator::LocaleSeparators()));
        };
        const std::string unitSystem = GetCurrentDisplayUnitSystem();
        const double dose =
            UnitSystemManager::FromISO("mg/l", unitSystem, details.At("liquid/alk.dosed").GetDoubleValue());
        text = wxString::Format(i18n::Translated("%s: %s %s, pH %s"),
                                i18n::Translated(wxString::FromUTF8(water::AlkalizingAgentName(agent))),
                                number(dose, 2),
                                wxString::FromUTF8(UnitSystemManager::GetUnit("mg/l", unitSystem, true)),
                                number(details.At("liquid/alk.ph").GetDoubleValue(), 2));
    }
    if (m_alkalization->GetLabelText() == text)
        return;
    m_alkalization->SetLabelText(text);
    m_alkalization->GetContainingSizer()->Layout();
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

WaterAnalysisPanel::AnalysisType WaterAnalysisPanel::GetAnalysisType() const
{
    const wxString type = m_liquid.GetDetails()->At(kTypeKey).GetStringValue();
    if (type == kShortTds)
        return AnalysisType::ShortTds;
    return type == kShortCond ? AnalysisType::ShortConductivity : AnalysisType::Full;
}

void WaterAnalysisPanel::SetAnalysisType(const char* type)
{
    m_liquid.GetDetails()->At(kTypeKey).SetValue(type);
    UpdateAndSignal();
}

void WaterAnalysisPanel::UpdateAndSignal()
{
    UpdateAnalysis();
    SignalChanges();
}

void WaterAnalysisPanel::ShortAnalysisTDS()
{
    SetAnalysisType(kShortTds);
}

void WaterAnalysisPanel::ShortAnalysisCond()
{
    SetAnalysisType(kShortCond);
}

void WaterAnalysisPanel::CheckAnalysisType()
{
    const AnalysisType type = GetAnalysisType();
    TvRadioButton* const button = type == AnalysisType::Full       ? m_full
                                  : type == AnalysisType::ShortTds ? m_shortTds
                                                                   : m_shortCond;
    if (!button->GetValue())
        button->SetValue(true);
    EnableInputFields();
    EnableDefaultUnitButton(type == AnalysisType::Full);
}

void WaterAnalysisPanel::EnableInputFields()
{
    const AnalysisType type = GetAnalysisType();
    // What is mixed of other waters is typed there.
    const bool isBlend = water::IsBlend(*m_liquid.GetDetails());
    const bool full = type == AnalysisType::Full && !isBlend;
    // Blends ask for every ion of the waters that they are made of.
    DisableShortAnalysis(GetProject()->GetDetails().At("arrangement/calculate.blend").GetBoolValue());
    FindField("liquid/tds.short")->Enable(type == AnalysisType::ShortTds);
    FindField("liquid/cond.short")->Enable(type == AnalysisType::ShortConductivity);
    for (const auto& grid : m_grids) {
        for (wateranalysis::IonGrid::Row& row : grid->Rows())
            EnableRow(row, full);
    }
    const bool typedCo2 = !isBlend && !m_liquid.GetDetails()->At("liquid/calculate.co2").GetBoolValue();
    m_temperatureField->Enable(!isBlend);
    m_temperatureUnit->Enable(!isBlend);
    FindField("liquid/co2.orig")->Enable(typedCo2);
    m_co2Unit->Enable(typedCo2);
    m_balance->Enable(full);
}

void WaterAnalysisPanel::EnableRow(wateranalysis::IonGrid::Row& row, bool enable)
{
    if (row.name != nullptr) {
        row.name->Enable(enable);
        wxString name = row.name->GetValue();
        enable = enable && !name.Trim().empty();
    }
    if (row.ion->kind == wateranalysis::IonRowKind::Equivalent)
        enable = enable && m_liquid.GetDetails()->At("liquid/balance.ph").GetBoolValue();
    row.typed->Enable(enable);
    row.unit->Enable(enable);
}

void WaterAnalysisPanel::DisableShortAnalysis(bool disable)
{
    m_shortTds->Enable(!disable);
    m_shortCond->Enable(!disable);
}

void WaterAnalysisPanel::EnableDefaultUnitButton(bool enable)
{
    m_defaultUnit->Enable(enable);
}

TvTextCtrl* WaterAnalysisPanel::FindField(const std::string& key) const
{
    return m_fields->FindField(key);
}

tvUnitChoice* WaterAnalysisPanel::FindUnitChoice(const std::string& key) const
{
    return m_fields->FindUnitChoice(key);
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

void WaterAnalysisPanel::ShowHelp() const
{
    if (m_help != nullptr)
        m_help->DisplayHelpSection("wateranalysis.html");
}
