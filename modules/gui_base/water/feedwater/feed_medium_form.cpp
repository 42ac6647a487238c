// SPDX-License-Identifier: MIT
#include "gui_base/water/feedwater/feed_medium_form.h"

#include "projectbase/units/unit_system_manager.h"

#include <wx/translation.h>

namespace {

constexpr int kMediumWidth = 156;
constexpr const char* kMedium = "medium";
constexpr const char* kUnit = "temperature.unit";

AmountLimits LiquidWater()
{
    return {.min = 0.0, .max = 100.0, .unit = "\u00b0C"};
}

}  // namespace

FeedMediumForm::FeedMediumForm(wxWindow* parent, int id, const wxPoint& pos, const wxSize& size, long style)
    : FormBlock(nullptr, parent, id, pos, size, style)
{
    DetailList& own = GetFields().Details();
    own.Add(DetailData(kMedium, DetailType::Long));
    own.Add(DetailData(kTemperature));
    own.Add(DetailData(kUnit, DetailType::String)).SetValue(Temperature::UnitText(TemperatureUnit::Celsius));
    own.Add(DetailData(kDensity, DetailType::Double, "kg/l"));
}

void FeedMediumForm::AddMediumRows(wxWindow* parent, wxSizer& grid, const char* mediumLabel,
                                   DetailData* mediumDetail)
{
    const FormRow medium{.key = kMedium, .label = mediumLabel, .field = FormField::Choice};
    DetailData& detail = mediumDetail != nullptr ? *mediumDetail : Value(kMedium);
    m_medium = static_cast<tvChoice*>(GetFields().AddRow(parent, grid, medium, detail).field);
    // The longest name of a medium would make the form as wide, and there are others in each language.
    m_medium->SetMinSize(parent->FromDIP(wxSize(kMediumWidth, -1)));
    GetFields().AddRow(parent, grid,
                       {.key = kTemperature,
                        .label = wxTRANSLATE("Temperature"),
                        .unitKey = kUnit,
                        .limits = FormLimits{0.0, 0.0},
                        .validatorFlags = ShowPreciseValue});
    GetFields().FindUnitRow(kTemperature)->KeepAmount();
    GetFields().SetUnitLimits(kTemperature, LiquidWater());
}

void FeedMediumForm::Localize(const std::string& unitSystem)
{
    const bool isOther = unitSystem != GetUnitSystem();
    FormBlock::Localize(unitSystem);
    if (!isOther)
        return;
    const std::string unit =
        UnitSystemManager::GetUnit(Temperature::UnitText(TemperatureUnit::Celsius), unitSystem, true);
    ChooseTemperatureUnit(Temperature::UnitFromText(unit).value_or(TemperatureUnit::Celsius));
}

void FeedMediumForm::SetMediumSelection(const Items& mediums)
{
    m_medium->Set(mediums);
    m_medium->TransferDetailToWindow();
    Layout();
}

void FeedMediumForm::SetTemperatureUnitSelection(const Items& units)
{
    GetFields().FindUnitRow(kTemperature)->SetUnits(units);
    Layout();
}

TemperatureUnit FeedMediumForm::ChosenUnit()
{
    return Temperature::UnitFromText(Value(kUnit).GetStdStringValue()).value_or(TemperatureUnit::Celsius);
}

FeedMedium::Data FeedMediumForm::GetMedium()
{
    return {.id = m_medium->GetID(),
            .temperature = Temperature(Value(kTemperature).GetDoubleValue(), ChosenUnit()),
            .density = Value(kDensity).GetDoubleValue()};
}

void FeedMediumForm::SetMedium(const FeedMedium::Data& medium)
{
    // The detail may be the host's: a medium that it holds already is not written again.
    if (DetailData& chosen = *m_medium->GetDetail(); chosen.GetLongValue() != medium.id)
        chosen.SetValue(medium.id);
    Value(kTemperature).SetValue(medium.temperature.In(ChosenUnit()));
    Value(kDensity).SetValue(medium.density);
    TransferDetailsToWindow();
}

void FeedMediumForm::ChooseTemperatureUnit(TemperatureUnit unit)
{
    const Temperature shown(Value(kTemperature).GetDoubleValue(), ChosenUnit());
    Value(kTemperature).SetValue(shown.In(unit));
    Value(kUnit).SetValue(Temperature::UnitText(unit));
    TransferDetailsToWindow();
}
