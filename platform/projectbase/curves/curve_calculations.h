// SPDX-License-Identifier: MIT
#pragma once

/// Curves of what a liquid does to a bed of resin, over its velocity: the formulas of design/hydraulics.h,
/// point by point. Velocities in m/h, pressure drops in bar a metre of bed, expansions in %. Not a number
/// stands for what is not known.

#include "projectbase/design/hydraulics.h"
#include "projectbase/design/resins.h"
#include "projectbase/projectbase_export.h"
#include "projectbase/units/temperature.h"

#include <limits>
#include <span>
#include <string_view>
#include <tuple>
#include <variant>
#include <vector>

class OwnerNode;
class Project;

enum class DIAGRAM_TYPE : long
{
    PressureDrop = 0,
    BedExpansion = 1
};

/// What flows through a bed.
enum class MEDIUM : long
{
    Water = 0,
    HydrochloricAcid = 1,
    SulfuricAcid = 2,
    SodiumHydroxide = 3,
    SodiumChloride = 4
};

namespace curve_calculations {

/// A dynamic viscosity.
class Viscosity
{
public:
    /// Not known.
    constexpr Viscosity() = default;
    constexpr explicit Viscosity(double milliPascalSeconds) : m_value(milliPascalSeconds) {}

    constexpr double GetValue() const { return m_value; }  ///< mPa s
    constexpr double InPascalSeconds() const { return m_value * 1e-3; }
    constexpr bool IsKnown() const { return m_value > 0.0; }
    bool operator==(const Viscosity&) const = default;

private:
    double m_value = std::numeric_limits<double>::quiet_NaN();
};

/// What a curve is drawn for: a temperature, or a temperature with a viscosity. A viscosity that is not known
/// is that of the medium at the temperature.
using Parameter = std::variant<Temperature, std::tuple<Temperature, Viscosity>>;
PROJECTBASE_EXPORT Temperature TemperatureOf(const Parameter& parameter);
PROJECTBASE_EXPORT Viscosity ViscosityOf(const Parameter& parameter);

/// A medium that curves can be drawn for: water, or a regenerant at a usual content.
struct MediumKind
{
    MEDIUM medium;
    const char* name;                  ///< source text
    std::string_view regenerant = {};  ///< its key; empty for water
    double percent = 0.0;              ///< by mass
};
/// In the order in which they are offered.
PROJECTBASE_EXPORT std::span<const MediumKind> Media();

/// Viscosity of the medium at a temperature; not known outside of those that were measured.
PROJECTBASE_EXPORT Viscosity ViscosityAt(MEDIUM medium, const Temperature& temperature);
/// What flows at a temperature, with the viscosity that was given where one was. A solution has the density
/// of its table at 20 °C and expands as water does.
PROJECTBASE_EXPORT design::Liquid LiquidOf(MEDIUM medium, const Parameter& parameter);

/// ISO unit of what a diagram shows over the velocity.
PROJECTBASE_EXPORT std::string_view UnitOf(DIAGRAM_TYPE type);

/// One point of a curve; not a number for a velocity below 0.
PROJECTBASE_EXPORT double ValueAt(DIAGRAM_TYPE type, double velocity, const design::Resin& resin,
                                  const design::Liquid& liquid);

struct Curve
{
    std::vector<double> velocities;
    std::vector<double> values;
};
/// Points at equal distances from one velocity to the other, in either direction; none where these are not
/// finite.
PROJECTBASE_EXPORT Curve CurveOf(DIAGRAM_TYPE type, const design::Resin& resin, const design::Liquid& liquid,
                                 double start, double end);

/// Up to which velocity a diagram of a resin is of interest: the usual limit of its service, or where it
/// expands to two and a half times its depth in water of 20 °C.
PROJECTBASE_EXPORT double UsualEnd(DIAGRAM_TYPE type, const design::Resin& resin);

/// Where an exchanger of the plant with that resin works on its curve.
struct DesignPoint
{
    const OwnerNode* exchanger = nullptr;
    double velocity = 0.0;
    double value = 0.0;
    Temperature temperature;
};
/// In service for a pressure drop, in its first backwash for an expansion. Points that are not known are left
/// out; a project without a plant has none.
PROJECTBASE_EXPORT std::vector<DesignPoint> DesignPoints(DIAGRAM_TYPE type, const design::Resin& resin,
                                                         const Project& project);

}  // namespace curve_calculations
