// SPDX-License-Identifier: MIT
#pragma once

/// The inputs for which curves are drawn: temperatures, or temperatures with viscosities, a row for each
/// curve. A row without a temperature has no curve. GUI thread only.
///
/// A committed field sends a wxEVT_TEXT_ENTER that climbs to the parents.

#include "gui_base/gui_base_export.h"
#include "gui_base/input/controls/tv_textctrl.h"
#include "projectbase/curves/curve_calculations.h"

#include <wx/panel.h>
#include <wx/stattext.h>

#include <array>
#include <string>
#include <vector>

/// What both panels share: the rows with their temperatures.
class GUI_BASE_EXPORT ChartViewerParameterPanel : public wxPanel
{
public:
    static constexpr std::size_t kRows = 5;

    /// The parameters of the rows that have a temperature.
    virtual std::vector<curve_calculations::Parameter> GetSetParameter() const = 0;
    /// What the temperatures are called, in the user's language.
    void UpdateSetLabels(const wxString& label);
    /// Their unit: "°C", "°F" or "K"; they stay the same temperatures. Another text is no unit for them and
    /// changes nothing.
    void UpdateSetUnits(const wxString& unit);
    /// Shows the texts in the present language.
    virtual void Localize();

    /// In reading order.
    std::vector<TvTextCtrl*> GetFields() const { return m_fields; }

protected:
    ChartViewerParameterPanel(wxWindow* parent, std::size_t columns);

    /// Adds a row with a field for each of its columns; `viscosity` is null where there is no second one.
    void AddRow(std::size_t row, double* viscosity);
    Temperature TemperatureOfRow(std::size_t row) const { return {m_temperatures[row], m_unit}; }
    bool HasRow(std::size_t row) const;
    /// Column titles, the temperatures' first.
    void SetColumnTitle(std::size_t column, const wxString& label, const wxString& unit);
    virtual void DoUpdateHints() {}

    std::vector<TvTextCtrl*> m_fields;

private:
    TvTextCtrl* AddField(double* value, double min, double max);
    void UpdateTitles();
    void ApplyLimits();

    std::array<double, kRows> m_temperatures;
    TemperatureUnit m_unit = TemperatureUnit::Celsius;
    std::vector<wxStaticText*> m_titles;
    std::vector<wxString> m_labels;
    std::vector<wxString> m_units;
};

/// Temperatures: the viscosity of the medium follows from them.
class GUI_BASE_EXPORT ChartViewerNonWaterParameterPdPanel : public ChartViewerParameterPanel
{
public:
    explicit ChartViewerNonWaterParameterPdPanel(wxWindow* parent);

    std::vector<curve_calculations::Parameter> GetSetParameter() const override;
};

/// Viscosities and temperatures of a water: an empty viscosity is that of pure water, which the field shows
/// as its hint.
class GUI_BASE_EXPORT ChartViewerWaterParameterPdPanel : public ChartViewerParameterPanel
{
public:
    explicit ChartViewerWaterParameterPdPanel(wxWindow* parent);

    std::vector<curve_calculations::Parameter> GetSetParameter() const override;
    void Localize() override;

protected:
    void DoUpdateHints() override;

private:
    std::array<double, kRows> m_viscosities;
};
