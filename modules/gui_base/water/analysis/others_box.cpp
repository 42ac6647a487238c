// SPDX-License-Identifier: MIT
#include "gui_base/water/analysis/others_box.h"

#include "core/ion_table.h"
#include "gui_base/input/controls/tv_button.h"
#include "gui_base/input/controls/tv_checkbox.h"
#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/input/controls/tv_unitlabel.h"
#include "gui_base/input/form/form_grid.h"
#include "gui_base/input/validation/temperature_validator.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/rows/limit_readings.h"
#include "gui_base/water/rows/property_rows.h"
#include "gui_base/water/rows/unit_lists.h"
#include "gui_base/water/tools/alkalization_dialog.h"
#include "projectbase/settings/settings.h"
#include "projectbase/units/unit_system_manager.h"
#include "projectbase/water/detection_limits.h"
#include "projectbase/water/laboratory_import.h"

#include <wx/statbox.h>

#include <limits>
#include <stdexcept>

namespace wateranalysis {
namespace {

constexpr double kMinCelsius = 0.0;
constexpr double kMaxCelsius = 100.0;
constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

wxSizerFlags Cell()
{
    return wxSizerFlags().CentreVertical();
}

/// Limits of a temperature that the user may have narrowed, as long as both can be read.
struct TemperatureLimits
{
    Temperature min{kMinCelsius, TemperatureUnit::Celsius};
    Temperature max{kMaxCelsius, TemperatureUnit::Celsius};

