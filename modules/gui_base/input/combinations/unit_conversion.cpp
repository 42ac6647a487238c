// SPDX-License-Identifier: MIT
#include "gui_base/input/combinations/unit_conversion.h"

#include "core/ion_units.h"
#include "projectbase/units/temperature.h"
#include "projectbase/units/unit_system_manager.h"

namespace combinations {

namespace {

/// Through the unit that a unit system shows for both; each may be that unit itself.
std::optional<double> ThroughUnitSystem(double value, const std::string& from, const std::string& to,
                                        const std::string& system)
{
    const std::string fromShown = UnitSystemManager::GetUnit(from, system, false);
    const std::string toShown = UnitSystemManager::GetUnit(to, system, false);
    if (fromShown != toShown)
        return std::nullopt;
    return UnitSystemManager::ToISO(to, system, UnitSystemManager::FromISO(from, system, value));
}

std::optional<double> ConvertConcentration(double value, const std::string& from, const std::string& to,
                                           double equivalentWeight)
{
    const bool isOneKind =
        (ions::KindOf(from) == ions::UnitKind::Mass) == (ions::KindOf(to) == ions::UnitKind::Mass);
    // Within one kind the equivalent weight cancels out.
    const double weight = isOneKind ? 1.0 : equivalentWeight;
    if (!(weight > 0.0))
        return std::nullopt;
    return ions::FromMeqPerLitre(ions::ToMeqPerLitre(value, from, weight), to, weight);
}

}  // namespace

std::optional<double> ConvertUnit(double value, const std::string& from, const std::string& to,
                                  double equivalentWeight)
{
    if (from.empty() || from == to)
        return value;
    if (ions::KindOf(from) != ions::UnitKind::None && ions::KindOf(to) != ions::UnitKind::None)
        return ConvertConcentration(value, from, to, equivalentWeight);
    const auto fromTemperature = Temperature::UnitFromText(from);
    const auto toTemperature = Temperature::UnitFromText(to);
    if (fromTemperature && toTemperature)
        return Temperature(value, *fromTemperature).In(*toTemperature);
    for (const std::string& system : UnitSystemManager::GetUnitSystems()) {
        if (const auto converted = ThroughUnitSystem(value, from, to, system))
            return converted;
    }
    return std::nullopt;
}

}  // namespace combinations
