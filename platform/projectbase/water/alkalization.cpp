// SPDX-License-Identifier: MIT
#include "projectbase/water/alkalization.h"

#include "projectbase/water/carbonic_acid.h"
#include "projectbase/water/water_properties.h"

#include <boost/math/tools/toms748_solve.hpp>

#include <cmath>
#include <limits>

namespace water {

namespace {

constexpr double kLowestPh = 0.0;
constexpr double kHighestPh = 14.0;
/// Passes between the pH and the activity coefficients; each changes the pH by a tenth of the last at most.
constexpr int kActivityPasses = 8;
constexpr std::uintmax_t kMostSteps = 80;

double StrengthOf(const CarbonateState& state)
{
    return 0.5e-3 *
           (state.bicarbonate + 4.0 * state.carbonate + state.hydrogen + state.hydroxide + state.baseCation);
}

/// What the water holds at a pH that is given.
CarbonateState StateAt(double pH, const CarbonateWater& water, const WeakBase& base, double ionicStrength)
{
    const CarbonicEquilibrium acid(pH, water.celsius, ionicStrength);
    const Dissociation ions = DissociationFromPh(pH, water.celsius, ionicStrength);
    CarbonateState state;
    state.pH = pH;
    state.bicarbonate = acid.BicarbonateFromTotal(water.totalCarbon);
    state.co2 = acid.Co2FromBicarbonate(state.bicarbonate);
    state.carbonate = acid.CarbonateFromBicarbonate(state.bicarbonate);
    state.hydrogen = ions.hydrogen;
    state.hydroxide = ions.hydroxide;
    if (base.amount > 0.0) {
        const double logGamma = LogActivityOfUnitCharge(ionicStrength, DebyeHueckelA(water.celsius));
        state.baseCation = base.amount / (1.0 + std::pow(10.0, pH - base.pKa + logGamma));
    }
    return state;
}

double Alkalinity(const CarbonateState& state)
{
    return state.bicarbonate + 2.0 * state.carbonate + state.hydroxide - state.hydrogen;
}

/// The state at a pH with the activity coefficients that belong to it.
CarbonateState ConsistentStateAt(double pH, const CarbonateWater& water, const WeakBase& base)
{
    double strength = water.backgroundStrength;
    CarbonateState state;
    for (int pass = 0; pass < kActivityPasses; ++pass) {
        state = StateAt(pH, water, base, strength);
        strength = water.backgroundStrength + StrengthOf(state);
    }
    return state;
}

/// Root of a function that changes its sign between both bounds; nothing where it does not.
template <typename Function>
std::optional<double> Root(Function function, double low, double high)
{
    const double atLow = function(low);
    const double atHigh = function(high);
    if (atLow == 0.0)
        return low;
    if (atHigh == 0.0)
        return high;
    if (!(atLow * atHigh < 0.0))
        return std::nullopt;
    namespace tools = boost::math::tools;
    std::uintmax_t steps = kMostSteps;
    const auto bracket =
        tools::toms748_solve(function, low, high, atLow, atHigh, tools::eps_tolerance<double>(44), steps);
    return 0.5 * (bracket.first + bracket.second);
}

/// The water with `millimoles` of the agent in it, and the base that is then dissolved in it.
CarbonateWater WithAgent(CarbonateWater water, const DBObjects::AlkalizingAgent& agent, double millimoles)
{
    water.alkalinity += agent.valency * millimoles;
    water.totalCarbon += agent.carbon * millimoles;
    // A strong base leaves its cation behind: sodium carries one charge, calcium two.
    if (agent.valency > 0) {
        const double charge = agent.carbon > 0 ? 1.0 : agent.valency;
        const double cations = agent.carbon > 0 ? agent.valency * millimoles : millimoles;
        water.backgroundStrength += 0.5e-3 * cations * charge * charge;
    }
    return water;
}

WeakBase DissolvedBase(const DBObjects::AlkalizingAgent& agent, double millimoles, double celsius)
{
    if (!agent.pKa)
        return {};
    return {millimoles, PkaAt(*agent.pKa, agent.enthalpy.value_or(0.0), celsius)};
}

}  // namespace

double PkaAt(double pKa25, double enthalpy, double celsius)
{
    constexpr double kReference = 25.0 + kZeroCelsius;
    return pKa25 - 1e3 * enthalpy / (std::log(10.0) * kGasConstant) *
                       (1.0 / kReference - 1.0 / (celsius + kZeroCelsius));
}

CarbonateWater WaterFromPh(double pH, double celsius, double bicarbonate, double co2,
                           double backgroundStrength)
{
    CarbonateWater water{.celsius = celsius, .backgroundStrength = backgroundStrength};
    double strength = backgroundStrength + 0.5e-3 * bicarbonate;
    for (int pass = 0; pass < kActivityPasses; ++pass) {
        const CarbonicEquilibrium acid(pH, celsius, strength);
        const double ratio = acid.Co2FromBicarbonate(1.0);
        const double hco3 = bicarbonate > 0.0 ? bicarbonate : co2 / ratio;
        const double co3 = acid.CarbonateFromBicarbonate(hco3);
        water.totalCarbon = hco3 * (1.0 + ratio) + co3;
        const CarbonateState state = StateAt(pH, water, {}, strength);
        water.alkalinity = Alkalinity(state);
        strength = backgroundStrength + StrengthOf(state);
    }
    return water;
}

std::optional<CarbonateState> Equilibrate(const CarbonateWater& water, const WeakBase& base)
{
    double strength = water.backgroundStrength;
    std::optional<CarbonateState> result;
    for (int pass = 0; pass < kActivityPasses; ++pass) {
        const auto excess = [&](double pH) {
            const CarbonateState state = StateAt(pH, water, base, strength);
            return Alkalinity(state) - state.baseCation - water.alkalinity;
        };
        const std::optional<double> pH = Root(excess, kLowestPh, kHighestPh);
        if (!pH)
            return std::nullopt;
        result = StateAt(*pH, water, base, strength);
        strength = water.backgroundStrength + StrengthOf(*result);
    }
    return result;
}

std::optional<Dosing> Dose(const CarbonateWater& water, const DBObjects::AlkalizingAgent& agent,
                           double millimoles)
{
    if (!(millimoles >= 0.0 && millimoles <= kMostDose))
        return std::nullopt;
    const auto state =
        Equilibrate(WithAgent(water, agent, millimoles), DissolvedBase(agent, millimoles, water.celsius));
    if (!state)
        return std::nullopt;
    return Dosing{millimoles, *state};
}

std::optional<Dosing> DoseToPh(const CarbonateWater& water, const DBObjects::AlkalizingAgent& agent,
                               double pH)
{
    if (!(pH >= kLowestPh && pH <= kHighestPh))
        return std::nullopt;
    // How much alkalinity the water with that dose lacks at that pH; falls as the dose grows.
    const auto missing = [&](double millimoles) {
        const CarbonateWater dosed = WithAgent(water, agent, millimoles);
        const CarbonateState state =
            ConsistentStateAt(pH, dosed, DissolvedBase(agent, millimoles, water.celsius));
        return Alkalinity(state) - state.baseCation - dosed.alkalinity;
    };
    if (!(missing(0.0) >= 0.0))
        return std::nullopt;
    const std::optional<double> dose = Root(missing, 0.0, kMostDose);
    return dose ? Dose(water, agent, *dose) : std::nullopt;
}

}  // namespace water
