// SPDX-License-Identifier: MIT
#include "projectbase/water/alkalization.h"

#include "projectbase/water/carbonic_acid.h"
#include "projectbase/water/water_properties.h"

#include <boost/math/tools/toms748_solve.hpp>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace water {

namespace {

constexpr double kLowestPh = 0.0;
constexpr double kHighestPh = 14.0;
/// Passes between the pH and the activity coefficients; each changes the pH by a tenth of the last at most.
constexpr int kActivityPasses = 8;
constexpr std::uintmax_t kMostSteps = 80;

double CarbonateAlkalinity(const CarbonateState& state)
{
    return state.bicarbonate + 2.0 * state.carbonate;
}

double Alkalinity(const CarbonateState& state)
{
    return CarbonateAlkalinity(state) + state.hydroxide - state.hydrogen - state.bisulfate;
}

/// mol/l of the ions whose amounts follow from the pH. Sulfate that binds H+ loses three of its four parts.
double StrengthOf(const CarbonateState& state)
{
    return 0.5e-3 * (state.bicarbonate + 4.0 * state.carbonate + state.hydrogen + state.hydroxide -
                     3.0 * state.bisulfate + state.baseCations);
}

double ChargedAt(double pH, const WeakBase& base, double logGamma)
{
    return base.amount / (1.0 + std::pow(10.0, pH - base.pKa + logGamma));
}

/// Tells what one water holds at a pH.
class PhModel
{
public:
    PhModel(const CarbonateWater& water, std::span<const WeakBase> bases)
        : m_water(water), m_bases(bases), m_constants(AcidConstantsAt(water.celsius))
    {}

    /// With its total carbon.
    CarbonateState At(double pH, double ionicStrength) const
    {
        const CarbonicEquilibrium acid(pH, m_constants, ionicStrength);
        return At(pH, ionicStrength, acid, acid.BicarbonateFromTotal(m_water.totalCarbon));
    }
    CarbonateState At(double pH, double ionicStrength, const CarbonicEquilibrium& acid,
                      double bicarbonate) const
    {
        const Dissociation ions = DissociationFromPh(pH, m_constants, ionicStrength);
        CarbonateState state{.pH = pH, .bicarbonate = bicarbonate};
        state.co2 = acid.Co2FromBicarbonate(bicarbonate);
        state.carbonate = acid.CarbonateFromBicarbonate(bicarbonate);
        state.hydrogen = ions.hydrogen;
        state.hydroxide = ions.hydroxide;
        if (m_water.sulfate > 0.0)
            state.bisulfate = m_water.sulfate * BisulfateShare(pH, m_constants, ionicStrength);
        const double logGamma = LogActivityOfUnitCharge(ionicStrength, m_constants.debyeHueckelA);
        for (const WeakBase& base : m_bases)
            state.baseCations += ChargedAt(pH, base, logGamma);
        state.ionicStrength = ionicStrength;
        return state;
    }
    /// With the activity coefficients that belong to it.
    CarbonateState ConsistentAt(double pH) const
    {
        CarbonateState state;
        double strength = m_water.backgroundStrength;
        for (int pass = 0; pass < kActivityPasses; ++pass) {
            state = At(pH, strength);
            strength = m_water.backgroundStrength + StrengthOf(state);
        }
        return state;
    }
    /// How much more alkalinity there is in a state than in the water.
    double Excess(const CarbonateState& state) const
    {
        return Alkalinity(state) - state.baseCations - m_water.alkalinity;
    }
    const AcidConstants& GetConstants() const { return m_constants; }

private:
    const CarbonateWater& m_water;
    std::span<const WeakBase> m_bases;
    AcidConstants m_constants;
};

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

/// All weak bases of a water that gets `millimoles` of the agent.
std::vector<WeakBase> BasesWith(const DBObjects::AlkalizingAgent& agent, double millimoles, double celsius,
                                std::span<const WeakBase> dissolved)
{
    std::vector<WeakBase> bases(dissolved.begin(), dissolved.end());
    bases.push_back(BaseOf(agent, millimoles, celsius));
    return bases;
}

}  // namespace

double PkaAt(double pKa25, double enthalpy, double celsius)
{
    constexpr double kReference = 25.0 + kZeroCelsius;
    return pKa25 - 1e3 * enthalpy / (std::log(10.0) * kGasConstant) *
                       (1.0 / kReference - 1.0 / (celsius + kZeroCelsius));
}

WeakBase BaseOf(const DBObjects::AlkalizingAgent& agent, double millimoles, double celsius)
{
    if (!agent.pKa)
        return {};
    return {millimoles, PkaAt(*agent.pKa, agent.enthalpy.value_or(0.0), celsius)};
}

