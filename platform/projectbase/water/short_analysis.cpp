// SPDX-License-Identifier: MIT
#include "projectbase/water/short_analysis.h"

#include "core/polarization.h"
#include "projectbase/water/conductivity.h"

#include <boost/math/tools/toms748_solve.hpp>

#include <algorithm>
#include <cmath>
#include <limits>

namespace water {

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
constexpr double kEquivalentWeight = 58.44;       // g/eq of NaCl
constexpr double kEquivalentConductance = 126.4;  // S cm²/eq of NaCl at 25 °C
constexpr double kMaxConcentration = 1e3 * kMaxConductivityStrength;

double SodiumChlorideConductivity(double meqPerLitre, double celsius)
{
    Composition salt;
    salt[Species::Na] = meqPerLitre;
    salt[Species::Cl] = meqPerLitre;
    return Conductivity(salt, celsius);
}

}  // namespace

double SodiumChlorideFromTds(double tds)
{
    return tds >= 0.0 ? tds / kEquivalentWeight : kUnknown;
}

double SodiumChlorideFromConductivity(double conductivity, double celsius)
{
    if (conductivity == 0.0 && std::isfinite(SodiumChlorideConductivity(0.0, celsius)))
        return 0.0;
    const auto excess = [&](double meqPerLitre) {
        return SodiumChlorideConductivity(meqPerLitre, celsius) - conductivity;
    };
    if (!(conductivity > 0.0) || !(excess(kMaxConcentration) >= 0.0))
        return kUnknown;

    // Conductivity grows with the concentration, so the root lies between a start scaled down and one scaled
    // up.
    double low =
        std::min(ions::ReversePolarizationEffect(conductivity) / kEquivalentConductance, kMaxConcentration);
    double high = low;
    while (excess(low) > 0.0)
        low *= 0.5;
    while (excess(high) < 0.0)
        high = std::min(2.0 * high, kMaxConcentration);
    if (low == high)
        return low;

    namespace tools = boost::math::tools;
    std::uintmax_t steps = 60;
    const auto root = tools::toms748_solve(excess, low, high, tools::eps_tolerance<double>(44), steps);
    return 0.5 * (root.first + root.second);
}

}  // namespace water
