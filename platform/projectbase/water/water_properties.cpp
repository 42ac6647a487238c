// SPDX-License-Identifier: MIT
#include "projectbase/water/water_properties.h"

#include <cmath>
#include <limits>

namespace water {

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
constexpr double kHarnedOwenEnd = 60.0;  // °C

double KellDensity(double t)
{
    const double numerator =
        999.83952 +
        t * (16.945176 + t * (-7.9870401e-3 + t * (-46.170461e-6 + t * (105.56302e-9 - t * 280.54253e-12))));
    return numerator / (1.0 + 16.879850e-3 * t);
}

double MarshallFranckLogKw(double kelvin, double gramsPerMillilitre)
{
    const double inverse = 1.0 / kelvin;
    return -4.098 + inverse * (-3245.2 + inverse * (2.2362e5 - inverse * 3.984e7)) +
           (13.957 + inverse * (-1262.3 + inverse * 8.5641e5)) * std::log10(gramsPerMillilitre);
}

}  // namespace

double Density(double celsius)
{
    return IsLiquid(celsius) ? KellDensity(celsius) : kUnknown;
}

double Viscosity(double celsius)
{
    if (!IsLiquid(celsius))
        return kUnknown;
    const double theta = (celsius + kZeroCelsius) / 300.0;
    return 1e-6 * (280.68 * std::pow(theta, -1.9) + 511.45 * std::pow(theta, -7.7) +
                   61.131 * std::pow(theta, -19.6) + 0.45903 * std::pow(theta, -40.0));
}

double Permittivity(double celsius)
{
    if (!IsLiquid(celsius))
        return kUnknown;
    const double theta = (celsius + kZeroCelsius) / 300.0;
    return -43.7527 * std::pow(theta, -0.05) + 299.504 * std::pow(theta, -1.47) -
           399.364 * std::pow(theta, -2.11) + 221.327 * std::pow(theta, -2.31);
}

double DebyeHueckelA(double celsius)
{
    const double product = Permittivity(celsius) * (celsius + kZeroCelsius);
    return 1.82483e6 * std::sqrt(Density(celsius) / 1000.0) / (product * std::sqrt(product));
}

double IonicProductExponent(double celsius)
{
    if (!IsLiquid(celsius))
        return kUnknown;
    const double kelvin = celsius + kZeroCelsius;
    const auto harnedOwen = [](double t) { return 4470.99 / t - 6.0875 + 0.01706 * t; };
    if (celsius <= kHarnedOwenEnd)
        return harnedOwen(kelvin);
    // What the formulas differ by where they meet fades out towards 100 °C.
    static const double kDifference =
        harnedOwen(kHarnedOwenEnd + kZeroCelsius) +
        MarshallFranckLogKw(kHarnedOwenEnd + kZeroCelsius, KellDensity(kHarnedOwenEnd) / 1000.0);
    return kDifference * (100.0 - celsius) / (100.0 - kHarnedOwenEnd) -
           MarshallFranckLogKw(kelvin, KellDensity(celsius) / 1000.0);
}

double LogActivityOfUnitCharge(double ionicStrength, double debyeHueckelA)
{
    const double root = std::sqrt(ionicStrength);
    const double log = -debyeHueckelA * (root / (1.0 + root) - 0.3 * ionicStrength);
    return log > 0.0 ? 0.0 : log;
}

}  // namespace water
