// SPDX-License-Identifier: MIT
#pragma once

/// Charts of a resin over the velocity, as windows and reports show them alike: a curve for each temperature,
/// in the units and the language of their context, with the points at which the exchangers of the plant work.

#include "chartdir/xy_chart.h"
#include "gui_base/report/report_page_source.h"
#include "gui_base_report/gui_base_report_export.h"
#include "projectbase/curves/curve_calculations.h"

#include <memory>
#include <string>
#include <vector>

class Project;

namespace resin_chart {

/// What a chart shows. Velocities in m/h.
struct Contents
{
    DIAGRAM_TYPE type = DIAGRAM_TYPE::PressureDrop;
    MEDIUM medium = MEDIUM::Water;
    const design::Resin* resin = nullptr;
    std::vector<curve_calculations::Parameter> parameters{};
    double start = 0.0;
    double end = 0.0;
};

/// Where a chart of a resin usually ends (m/h): as far as its curve is of interest, and the plant works on
/// it.
GUI_BASE_REPORT_EXPORT double EndOf(DIAGRAM_TYPE type, const design::Resin& resin, const Project& project);
/// "Pressure drop" and the like, as a source text.
GUI_BASE_REPORT_EXPORT const char* NameOf(DIAGRAM_TYPE type);
/// What stands in a chart without a curve: a source text with marks.
GUI_BASE_REPORT_EXPORT const char* NoDataText();
/// The temperatures that a chart begins with.
GUI_BASE_REPORT_EXPORT std::vector<Temperature> UsualTemperatures();
/// A velocity (m/h) in the unit system of the context, and back.
GUI_BASE_REPORT_EXPORT double ShownVelocity(double velocity, const std::string& unitSystem);
GUI_BASE_REPORT_EXPORT double VelocityOf(double shown, const std::string& unitSystem);

/// A temperature as the context writes it, with its unit.
GUI_BASE_REPORT_EXPORT std::string TemperatureText(const Temperature& temperature,
                                                   const ReportContext& context);

/// The chart. Parameters of which nothing is known have no curve.
GUI_BASE_REPORT_EXPORT std::shared_ptr<chartdir::XYChart> Make(const Contents& contents,
                                                               const Project& project,
                                                               const ReportContext& context);

}  // namespace resin_chart
