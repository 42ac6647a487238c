// SPDX-License-Identifier: MIT
#include "gui_base/report/resin_chart.h"

#include "gui_base/report/design_report.h"
#include "projectbase/units/unit_system_manager.h"

#include <fmt/format.h>
#include <wx/translation.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace resin_chart {

namespace {

constexpr int kWidth = 900;
constexpr int kHeight = 600;
constexpr int kDigits = 3;
constexpr double kPointSize = 11.0;
// Behind the colours of the curves that a page offers.
constexpr std::size_t kPlaceOfPoints = 5;

class Builder
{
public:
    Builder(const Contents& contents, const ReportContext& context)
        : m_contents(contents),
          m_context(context),
          m_unit(curve_calculations::UnitOf(contents.type)),
          m_chart(std::make_shared<chartdir::XYChart>(kWidth, kHeight))
    {}

    void SetTitles()
    {
        const std::string diagram = m_context.Translated(NameOf(m_contents.type));
        m_chart->setSeparators(m_context.separators);
        m_chart->setNoDataText(m_context.Translated(NoDataText()));
        m_chart->xAxis().setTitle(WithUnit(m_context.Translated(wxTRANSLATE("Velocity")), "m/h"));
        m_chart->yAxis().setTitle(WithUnit(diagram, m_unit));
        if (m_contents.resin != nullptr)
            m_chart->addTitle(m_context.Translated(m_contents.resin->name.c_str()));
        if (std::isfinite(m_contents.start) && std::isfinite(m_contents.end))
            m_chart->xAxis().setLinearScale(ShownVelocity(m_contents.start, m_context.unitSystem),
                                            ShownVelocity(m_contents.end, m_context.unitSystem));
    }

    void AddCurves()
    {
        for (const auto& parameter : m_contents.parameters) {
            auto curve = curve_calculations::CurveOf(
                m_contents.type, *m_contents.resin,
                curve_calculations::LiquidOf(m_contents.medium, parameter), m_contents.start, m_contents.end);
            const std::size_t place = m_place++;
            if (std::ranges::none_of(curve.values, [](double value) { return std::isfinite(value); }))
                continue;
            for (double& velocity : curve.velocities)
                velocity = ShownVelocity(velocity, m_context.unitSystem);
            for (double& value : curve.values)
                value = ShownValue(value);
            chartdir::LineLayer& layer = m_chart->addLineLayer();
            layer.setXData(std::move(curve.velocities));
            layer.addDataSet(std::move(curve.values), NameOfCurve(parameter), place);
        }
    }

    void AddPoints(const Project& project)
    {
        std::size_t place = std::max(m_place, kPlaceOfPoints);
        for (const auto& point :
             curve_calculations::DesignPoints(m_contents.type, *m_contents.resin, project)) {
            // What lies outside a range that was typed is not named, either.
            if (point.velocity < std::min(m_contents.start, m_contents.end) ||
                point.velocity > std::max(m_contents.start, m_contents.end))
                continue;
            chartdir::LineLayer& layer = m_chart->addLineLayer();
            layer.setXData({ShownVelocity(point.velocity, m_context.unitSystem)});
            chartdir::DataSet& set = layer.addDataSet(
                {ShownValue(point.value)},
                fmt::format("{} ({})", designtext::ExchangerTitle(*point.exchanger, m_context),
                            TemperatureText(point.temperature, m_context)),
                place++);
            set.lineWidth = 0.0;
            // Not the marker of the first curves.
            set.style.marker = chartdir::StyleOfSeries(place + 2).marker;
            set.markerSize = kPointSize;
        }
    }

    std::shared_ptr<chartdir::XYChart> Take() { return m_chart; }

private:
    std::string WithUnit(const std::string& name, std::string_view unit) const
    {
        return fmt::format("{} [{}]", name,
                           UnitSystemManager::GetUnit(std::string(unit), m_context.unitSystem, true));
    }
    double ShownValue(double value) const
    {
        return UnitSystemManager::FromISO(m_unit, m_context.unitSystem, value);
    }
    std::string NameOfCurve(const curve_calculations::Parameter& parameter) const
    {
        const std::string temperature =
            TemperatureText(curve_calculations::TemperatureOf(parameter), m_context);
        const auto viscosity = curve_calculations::ViscosityOf(parameter);
        return viscosity.IsKnown() ? fmt::format("{}, {} mPa\u00b7s", temperature,
                                                 m_context.Number(viscosity.GetValue(), kDigits))
                                   : temperature;
    }

    const Contents& m_contents;
    const ReportContext& m_context;
    std::string m_unit;
    std::shared_ptr<chartdir::XYChart> m_chart;
    std::size_t m_place = 0;
};

}  // namespace

double EndOf(DIAGRAM_TYPE type, const design::Resin& resin, const Project& project)
{
    double end = curve_calculations::UsualEnd(type, resin);
    for (const auto& point : curve_calculations::DesignPoints(type, resin, project))
        end = std::max(end, point.velocity);
    return end;
}

const char* NameOf(DIAGRAM_TYPE type)
{
    return type == DIAGRAM_TYPE::PressureDrop ? wxTRANSLATE("Pressure drop") : wxTRANSLATE("Bed expansion");
}

const char* NoDataText()
{
    return wxTRANSLATE("<*font=Times New Roman Italic,size=16,color=0xf11a29*> No data available");
}

std::vector<Temperature> UsualTemperatures()
{
    std::vector<Temperature> temperatures;
    for (const double celsius : {5.0, 10.0, 15.0, 20.0, 25.0})
        temperatures.emplace_back(celsius, TemperatureUnit::Celsius);
    return temperatures;
}

double ShownVelocity(double velocity, const std::string& unitSystem)
{
    return UnitSystemManager::FromISO("m/h", unitSystem, velocity);
}

double VelocityOf(double shown, const std::string& unitSystem)
{
    return UnitSystemManager::ToISO("m/h", unitSystem, shown);
}

std::string TemperatureText(const Temperature& temperature, const ReportContext& context)
{
    const std::string& celsius = Temperature::UnitText(TemperatureUnit::Celsius);
    const double shown =
        UnitSystemManager::FromISO(celsius, context.unitSystem, temperature.In(TemperatureUnit::Celsius));
    return fmt::format("{} {}", context.Number(shown, kDigits),
                       UnitSystemManager::GetUnit(celsius, context.unitSystem, true));
}

std::shared_ptr<chartdir::XYChart> Make(const Contents& contents, const Project& project,
                                        const ReportContext& context)
{
    Builder builder(contents, context);
    builder.SetTitles();
    if (contents.resin != nullptr) {
        builder.AddCurves();
        // Plants are designed for water.
        if (contents.medium == MEDIUM::Water)
            builder.AddPoints(project);
    }
    return builder.Take();
}

}  // namespace resin_chart
