// SPDX-License-Identifier: MIT
#include "projectbase/water/speciation.h"

#include "projectbase/water/water_properties.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace water {

namespace {

struct PairRow
{
    Species cation;
    Species anion;
    double logK25;
    double enthalpy;  // kcal/mol
};

// In the order of IonPair. The two calcium carbonate pairs have constants of their own below.
constexpr std::array<PairRow, kIonPairCount> kPairs{{
    {Species::Ca, Species::So4, 2.30, 1.65},
    {Species::Mg, Species::So4, 2.37, 4.55},
    {Species::Na, Species::So4, 0.70, 1.12},
    {Species::K, Species::So4, 0.85, 2.25},
    {Species::H, Species::So4, 1.99, 3.85},
    {Species::Ca, Species::Hco3, 1.106, 0.0},
    {Species::Ca, Species::Co3, 3.224, 0.0},
    {Species::Mg, Species::Hco3, 1.07, 0.79},
    {Species::Mg, Species::Co3, 2.98, 2.71},
    {Species::Na, Species::Co3, 1.27, 8.9},
}};

constexpr std::size_t Index(Species species)
{
    return static_cast<std::size_t>(species);
}

double LogConstant(IonPair pair, double kelvin)
{
    switch (pair) {
        case IonPair::CaHco3:
            return 1209.120 + 0.31294 * kelvin - 34765.05 / kelvin - 478.782 * std::log10(kelvin);
        case IonPair::CaCo3:
            return -1228.732 - 0.299444 * kelvin + 35512.75 / kelvin + 485.818 * std::log10(kelvin);
        default:
            break;
    }
    const PairRow& row = kPairs[static_cast<std::size_t>(pair)];
    return VantHoffExponent(row.logK25, row.enthalpy, kelvin - kZeroCelsius);
}

/// z² of what goes into the pair less z² of the pair: the power of γ in its conditional constant.
constexpr int ActivityPower(std::size_t pair)
{
    const int cation = Charge(kPairs[pair].cation);
    const int anion = Charge(kPairs[pair].anion);
    return cation * cation + anion * anion - kPairCharges[pair] * kPairCharges[pair];
}

using Amounts = std::array<double, kSpeciesCount>;
using Constants = std::array<double, kIonPairCount>;

/// What the pairs leave free of the ions on one side, given the free ions on the other side.
void ShareSide(bool cations, const Constants& constants, const Amounts& totals, bool keepHydrogen,
               Amounts& free)
{
    Amounts divisor;
    divisor.fill(1.0);
    for (std::size_t p = 0; p < kIonPairCount; ++p) {
        const auto own = Index(cations ? kPairs[p].cation : kPairs[p].anion);
        const auto other = Index(cations ? kPairs[p].anion : kPairs[p].cation);
        divisor[own] += constants[p] * free[other];
    }
    if (keepHydrogen)
        divisor[Index(Species::H)] = 1.0;
    for (std::size_t i = 0; i < kSpeciesCount; ++i) {
        if ((kCharges[i] > 0) == cations && kCharges[i] != 0)
            free[i] = totals[i] / divisor[i];
    }
}

double EffectiveIonicStrength(const Speciation& state)
{
    double sum = 0.0;
    for (std::size_t i = 0; i < kSpeciesCount; ++i)
        sum += state.free[i] * kCharges[i] * kCharges[i];
    for (std::size_t p = 0; p < kIonPairCount; ++p)
        sum += state.pairs[p] * kPairCharges[p] * kPairCharges[p];
    return 0.5 * sum;
}

bool HasPairs(const Amounts& totals)
{
    return std::ranges::any_of(kPairs, [&](const PairRow& pair) {
        return totals[Index(pair.cation)] > 0.0 && totals[Index(pair.anion)] > 0.0;
    });
}

/// One pass: activities and constants from the present ionic strength, then both sides and the pairs.
void Pass(Speciation& state, const Constants& constants, const Amounts& totals, bool keepHydrogen, double a)
{
    const double logGamma = LogActivityOfUnitCharge(state.ionicStrength, a);
    const double gamma = std::pow(10.0, logGamma);
    const double gamma4 = gamma * gamma * gamma * gamma;
    Constants conditional;
    for (std::size_t p = 0; p < kIonPairCount; ++p) {
        const int power = ActivityPower(p);
        conditional[p] = constants[p] * (power == 8 ? gamma4 * gamma4 : gamma4);
    }
    ShareSide(true, conditional, totals, keepHydrogen, state.free);
    ShareSide(false, conditional, totals, keepHydrogen, state.free);
    for (std::size_t p = 0; p < kIonPairCount; ++p)
        state.pairs[p] =
            conditional[p] * state.free[Index(kPairs[p].cation)] * state.free[Index(kPairs[p].anion)];
    state.ionicStrength = EffectiveIonicStrength(state);
}

}  // namespace

double AssociationExponent(IonPair pair, double celsius)
{
    return IsLiquid(celsius) ? LogConstant(pair, celsius + kZeroCelsius)
                             : std::numeric_limits<double>::quiet_NaN();
}

double VantHoffExponent(double logK25, double enthalpy, double celsius)
{
    constexpr double kGasKilocalories = 1.98720e-3;
    return logK25 -
           enthalpy / (2.302585 * kGasKilocalories) * (1.0 / (celsius + kZeroCelsius) - 1.0 / 298.15);
}

Speciation Speciate(const Composition& composition, double celsius)
{
    Speciation state;
    if (!IsLiquid(celsius))
        return state;

    Amounts totals = composition.amounts;
    for (double& amount : totals)
        amount *= 1e-3;
    state.free = totals;
    state.stoichiometricStrength = IonicStrength(composition);
    state.dissolvedMass = 1e-3 * DissolvedMass(composition);
    state.ionicStrength = EffectiveIonicStrength(state);
    if (!HasPairs(totals)) {
        state.converged = std::isfinite(state.ionicStrength);
        return state;
    }

    const double kelvin = celsius + kZeroCelsius;
    const double a = DebyeHueckelA(celsius);
    Constants constants;
    for (std::size_t p = 0; p < kIonPairCount; ++p)
        constants[p] = std::pow(10.0, LogConstant(static_cast<IonPair>(p), kelvin));

    constexpr int kMaxPasses = 200;
    constexpr double kTolerance = 1e-9;
    for (int pass = 0; pass < kMaxPasses && !state.converged; ++pass) {
        const auto before = state.free;
        const double strengthBefore = state.ionicStrength;
        Pass(state, constants, totals, composition.hydrogenIsFree, a);
        state.converged = std::abs(state.ionicStrength - strengthBefore) <= kTolerance * state.ionicStrength;
        for (std::size_t i = 0; i < kSpeciesCount && state.converged; ++i)
            state.converged = std::abs(state.free[i] - before[i]) <= kTolerance * totals[i];
    }
    return state;
}

}  // namespace water
