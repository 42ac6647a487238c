// SPDX-License-Identifier: MIT
#include "projectbase/design/regenerants.h"

#include "dbinterfaces/master_database.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace design {

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

}  // namespace

const std::vector<Regenerant>& Regenerants()
{
    static const std::vector<Regenerant> regenerants = MasterDatabase::GetRegenerants();
    return regenerants;
}

const Regenerant* FindRegenerant(std::string_view key)
{
    const auto found = std::ranges::find(Regenerants(), key, &Regenerant::key);
    return found == Regenerants().end() ? nullptr : &*found;
}

double SolutionDensity(const Regenerant& regenerant, double percent)
{
    const auto& points = regenerant.densities;
    if (points.empty() || !(percent >= points.front().percent && percent <= points.back().percent))
        return kUnknown;
    const auto above = std::ranges::lower_bound(points, percent, {}, &DBObjects::SolutionDensity::percent);
    if (above == points.begin())
        return above->density;
    const auto below = above - 1;
    return std::lerp(below->density, above->density,
                     (percent - below->percent) / (above->percent - below->percent));
}

double SolutionVolume(const Regenerant& regenerant, double mass, double percent)
{
    if (!(mass >= 0.0) || !(percent > 0.0))
        return kUnknown;
    constexpr double kLitresPerCubicMetre = 1000.0;
    return mass / (percent / 100.0 * SolutionDensity(regenerant, percent)) / kLitresPerCubicMetre;
}

}  // namespace design
