// SPDX-License-Identifier: MIT
#include "projectbase/curves/solution_viscosity.h"

#include "projectbase/water/water_properties.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace curve_calculations {

namespace {

struct Solute
{
    std::string_view regenerant;
    std::array<double, 6> v;
    double leastTemperature;  ///< °C
    double mostTemperature;
    double mostContent;  ///< by mass
};
constexpr std::array kSolutes{
    Solute{"HCL",
           {10.3259686042518, 1.71378270014506, 1.48613181961032, 0.00127907449231391, 23.7644188926256,
            2.1827423115052},
           10.0,
           42.5,
           0.36},
    Solute{"H2SO4",
           {7.77699477516578, 1.23443056779035, 1.91643392633129, 0.00563631536944214, 46.0065393457232,
            2.83071965329322},
           -10.0,
           75.0,
           0.782},
    Solute{"NAOH",
           {448.457566713375, 0.00871452408983102, -431.97212334697, 0.0160144202049452, 104.011738670148,
            4.64493684488816},
           12.5,
           70.0,
           0.56},
    Solute{"NACL",
           {16.221788633396, 1.32293086770011, 1.48485985010431, 0.00746912559657377, 30.7802007540575,
            2.05826852322558},
           5.0,
           100.0,
           0.264},
};

}  // namespace

double SolutionViscosity(std::string_view regenerant, double percent, double celsius)
{
    constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
    const auto solute = std::ranges::find(kSolutes, regenerant, &Solute::regenerant);
    const double content = percent / 100.0;
    if (solute == kSolutes.end() || !(content >= 0.0) || content > solute->mostContent ||
        !(celsius >= solute->leastTemperature) || celsius > solute->mostTemperature)
        return kUnknown;
    const auto& v = solute->v;
    constexpr double kPascalSeconds = 1e-3;
    const double ofSolute = kPascalSeconds *
                            std::exp((v[0] * std::pow(content, v[1]) + v[2]) / (v[3] * celsius + 1.0)) /
                            (v[4] * std::pow(content, v[5]) + 1.0);
    return std::pow(water::Viscosity(celsius), 1.0 - content) * std::pow(ofSolute, content);
}

}  // namespace curve_calculations
