// SPDX-License-Identifier: MIT
#include "gui_base/input/combinations/limit_conversion.h"

#include "core/ion_units.h"
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

}  // namespace

std::optional<double> ConvertLimit(double value, const std::string& from, const std::string& to)
{
    if (from.empty() || from == to)
        return value;
    const ions::UnitKind kind = ions::KindOf(from);
    if (kind != ions::UnitKind::None && kind == ions::KindOf(to)) {
        // Within one kind the equivalent weight cancels out, so any will do.
        constexpr double kAnyWeight = 1.0;
        return ions::FromMeqPerLitre(ions::ToMeqPerLitre(value, from, kAnyWeight), to, kAnyWeight);
    }
    for (const std::string& system : UnitSystemManager::GetUnitSystems()) {
        if (const auto converted = ThroughUnitSystem(value, from, to, system))
            return converted;
    }
    return std::nullopt;
}

}  // namespace combinations