double ChargedPart(const WeakBase& base, const CarbonateState& state, double celsius)
{
    return ChargedAt(state.pH, base, LogActivityOfUnitCharge(state.ionicStrength, DebyeHueckelA(celsius)));
}

CarbonateState StateFromPh(const PhWater& known)
{
    const CarbonateWater water{
        .celsius = known.celsius, .backgroundStrength = known.backgroundStrength, .sulfate = known.sulfate};
    const PhModel model(water, known.bases);
    CarbonateState state;
    double strength = known.backgroundStrength + 0.5e-3 * known.carbonateAlkalinity;
    for (int pass = 0; pass < kActivityPasses; ++pass) {
        const CarbonicEquilibrium acid(known.pH, model.GetConstants(), strength);
        const double carbonateAlkalinity =
            known.alkalinityM ? *known.alkalinityM - state.hydroxide + state.hydrogen + state.bisulfate
                              : known.carbonateAlkalinity;
        const double bicarbonate = carbonateAlkalinity > 0.0 ? acid.BicarbonateFromForms(carbonateAlkalinity)
                                                             : acid.BicarbonateFromCo2(known.co2);
        state = model.At(known.pH, strength, acid, bicarbonate);
        strength = known.backgroundStrength + StrengthOf(state);
    }
    return state;
}

CarbonateWater WaterFromPh(const PhWater& known, const CarbonateState& state)
{
    return {.celsius = known.celsius,
            .totalCarbon = state.co2 + state.bicarbonate + state.carbonate,
            .alkalinity = Alkalinity(state) - state.baseCations,
            .backgroundStrength = known.backgroundStrength,
            .sulfate = known.sulfate};
}

CarbonateWater WaterFromPh(const PhWater& known)
{
    return WaterFromPh(known, StateFromPh(known));
}

std::optional<CarbonateState> Equilibrate(const CarbonateWater& water, std::span<const WeakBase> bases)
{
    const PhModel model(water, bases);
    double strength = water.backgroundStrength;
    std::optional<CarbonateState> result;
    for (int pass = 0; pass < kActivityPasses; ++pass) {
        const std::optional<double> pH = Root(
            [&](double tried) { return model.Excess(model.At(tried, strength)); }, kLowestPh, kHighestPh);
        if (!pH)
            return std::nullopt;
        result = model.At(*pH, strength);
        strength = water.backgroundStrength + StrengthOf(*result);
    }
    return result;
}

CarbonateForms FormsAsStated(const CarbonateState& state, double excess)
{
    // What the arithmetic leaves of a form that is not stated.
    constexpr double kRounding = 1e-9;
    const auto orNone = [](double form, double whole) { return form > kRounding * whole ? form : 0.0; };
    const double alkalinity = CarbonateAlkalinity(state);
    const double stated = std::clamp(state.carbonate + excess, 0.0, 0.5 * alkalinity);
    const double bicarbonate = orNone(alkalinity - 2.0 * stated, state.bicarbonate);
    const double carbonate = orNone(stated, state.carbonate);
    return {carbonate > 0.0 ? bicarbonate : alkalinity, bicarbonate > 0.0 ? carbonate : 0.5 * alkalinity};
}

std::optional<Dosing> Dose(const CarbonateWater& water, const DBObjects::AlkalizingAgent& agent,
                           double millimoles, std::span<const WeakBase> dissolved)
{
    if (!(millimoles >= 0.0 && millimoles <= kMostDose))
        return std::nullopt;
    const auto state = Equilibrate(WithAgent(water, agent, millimoles),
                                   BasesWith(agent, millimoles, water.celsius, dissolved));
    if (!state)
        return std::nullopt;
    return Dosing{millimoles, *state};
}

std::optional<Dosing> DoseToPh(const CarbonateWater& water, const DBObjects::AlkalizingAgent& agent,
                               double pH, std::span<const WeakBase> dissolved)
{
    if (!(pH >= kLowestPh && pH <= kHighestPh))
        return std::nullopt;
    // How much alkalinity the water with that dose lacks at that pH; falls as the dose grows.
    const auto missing = [&](double millimoles) {
        const CarbonateWater dosed = WithAgent(water, agent, millimoles);
        const std::vector<WeakBase> bases = BasesWith(agent, millimoles, water.celsius, dissolved);
        const PhModel model(dosed, bases);
        return model.Excess(model.ConsistentAt(pH));
    };
    if (!(missing(0.0) >= 0.0))
        return std::nullopt;
    const std::optional<double> dose = Root(missing, 0.0, kMostDose);
    return dose ? Dose(water, agent, *dose, dissolved) : std::nullopt;
}

}  // namespace water
