// SPDX-License-Identifier: MIT
#include "gui_base/water/tools/co2_calculator_dialog.h"

#include "gui_base/support/translation.h"
#include "gui_base/water/rows/unit_lists.h"
#include "projectbase/settings/settings.h"
#include "projectbase/units/temperature.h"

#include <wx/intl.h>

namespace {

constexpr double kMostBicarbonate = 999999.0;
constexpr double kMostPh = 14.0;

}  // namespace

tvCO2CalculatorPanel::tvCO2CalculatorPanel(Project* project, int liquid, wxWindow* parent, int id,
                                           const wxPoint& pos, const wxSize& size, long style,
                                           const wxString& name)
    : LiquidToolPanel(project, liquid, parent, id, pos, size, style, name)
{
    Create();
}

void tvCO2CalculatorPanel::DoCreateControls()
{
    CreateForm();
    AddInputCombinationControl(wxTRANSLATE("pH"), "liquid/ph", 0.0, kMostPh);
    m_temperature =
        AddInputCombinationUnitControl(wxTRANSLATE("Temperature"), "liquid/temp.orig", "liquid/temp.unit",
                                       0.0, 0.0, water_units::OfTemperatures());
    UpdateTemperatureLimits();
    Bind(tvUNITCHANGED_EVENT, [this](wxCommandEvent& event) {
        UpdateTemperatureLimits();
        event.Skip();
    });
    AddInputCombinationUnitControl(wxTRANSLATE("HCO3"), "liquid/hco3.orig", "liquid/hco3.unit", 0.0,
                                   kMostBicarbonate, water_units::OfIons());
    AddDoubleOutputCombinationControl(wxTRANSLATE("CO2"), "liquid/co2.mgl");
}

void tvCO2CalculatorPanel::UpdateTemperatureLimits()
{
    const DetailData limits = Settings::GetSetting("temp.init");
    const auto unit = Temperature::UnitFromText(m_temperature->GetUnit().utf8_string());
    if (!unit)
        return;
    const auto inUnit = [&](double celsius) {
        return Temperature(celsius, TemperatureUnit::Celsius).In(*unit);
    };
    m_temperature->SetMinMax(inUnit(limits.GetMinValue()), inUnit(limits.GetMaxValue()));
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
    GetDetails().At("liquid/calculate.co2").SetValue(true);
    CreateControls(new tvCO2CalculatorPanel(project, liquid, this));
    BindEvents();
    GetPanel()->SynchronizeProject();
}

// The fields are bound to details that may go with the project; nothing of the panel is left by then.
tvCO2CalculatorDialog::~tvCO2CalculatorDialog() = default;

void tvCO2CalculatorDialog::RestoreData()
{
    GetDetails().At("liquid/ph").SetValue(m_pH);
    GetDetails().At("liquid/temp.orig").SetValue(m_temperature);
    GetDetails().At("liquid/hco3.meql").SetValue(m_bicarbonate);
    GetDetails().At("liquid/calculate.co2").SetValue(false);
}
