// SPDX-License-Identifier: MIT
#include "projectbase/water/carbonic_acid.h"

#include "projectbase/water/speciation.h"
#include "projectbase/water/water_properties.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace water {

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

}  // namespace

CarbonicConstants CarbonicConstantsAt(double celsius)
{
    if (!IsLiquid(celsius))
        return {kUnknown, kUnknown, kUnknown};
    const double kelvin = celsius + kZeroCelsius;
    const double inverse = 1.0 / kelvin;
    const double logT = std::log10(kelvin);
    return {
        .pK1 = 356.3094 + 0.06091964 * kelvin - 21834.37 * inverse - 126.8339 * logT +
               1684915.0 * inverse * inverse,
        .pK2 = 107.8871 + 0.03252849 * kelvin - 5151.79 * inverse - 38.92561 * logT +
               563713.9 * inverse * inverse,
        .pKH = -108.3865 - 0.01985076 * kelvin + 6919.53 * inverse + 40.45154 * logT -
               669365.0 * inverse * inverse,
    };
}

AcidConstants AcidConstantsAt(double celsius)
{
    return {.carbonic = CarbonicConstantsAt(celsius),
            .pKw = IonicProductExponent(celsius),
            .pKBisulfate = AssociationExponent(IonPair::HSo4, celsius),
            .debyeHueckelA = DebyeHueckelA(celsius)};
}

Dissociation DissociationFromPh(double pH, double celsius, double ionicStrength)
{
    return DissociationFromPh(pH, AcidConstantsAt(celsius), ionicStrength);
}

Dissociation DissociationFromPh(double pH, const AcidConstants& constants, double ionicStrength)
{
    const double logGamma = LogActivityOfUnitCharge(ionicStrength, constants.debyeHueckelA);
    return {.hydrogen = 1e3 * std::pow(10.0, -pH - logGamma),
            .hydroxide = 1e3 * std::pow(10.0, pH - constants.pKw - logGamma)};
}

double BisulfateShare(double pH, const AcidConstants& constants, double ionicStrength)
{
    const double logGamma = LogActivityOfUnitCharge(ionicStrength, constants.debyeHueckelA);
    const double ratio = std::pow(10.0, constants.pKBisulfate - pH + 3.0 * logGamma);
    return ratio / (1.0 + ratio);
}

CarbonicEquilibrium::CarbonicEquilibrium(double pH, double celsius, double ionicStrength)
    : CarbonicEquilibrium(pH, AcidConstantsAt(celsius), ionicStrength)
{}

CarbonicEquilibrium::CarbonicEquilibrium(double pH, const AcidConstants& constants, double ionicStrength)
{
    const double logGamma = LogActivityOfUnitCharge(ionicStrength, constants.debyeHueckelA);
    m_co2 = std::pow(10.0, constants.carbonic.pK1 - pH + logGamma);
    m_carbonate = std::pow(10.0, pH - constants.carbonic.pK2 - 3.0 * logGamma);
}

double CarbonicEquilibrium::BicarbonateFromTotal(double totalInorganicCarbon) const
{
    return totalInorganicCarbon / (1.0 + m_co2 + m_carbonate);
}

}  // namespace water
