// SPDX-License-Identifier: MIT
#include "projectbase/curves/curve_calculations.h"

#include "projectbase/curves/solution_viscosity.h"
#include "projectbase/design/plant_design.h"
#include "projectbase/design/regenerants.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/water/water_properties.h"

#include <wx/translation.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace curve_calculations {

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
constexpr double kReference = 20.0;  // °C, of the densities of solutions

constexpr std::array kMedia{
    MediumKind{MEDIUM::Water, wxTRANSLATE("Water")},
    MediumKind{MEDIUM::HydrochloricAcid, wxTRANSLATE("Hydrochloric acid 5 %"), "HCL", 5.0},
    MediumKind{MEDIUM::SulfuricAcid, wxTRANSLATE("Sulfuric acid 2 %"), "H2SO4", 2.0},
    MediumKind{MEDIUM::SodiumHydroxide, wxTRANSLATE("Sodium hydroxide 4 %"), "NAOH", 4.0},
    MediumKind{MEDIUM::SodiumChloride, wxTRANSLATE("Sodium chloride brine 10 %"), "NACL", 10.0},
};

const MediumKind* Find(MEDIUM medium)
{
    const auto found = std::ranges::find(kMedia, medium, &MediumKind::medium);
    return found == kMedia.end() ? nullptr : &*found;
}

double DensityAt(MEDIUM medium, double celsius)
{
    const MediumKind* kind = Find(medium);
    const double ofWater = water::Density(celsius);
    if (kind == nullptr || kind->regenerant.empty())
        return kind == nullptr ? kUnknown : ofWater;
    constexpr double kPerLitre = 1000.0;
    const design::Regenerant* solute = design::FindRegenerant(kind->regenerant);
    return solute == nullptr ? kUnknown
                             : kPerLitre * design::SolutionDensity(*solute, kind->percent) * ofWater /
                                   water::Density(kReference);
}

}  // namespace

Temperature TemperatureOf(const Parameter& parameter)
{
    if (const auto* alone = std::get_if<Temperature>(&parameter))
        return *alone;
    return std::get<Temperature>(std::get<1>(parameter));
}

Viscosity ViscosityOf(const Parameter& parameter)
{
    const auto* both = std::get_if<1>(&parameter);
    return both == nullptr ? Viscosity() : std::get<Viscosity>(*both);
}

std::span<const MediumKind> Media()
{
    return kMedia;
}

Viscosity ViscosityAt(MEDIUM medium, const Temperature& temperature)
{
    const MediumKind* kind = Find(medium);
    const double celsius = temperature.In(TemperatureUnit::Celsius);
    if (kind == nullptr)
        return {};
    constexpr double kMilliPascals = 1e3;
    return Viscosity(kMilliPascals * (kind->regenerant.empty()
                                          ? water::Viscosity(celsius)
                                          : SolutionViscosity(kind->regenerant, kind->percent, celsius)));
}

design::Liquid LiquidOf(MEDIUM medium, const Parameter& parameter)
{
    const Temperature temperature = TemperatureOf(parameter);
    const Viscosity given = ViscosityOf(parameter);
    const Viscosity viscosity = given.IsKnown() ? given : ViscosityAt(medium, temperature);
    return {DensityAt(medium, temperature.In(TemperatureUnit::Celsius)), viscosity.InPascalSeconds()};
}

std::string_view UnitOf(DIAGRAM_TYPE type)
{
    return type == DIAGRAM_TYPE::PressureDrop ? "bar/m" : "%";
}

double ValueAt(DIAGRAM_TYPE type, double velocity, const design::Resin& resin, const design::Liquid& liquid)
{
    if (!(velocity >= 0.0))
        return kUnknown;
    return type == DIAGRAM_TYPE::PressureDrop
               ? design::PressureGradient(velocity, design::BeadsOf(resin), liquid)
               : design::Expansion(velocity, design::BeadsOf(resin), liquid);
}

Curve CurveOf(DIAGRAM_TYPE type, const design::Resin& resin, const design::Liquid& liquid, double start,
              double end)
{
    constexpr int kSteps = 200;
    Curve curve;
    if (!std::isfinite(start) || !std::isfinite(end) || !std::isfinite(end - start))
        return curve;
    for (int i = 0; i <= kSteps; ++i) {
        const double velocity = i == kSteps ? end : start + (end - start) * i / kSteps;
        curve.velocities.push_back(velocity);
        curve.values.push_back(ValueAt(type, velocity, resin, liquid));
    }
    return curve;
}

double UsualEnd(DIAGRAM_TYPE type, const design::Resin& resin)
{
    if (type == DIAGRAM_TYPE::PressureDrop)
        return resin.maxVelocity;
    constexpr double kMuch = 150.0;  // %
    constexpr double kFastest = 200.0;
    const design::Liquid liquid = design::WaterAt(kReference);
    double velocity = 5.0;
    while (velocity < kFastest && ValueAt(type, velocity, resin, liquid) < kMuch)
        velocity += 5.0;
    return velocity;
}

std::vector<DesignPoint> DesignPoints(DIAGRAM_TYPE type, const design::Resin& resin, const Project& project)
{
    std::vector<DesignPoint> points;
    const iex::IEXProject* const plant = iex::PlantOf(project);
    if (plant == nullptr)
        return points;
    for (const design::ExchangerDesign& exchanger : design::DesignOf(*plant).exchangers) {
        const bool hasResin =
            std::ranges::any_of(exchanger.compartments, [&](const auto& bed) { return bed.resin == &resin; });
        // The design knows a pressure drop only of what it knows the viscosity of.
        const bool isService = type == DIAGRAM_TYPE::PressureDrop;
        const double ofDesign = isService ? exchanger.pressureDrop : exchanger.expansion;
        if (!hasResin || std::isnan(ofDesign))
            continue;
        const Temperature temperature(exchanger.temperature, TemperatureUnit::Celsius);
        const double velocity = isService ? exchanger.velocity : design::BackwashVelocity(*exchanger.node);
        const double value =
            ValueAt(type, velocity, resin, design::WaterAt(temperature.In(TemperatureUnit::Celsius)));
        if (std::isfinite(velocity) && std::isfinite(value))
            points.push_back({exchanger.node, velocity, value, temperature});
    }
    return points;
}

}  // namespace curve_calculations
