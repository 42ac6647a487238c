// SPDX-License-Identifier: MIT
#include "projectbase/water/conductivity.h"

#include "projectbase/water/water_properties.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <numeric>

namespace water {

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

using ions::Conductance;

/// At that temperature, S cm²/eq.
double ConductanceAt(const Conductance& conductance, double celsius, double fluidity)
{
    if (conductance.c == 0.0)
        return conductance.at25 * fluidity;
    const auto shape = [&conductance](double t) {
        return (conductance.a * t + conductance.b) * t + conductance.c;
    };
    return conductance.at25 * shape(celsius) / shape(25.0);
}

// In the order of IonPair; those of the carbonate pairs are estimates.
constexpr std::array<Conductance, kIonPairCount> kPairs{{
    {0.0, 0.0, 0.0, 0.0},
    {0.0, 0.0, 0.0, 0.0},
    {30.0, 0.002309, 5.459, 219.2},
    {36.0, -0.002439, 4.253, 129.7},
    {52.0, 0.000927, 0.8337, 29.56},
    {20.0, 0.0, 0.0, 0.0},
    {0.0, 0.0, 0.0, 0.0},
    {20.0, 0.0, 0.0, 0.0},
    {0.0, 0.0, 0.0, 0.0},
    {20.0, 0.00336, 3.845, 89.51},
}};

/// By how much the other ions slow one of charge |z| down: γ to the power of Appelo's rule, γ by Davies with
/// his first constant, 0.2.
class Attenuation
{
public:
    Attenuation(double ionicStrength, double debyeHueckelA)
    {
        const double root = std::sqrt(ionicStrength);
        const double log = -debyeHueckelA * (root / (1.0 + root) - 0.2 * ionicStrength);
        for (std::size_t z = 1; z < m_factors.size(); ++z) {
            const auto charge = static_cast<double>(z);
            const double power = ionicStrength < 0.36 * charge ? 0.6 / std::sqrt(charge) : root / charge;
            m_factors[z] = std::pow(10.0, std::min(log, 0.0) * charge * charge * power);
        }
    }
    double For(int charge) const { return m_factors[static_cast<std::size_t>(std::abs(charge))]; }

private:
    std::array<double, 4> m_factors{};
};

}  // namespace

double Conductivity(const Speciation& speciation, double celsius)
{
    if (!speciation.converged || !(speciation.stoichiometricStrength <= kMaxConductivityStrength) ||
        !IsLiquid(celsius))
        return kUnknown;
    const Attenuation attenuation(speciation.ionicStrength, DebyeHueckelA(celsius));
    const double fluidity = Viscosity(25.0) / Viscosity(celsius);

    double sum = 0.0;  // mol/l × S cm²/mol
    const auto add = [&](double amount, int charge, const Conductance& conductance) {
        if (amount > 0.0 && charge != 0)
            sum += amount * std::abs(charge) * ConductanceAt(conductance, celsius, fluidity) *
                   attenuation.For(charge);
    };
    for (std::size_t i = 0; i < kSpeciesCount; ++i)
        add(speciation.free[i], kCharges[i], kSpecies[i]->conductance);
    for (std::size_t p = 0; p < kIonPairCount; ++p)
        add(speciation.pairs[p], kPairCharges[p], kPairs[p]);
    return 1e3 * sum;
}

double Conductivity(const Composition& composition, double celsius)
{
    return Conductivity(Speciate(composition, celsius), celsius);
}

double OsmoticPressure(const Speciation& speciation, double celsius)
{
    if (!speciation.converged || !(speciation.ionicStrength <= kMaxOsmoticStrength) || !IsLiquid(celsius))
        return kUnknown;
    const double density = Density(celsius);
    // Litres that hold 1 kg of water: dissolved salts take up 0.3 ml/g in the mean (NaCl 0.32, sea salt
    // 0.27).
    const double perKilogram = 1000.0 / (density * (1.0 - 0.3e-3 * speciation.dissolvedMass));
    const double dissolved =
        std::accumulate(speciation.pairs.begin(), speciation.pairs.end(),
                        std::accumulate(speciation.free.begin(), speciation.free.end(), 0.0)) *
        perKilogram;

    constexpr double kFitted = 0.13;
    const double strength = speciation.ionicStrength * perKilogram;
    const double x = 1.0 + std::sqrt(strength);
    const double attraction = DebyeHueckelA(celsius) * std::numbers::ln10 *
                              (2.0 * (x - 2.0 * std::log(x) - 1.0 / x) - kFitted * strength * strength);
    return 1e-5 * kGasConstant * (celsius + kZeroCelsius) * density * (dissolved - attraction);
}

double OsmoticPressure(const Composition& composition, double celsius)
{
    return OsmoticPressure(Speciate(composition, celsius), celsius);
}

}  // namespace water