    void TakeSetting()
    {
        const DetailData& initial = Settings::GetSetting("temp.init");
        if (initial.HasMinValue())
            min.SetValue(initial.GetMinValue());
        if (initial.HasMaxValue())
            max.SetValue(initial.GetMaxValue());
    }
};

TvTextCtrl* AddProperty(FieldSet& fields, wxWindow* parent, wxSizer& grid, const PropertyRow& row)
{
    const wxString label = wxString::FromUTF8(row.label);
    const wxString unit = wxString::FromUTF8(row.unit);
    grid.Add(fields.AddLabel(parent, label, ":"), Cell());
    const int limits = water::TakesDetectionLimit(row.key) ? DetectionLimits : 0;
    TvTextCtrl* field = fields.AddInput(parent, {.key = row.key,
                                                 .label = label,
                                                 .unit = unit,
                                                 .validatorFlags = ShowPreciseValue | limits,
                                                 .undef = kUnknown,
                                                 .precision = row.precision});
    grid.Add(field, Cell());
    grid.Add(fields.AddUnitLabel(parent, unit, true), Cell());
    return field;
}

std::vector<std::pair<wxString, wxString>> ReadingItems()
{
    std::vector<std::pair<wxString, wxString>> items;
    for (const ReadingChoice& choice : kLimitReadings)
        items.emplace_back(wxString::FromUTF8(water::CodeOf(choice.reading)), choice.label);
    return items;
}

/// "NaOH: 12.50 mg/l, pH 9.00".
wxString DescribeDose(const DetailList& details, const std::string& unitSystem)
{
    const auto number = [](double value) {
        return wxString::FromUTF8(numbertext::Format(value,
                                                     {.format = TvTextCtrlFormat::Fixed, .precision = 2},
                                                     NumericValidator::LocaleSeparators()));
    };
    const std::string agent = details.At("liquid/alk.type").GetStdStringValue();
    const double dose =
        UnitSystemManager::FromISO("mg/l", unitSystem, details.At("liquid/alk.dosed").GetDoubleValue());
    return wxString::Format(i18n::Translated("%s: %s %s, pH %s"),
                            i18n::Translated(wxString::FromUTF8(water::AlkalizingAgentName(agent))),
                            number(dose),
                            wxString::FromUTF8(UnitSystemManager::GetUnit("mg/l", unitSystem, true)),
                            number(details.At("liquid/alk.ph").GetDoubleValue()));
}

}  // namespace

OthersBox::OthersBox(wxWindow* parent, FieldSet& fields, const std::vector<wxString>& co2Units)
    : TvStaticBoxSizer(wxVERTICAL, parent, wxTRANSLATE("Others")), m_fields(fields)
{
    m_fields.AddLocalizable<TvStaticBoxSizer>(this);
    auto* grid = form::NewGrid(*GetStaticBox());
    AddTemperature(*grid);
    for (const PropertyRow& row : kMainProperties)
        AddProperty(m_fields, GetStaticBox(), *grid, row);
    m_ph = m_fields.FindField("liquid/ph");
    AddTypedRows(*grid);
    AddCo2(*grid, co2Units);
    Add(grid, wxSizerFlags().Border(wxALL, parent->FromDIP(form::kGap)));
    AddButtons();
    AddFurtherProperties();
}

void OthersBox::AddTemperature(wxSizer& grid)
{
    wxWindow* box = GetStaticBox();
    const wxString label(wxTRANSLATE("Temperature"));
    const wxString celsius = wxString::FromUTF8("\u00b0C");
    grid.Add(m_fields.AddLabel(box, label, ":"), Cell());
    m_temperature = m_fields.AddInput(box, {.key = "liquid/temp.orig",
                                            .label = label,
                                            .unitKey = "liquid/temp.unit",
                                            .validatorFlags = CheckMin | CheckMax | ShowPreciseValue,
                                            .precision = 4,
                                            .inIsoUnits = true,
                                            .isTemperature = true});
    grid.Add(m_temperature, Cell());
    m_temperatureUnit = m_fields.AddUnitChoice(box, "liquid/temp.unit", water_units::OfTemperatures(), label);
    grid.Add(m_temperatureUnit, Cell().Expand());

    // The same temperature in the unit of the displayed system, where it was typed in another one.
    m_shownTemperature = {grid.AddSpacer(0)};
    m_shownTemperature.push_back(grid.Add(
        m_fields.AddResult(box, {.key = "liquid/temp", .label = label, .unit = celsius, .precision = 4}),
        Cell()));
    m_shownTemperature.push_back(grid.Add(m_fields.AddUnitLabel(box, celsius, true), Cell()));
}

bool OthersBox::ShowTemperature(const std::string& unitSystem)
{
    const std::string typed = m_fields.Details().At("liquid/temp.unit").GetStdStringValue();
    const bool isOther = typed != UnitSystemManager::GetUnit("\u00b0C", unitSystem, true);
    if (m_shownTemperature.front()->IsShown() == isOther)
        return false;
    for (wxSizerItem* item : m_shownTemperature)
        item->Show(isOther);
    return true;
}

TvTextCtrl* OthersBox::AddTyped(wxSizer& grid, NumberSpec spec, const std::vector<wxString>& units)
{
    wxWindow* box = GetStaticBox();
    spec.validatorFlags |= ShowPreciseValue;
    spec.precision = 6;
    spec.inIsoUnits = true;
    grid.Add(m_fields.AddLabel(box, spec.label, ":"), Cell());
    TvTextCtrl* field = m_fields.AddInput(box, spec);
    grid.Add(field, Cell());
    m_typed.push_back({field, m_fields.AddUnitChoice(box, spec.unitKey, units, spec.label)});
    grid.Add(m_typed.back().unit, Cell().Expand());
    return field;
}

void OthersBox::AddTypedRows(wxSizer& grid)
{
    for (const AlkalinityRow& row : kAlkalinityRows) {
        AddTyped(grid,
                 {.key = row.key, .label = row.label, .unitKey = row.unitKey, .validatorFlags = ZeroAsEmpty},
                 water_units::OfAlkalinities());
        m_typed.back().ofFullAnalysis = true;
    }
    for (const MeasuredRow& row : kMeasuredRows) {
        const std::string key = std::string("liquid/") + row.name;
        AddTyped(grid,
                 {.key = key + ".orig", .label = row.label, .unitKey = key + ".unit", .undef = kUnknown},
                 row.name == std::string_view("hardness.measured") ? water_units::OfHardness()
                                                                   : water_units::OfConductivity());
    }
}

void OthersBox::AddCo2(wxSizer& grid, const std::vector<wxString>& units)
{
    wxWindow* box = GetStaticBox();
    DetailList& details = m_fields.Details();
    const wxString label(wxTRANSLATE("CO2:"));
    grid.Add(m_fields.AddLabel(box, label), Cell());
    m_co2 =
        m_fields.AddInput(box, {.key = "liquid/co2.orig",
                                .label = label,
                                .unitKey = "liquid/co2.unit",
                                .validatorFlags = CheckMax | ZeroAsEmpty | ShowPreciseValue | DetectionLimits,
                                .precision = 6,
                                .inIsoUnits = true});
    grid.Add(m_co2, Cell());
    m_co2Unit = m_fields.AddUnitChoice(box, "liquid/co2.unit", units, label);
    m_fields.SetUnitLimits("liquid/co2.orig", {.max = details.At("liquid/co2.mgl").GetMaxValue(),
                                               .unit = "mg/l",
                                               .equivalentWeight = ions::FindIon("co2")->equivalentWeight});
    grid.Add(m_co2Unit, Cell().Expand());

    auto* calculate = m_fields.AddLocalizable(new TvCheckBox(
        box, wxID_ANY, wxTRANSLATE("Calculate CO2"), wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator,
        wxASCII_STR(wxCheckBoxNameStr), &details.At("liquid/calculate.co2")));
    m_fields.AddSelfRefreshing(calculate);
    grid.Add(calculate, Cell());
    grid.Add(m_fields.AddResult(box, {.key = "liquid/co2.mgl", .label = label, .unit = "mg/l"}), Cell());
    grid.Add(m_fields.AddUnitLabel(box, "mg/l", false), Cell());
}

void OthersBox::AddButtons()
{
    const wxSizerFlags spaced = wxSizerFlags().Border(wxALL, GetStaticBox()->FromDIP(form::kGap));
    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    m_alkalize = AddButton(*buttons, wxTRANSLATE("Alkalize"), wxTRANSLATE("Specify alkalizing agent"));
    m_co2Calculator = AddButton(*buttons, wxTRANSLATE("CO2 Calculator"), wxTRANSLATE("Open CO2 Calculator"));
    Add(buttons, spaced);
    m_alkalization = new wxStaticText(GetStaticBox(), wxID_ANY, wxString());
    Add(m_alkalization, spaced);
}

TvButton* OthersBox::AddButton(wxSizer& buttons, const char* label, const char* tooltip)
{
    auto* button = m_fields.AddLocalizable(new TvButton(GetStaticBox(), wxID_ANY, label));
    button->SetTranslatableToolTip(tooltip);
    buttons.Add(button, wxSizerFlags().Border(wxRIGHT, GetStaticBox()->FromDIP(2 * form::kGap)));
    return button;
}

void OthersBox::AddFurtherProperties()
{
    m_furtherProperties =
        new AdvancedInputOptions(GetStaticBox(), wxID_ANY, wxTRANSLATE("Further properties"));
    wxWindow* pane = m_furtherProperties->GetOptions();
    auto* grid = form::NewGrid(*pane);
    for (const PropertyRow& row : kFurtherProperties)
        AddProperty(m_fields, pane, *grid, row);
    m_fields.AddRow(pane, *grid,
                    {.key = "liquid/limits",
                     .label = wxTRANSLATE("Values below a limit of detection count as"),
                     .field = FormField::Choice,
                     .items = ReadingItems});
    pane->SetSizer(grid);
    Add(m_furtherProperties, wxSizerFlags().Expand().Border(wxALL, pane->FromDIP(form::kGap)));
    m_furtherProperties->KeepState();
}

std::vector<ValueKeys::Cell> OthersBox::GetValues() const
{
    std::vector<ValueKeys::Cell> values{{m_temperature, m_temperatureUnit}};
    for (const PropertyRow& row : kMainProperties)
        values.push_back({m_fields.FindField(row.key)});
    for (const Typed& row : m_typed)
        values.push_back({row.field, row.unit});
    values.push_back({m_co2, m_co2Unit});
    for (const PropertyRow& row : kFurtherProperties)
        values.push_back({m_fields.FindField(row.key)});
    return values;
}

void OthersBox::EnableInputs(bool enable)
{
    m_temperature->Enable(enable);
    m_temperatureUnit->Enable(enable);
    const bool isTyped = enable && !m_fields.Details().At("liquid/calculate.co2").GetBoolValue();
    m_co2->Enable(isTyped);
    m_co2Unit->Enable(isTyped);
    const bool isFull = m_fields.Details().At("liquid/analysis.type").GetStdStringValue() == "FULL";
    for (const Typed& row : m_typed) {
        const bool isOpen = enable && (isFull || !row.ofFullAnalysis);
        row.field->Enable(isOpen);
        row.unit->Enable(isOpen);
    }
}

bool OthersBox::UpdateTemperatureLimits()
{
    const std::string text = m_temperatureUnit->GetDetail()->GetStdStringValue();
    auto* validator = dynamic_cast<TemperatureValidator*>(m_temperature->GetValidator());
    if (text == m_limitedTemperatureUnit || validator == nullptr)
        return true;
    m_limitedTemperatureUnit = text;
    TemperatureLimits limits;
    Temperature& temperature = m_fields.TemperatureOf("liquid/temp.orig");
    temperature.SetUnit(TemperatureUnit::Celsius);
    bool isKnown = false;
    try {
        if (const auto unit = Temperature::UnitFromText(text)) {
            limits.TakeSetting();
            temperature.SetUnit(*unit);
            isKnown = true;
        }
    } catch (const std::exception&) {
        limits = {};
    }
    validator->SetLimits(limits.min.ConvertedTo(temperature.GetUnit()),
                         limits.max.ConvertedTo(temperature.GetUnit()));
    return isKnown;
}

void OthersBox::ShowAlkalization(const LiquidData& liquid, const std::string& unitSystem)
{
    const water::AlkalizationResult result = liquid.GetAlkalization();
    const wxString text = result == water::AlkalizationResult::Done
                              ? DescribeDose(m_fields.Details(), unitSystem)
                              : i18n::Translated(wxString::FromUTF8(water::Explain(result)));
    if (m_alkalization->GetLabelText() == text)
        return;
    m_alkalization->SetLabelText(text);
    Layout();
}

void OthersBox::Localize(const std::string& unitSystem)
{
    TvStaticBoxSizer::Localize(unitSystem);
    m_furtherProperties->Localize(unitSystem);
}

}  // namespace wateranalysis
