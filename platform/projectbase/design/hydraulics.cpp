// SPDX-License-Identifier: MIT
#include "projectbase/design/hydraulics.h"

#include "projectbase/water/water_properties.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace design {

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
constexpr double kSecondsPerHour = 3600.0;
constexpr double kMetresPerMillimetre = 1e-3;
constexpr double kGravity = 9.80665;  // m/s²

double Reynolds(double metresPerSecond, const Beads& beads, const Liquid& liquid)
{
    return liquid.density * metresPerSecond * beads.diameter * kMetresPerMillimetre / liquid.viscosity;
}

/// Exponent of Richardson & Zaki for the Reynolds number of the single bead.
double HinderingExponent(double reynolds)
{
    if (reynolds < 0.2)
        return 4.65;
    if (reynolds < 1.0)
        return 4.35 * std::pow(reynolds, -0.03);
    return reynolds < 500.0 ? 4.45 * std::pow(reynolds, -0.1) : 2.39;
}

}  // namespace

Liquid WaterAt(double celsius)
{
    return {water::Density(celsius), water::Viscosity(celsius)};
}

double AreaOf(double diameter)
{
    return std::numbers::pi / 4.0 * diameter * diameter;
}

double SmallestDiameter(double flow, double velocity)
{
    if (!(flow > 0.0) || !(velocity > 0.0))
        return kUnknown;
    constexpr double kStepsPerMetre = 10.0;
    // A diameter that keeps the velocity but for its last digits does keep it.
    constexpr double kRounding = 1e-9;
    const double least = std::sqrt(4.0 / std::numbers::pi * flow / velocity);
    return std::ceil(least * kStepsPerMetre * (1.0 - kRounding)) / kStepsPerMetre;
}

double PressureGradient(double velocity, const Beads& beads, const Liquid& liquid)
{
    constexpr double kPascalPerBar = 1e5;
    const double v = velocity / kSecondsPerHour;
    const double d = beads.diameter * kMetresPerMillimetre;
    const double e = beads.voidFraction;
    const double viscous = 150.0 * liquid.viscosity * (1.0 - e) * (1.0 - e) * v / (e * e * e * d * d);
    const double inertial = 1.75 * liquid.density * (1.0 - e) * v * v / (e * e * e * d);
    return (viscous + inertial) / kPascalPerBar;
}

double TerminalVelocity(const Beads& beads, const Liquid& liquid)
{
    if (!(beads.density > liquid.density))
        return kUnknown;
    const double d = beads.diameter * kMetresPerMillimetre;
    const double buoyant = kGravity * d * d * (beads.density - liquid.density) / (18.0 * liquid.viscosity);
    // From Stokes' velocity on, each pass halves the error at least.
    constexpr int kPasses = 60;
    constexpr double kAgreement = 1e-12;
    double v = buoyant;
    for (int pass = 0; pass < kPasses; ++pass) {
        const double next = 0.5 * (v + buoyant / (1.0 + 0.15 * std::pow(Reynolds(v, beads, liquid), 0.687)));
        if (std::abs(next - v) <= kAgreement * v)
            break;
        v = next;
    }
    return v * kSecondsPerHour;
}

double FluidisingVelocity(const Beads& beads, const Liquid& liquid)
{
    const double d = beads.diameter * kMetresPerMillimetre;
    const double archimedes = kGravity * d * d * d * liquid.density * (beads.density - liquid.density) /
                              (liquid.viscosity * liquid.viscosity);
    const double reynolds = std::sqrt(33.7 * 33.7 + 0.0408 * archimedes) - 33.7;
    return reynolds * liquid.viscosity / (liquid.density * d) * kSecondsPerHour;
}

double Expansion(double velocity, const Beads& beads, const Liquid& liquid)
{
    const double terminal = TerminalVelocity(beads, liquid);
    if (!(velocity >= 0.0) || !(velocity < terminal))
        return kUnknown;
    if (velocity <= FluidisingVelocity(beads, liquid))
        return 0.0;
    const double n = HinderingExponent(Reynolds(terminal / kSecondsPerHour, beads, liquid));
    const double expanded = std::pow(velocity / terminal, 1.0 / n);
    constexpr double kPercent = 100.0;
    const double expansion = kPercent * ((1.0 - beads.voidFraction) / (1.0 - expanded) - 1.0);
    return expansion > 0.0 ? expansion : 0.0;
}

}  // namespace design
