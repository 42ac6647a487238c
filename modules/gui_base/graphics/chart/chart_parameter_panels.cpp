// SPDX-License-Identifier: MIT
#include "gui_base/graphics/chart/chart_parameter_panels.h"

#include "gui_base/input/form/form_grid.h"
#include "gui_base/input/validation/double_validator.h"
#include "gui_base/report/resin_chart.h"
#include "gui_base/support/translation.h"

#include <wx/translation.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kEmpty = std::numeric_limits<double>::quiet_NaN();
constexpr int kFieldWidth = 72;
constexpr int kDigits = 4;
// Between ice and steam.
constexpr double kColdest = 0.0;
constexpr double kHottest = 100.0;
constexpr double kLeastViscosity = 0.1;  // mPa s
constexpr double kMostViscosity = 1000.0;

}  // namespace

ChartViewerParameterPanel::ChartViewerParameterPanel(wxWindow* parent, std::size_t columns)
    : wxPanel(parent), m_labels(columns), m_units(columns)
{
    m_temperatures.fill(kEmpty);
    std::size_t row = 0;
    for (const Temperature& usual : resin_chart::UsualTemperatures()) {
        if (row < kRows)
            m_temperatures[row++] = usual.In(m_unit);
    }
    auto* grid = form::NewGrid(*this, static_cast<int>(columns));
    SetSizer(grid);
    for (std::size_t i = 0; i < columns; ++i) {
        m_titles.push_back(new wxStaticText(this, wxID_ANY, wxString()));
        grid->Add(m_titles.back(), wxSizerFlags().Bottom());
    }
    m_units[0] = wxString::FromUTF8(Temperature::UnitText(m_unit));
}

TvTextCtrl* ChartViewerParameterPanel::AddField(double* value, double min, double max)
{
    auto* field =
        new TvTextCtrl(this, wxID_ANY, {}, wxDefaultPosition, FromDIP(wxSize(kFieldWidth, -1)), wxTE_RIGHT);
    field->SetValidator(
        DoubleValidator(value, TvTextCtrlFormat::General, kDigits, CheckMin | CheckMax, min, max, kEmpty));
    GetSizer()->Add(field);
    m_fields.push_back(field);
    field->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent& event) {
        event.Skip();
        DoUpdateHints();
    });
    return field;
}

void ChartViewerParameterPanel::AddRow(std::size_t row, double* viscosity)
{
    AddField(&m_temperatures[row], kColdest, kHottest);
    if (viscosity != nullptr)
        AddField(viscosity, kLeastViscosity, kMostViscosity);
}

bool ChartViewerParameterPanel::HasRow(std::size_t row) const
{
    return std::isfinite(m_temperatures[row]);
}

void ChartViewerParameterPanel::SetColumnTitle(std::size_t column, const wxString& label,
                                               const wxString& unit)
{
    m_labels[column] = label;
    m_units[column] = unit;
    UpdateTitles();
}

void ChartViewerParameterPanel::UpdateTitles()
{
    const std::size_t columns = std::max<std::size_t>(m_titles.size(), 1);
    for (std::size_t i = 0; i < m_titles.size(); ++i)
        m_titles[i]->SetLabel(m_labels[i] + "\n[" + m_units[i] + "]");
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        const std::size_t column = i % columns;
        m_fields[i]->SetNameAndUnit(wxString::Format("%s %zu", m_labels[column], i / columns + 1),
                                    m_units[column]);
    }
    if (wxWindow* parent = GetParent())
        parent->Layout();
}

void ChartViewerParameterPanel::UpdateSetLabels(const wxString& label)
{
    SetColumnTitle(0, label, m_units[0]);
}

void ChartViewerParameterPanel::UpdateSetUnits(const wxString& unit)
{
    const auto known = Temperature::UnitFromText(unit.utf8_string());
    // What is just being typed stays, unless it means something else now.
    if (!known || (*known == m_unit && m_units[0] == unit))
        return;
    for (double& value : m_temperatures) {
        if (std::isfinite(value))
            value = Temperature(value, m_unit).In(*known);
    }
    m_unit = *known;
    SetColumnTitle(0, m_labels[0], unit);
    ApplyLimits();
    TransferDataToWindow();
}

void ChartViewerParameterPanel::ApplyLimits()
{
    for (std::size_t i = 0; i < m_fields.size(); i += m_titles.size()) {
        auto* validator = dynamic_cast<DoubleValidator*>(m_fields[i]->GetValidator());
        if (validator == nullptr)
            continue;
        validator->SetMinValue(Temperature(kColdest, TemperatureUnit::Celsius).In(m_unit));
        validator->SetMaxValue(Temperature(kHottest, TemperatureUnit::Celsius).In(m_unit));
    }
}

void ChartViewerParameterPanel::Localize()
{
    DoUpdateHints();
}

ChartViewerNonWaterParameterPdPanel::ChartViewerNonWaterParameterPdPanel(wxWindow* parent)
    : ChartViewerParameterPanel(parent, 1)
{
    for (std::size_t row = 0; row < kRows; ++row)
        AddRow(row, nullptr);
    UpdateSetLabels(i18n::Translated(wxTRANSLATE("Temperature")));
}

std::vector<curve_calculations::Parameter> ChartViewerNonWaterParameterPdPanel::GetSetParameter() const
{
    std::vector<curve_calculations::Parameter> parameters;
    for (std::size_t row = 0; row < kRows; ++row) {
        if (HasRow(row))
            parameters.emplace_back(TemperatureOfRow(row));
    }
    return parameters;
}

ChartViewerWaterParameterPdPanel::ChartViewerWaterParameterPdPanel(wxWindow* parent)
    : ChartViewerParameterPanel(parent, 2)
{
    m_viscosities.fill(kEmpty);
    for (std::size_t row = 0; row < kRows; ++row)
        AddRow(row, &m_viscosities[row]);
    UpdateSetLabels(i18n::Translated(wxTRANSLATE("Temperature")));
    ChartViewerWaterParameterPdPanel::Localize();
}

void ChartViewerWaterParameterPdPanel::Localize()
{
    SetColumnTitle(1, i18n::Translated(wxTRANSLATE("Viscosity")), wxString::FromUTF8("mPa\u00b7s"));
    ChartViewerParameterPanel::Localize();
}

void ChartViewerWaterParameterPdPanel::DoUpdateHints()
{
    constexpr int kHintDecimals = 3;
    for (std::size_t row = 0; row < kRows; ++row) {
        const auto viscosity = curve_calculations::ViscosityAt(MEDIUM::Water, TemperatureOfRow(row));
        const std::string text = numbertext::Format(
            viscosity.GetValue(), {.format = TvTextCtrlFormat::Fixed, .precision = kHintDecimals},
            NumericValidator::LocaleSeparators());
        m_fields[2 * row + 1]->SetHint(wxString::FromUTF8(text));
    }
}

std::vector<curve_calculations::Parameter> ChartViewerWaterParameterPdPanel::GetSetParameter() const
{
    std::vector<curve_calculations::Parameter> parameters;
    for (std::size_t row = 0; row < kRows; ++row) {
        if (HasRow(row))
            parameters.emplace_back(
                std::tuple(TemperatureOfRow(row), curve_calculations::Viscosity(m_viscosities[row])));
    }
    return parameters;
}
