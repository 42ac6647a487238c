// SPDX-License-Identifier: MIT
#include "gui_base/water/tools/co2_calculator_dialog.h"

#include "gui_base/support/translation.h"
#include "gui_base/water/rows/unit_lists.h"
#include "projectbase/project/project_edit.h"
#include "projectbase/settings/settings.h"

#include <wx/translation.h>

tvCO2CalculatorPanel::tvCO2CalculatorPanel(Project* project, int liquid, wxWindow* parent, int id,
                                           const wxPoint& pos, const wxSize& size, long style,
                                           const wxString& name)
    : LiquidToolPanel(project, liquid, parent, id, pos, size, style, name)
{
    Create();
}

void tvCO2CalculatorPanel::AddRow(const wxString& label, const wxString& key, FormRow row)
{
    const std::string keyText = key.utf8_string();
    const std::string labelText = label.utf8_string();
    row.key = keyText.c_str();
    row.label = labelText.c_str();
    AddRows({&row, 1});
}

void tvCO2CalculatorPanel::AddInputCombinationControl(const wxString& label, const wxString& key, double min,
                                                      double max)
{
    AddRow(label, key, {.limits = FormLimits{min, max}});
}

void tvCO2CalculatorPanel::AddInputCombinationUnitControl(const wxString& label, const wxString& key,
                                                          const wxString& unitKey, double min, double max)
{
    const std::string unitText = unitKey.utf8_string();
    AddRow(label, key,
           {.unitKey = unitText.c_str(),
            .units = key.StartsWith("liquid/temp") ? water_units::OfTemperatures : water_units::OfIons,
            .limits = FormLimits{min, max}});
}

void tvCO2CalculatorPanel::AddDoubleOutputCombinationControl(const wxString& label, const wxString& key)
{
    AddRow(label, key, {.field = FormField::Result});
}

void tvCO2CalculatorPanel::DoCreateRows()
{
    AddInputCombinationControl(wxTRANSLATE("pH"), "liquid/ph", 0.0, 14.0);
    AddInputCombinationUnitControl(wxTRANSLATE("Temperature"), "liquid/temp.orig", "liquid/temp.unit", 0.0,
                                   100.0);
    AddInputCombinationUnitControl(wxTRANSLATE("HCO3"), "liquid/hco3.orig", "liquid/hco3.unit", 0.0,
                                   999999.0);
    AddDoubleOutputCombinationControl(wxTRANSLATE("CO2"), "liquid/co2.mgl");
    const DetailData limits = Settings::GetSetting("temp.init");
    GetFields().SetUnitLimits(
        "liquid/temp.orig",
        {.min = limits.GetMinValue(), .max = limits.GetMaxValue(), .unit = limits.GetUnit()});
}

tvCO2CalculatorDialog::tvCO2CalculatorDialog(Project* project, int liquid, wxWindow* parent, int id,
                                             const wxString& title, const wxPoint& pos, const wxSize& size,
                                             long style, const wxString& name)
    : LiquidToolDialog(project, liquid, parent, id,
                       title.empty() ? i18n::Translated(wxTRANSLATE("CO2 Calculator")) : title, pos, size,
                       style, name),
      m_pH(GetDetails().At("liquid/ph").GetDoubleValue()),
      m_temperature(GetDetails().At("liquid/temp.orig").GetDoubleValue()),
      m_bicarbonate(GetDetails().At("liquid/hco3.meql").GetDoubleValue())
{
    for (const char* key : {"liquid/hco3.orig", "liquid/hco3.unit", "liquid/temp.unit"})
        m_typed.emplace_back(&GetDetails().At(key), GetDetails().At(key).GetStoredValue());
    GetDetails().At("liquid/calculate.co2").SetValue(true);
    CreateControls(new tvCO2CalculatorPanel(project, liquid, this));
    BindEvents();
    GetPanel()->SynchronizeProject();
}

// The fields are bound to details that may go with the project; nothing of the panel is left by then.
tvCO2CalculatorDialog::~tvCO2CalculatorDialog() = default;

void tvCO2CalculatorDialog::RestoreData()
{
    const ProjectEdit edit(*GetProject());
    GetDetails().At("liquid/ph").SetValue(m_pH);
    GetDetails().At("liquid/temp.orig").SetValue(m_temperature);
    GetDetails().At("liquid/hco3.meql").SetValue(m_bicarbonate);
    for (const auto& [detail, value] : m_typed)
        detail->RestoreValue(value);
    GetDetails().At("liquid/calculate.co2").SetValue(false);
}

bool tvCO2CalculatorDialog::ShowFor(Project& project, const LiquidData& water, wxWindow* parent)
{
    const ProjectEdit edit(project, wxTRANSLATE("CO2 Calculator"));
    return tvCO2CalculatorDialog(&project, static_cast<int>(water.GetPosition()), parent, wxID_ANY,
                                 i18n::Translated("CO2 Calculator"))
               .ShowModal() == wxID_OK;
}
