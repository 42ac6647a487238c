// SPDX-License-Identifier: MIT
#include "projectbase/water/carbonate_of_details.h"

#include "dbinterfaces/master_database.h"
#include "projectbase/water/normalization.h"
#include "projectbase/water/totals.h"

#include <algorithm>
#include <cmath>

namespace water {

namespace {

std::optional<DosedBase> DosedBaseOf(const DetailList& liquid)
{
    const double dosed = liquid.At("liquid/alk.dosed").GetDoubleValue();
    if (!std::isfinite(dosed))
        return std::nullopt;
    const auto* agent = FindAgent(liquid.At("liquid/alk.type").GetStdStringValue());
    if (agent == nullptr || !agent->pKa)
        return std::nullopt;
    return DosedBase{{dosed / agent->molarMass, PkaOf(*agent, liquid.At("liquid/temp").GetDoubleValue())},
                     agent};
}

/// Ionic strength (mol/l) of everything but carbonic acid, H+ and OH-.
double BackgroundStrength(Composition composition)
{
    for (const Species species : {Species::Hco3, Species::Co3, Species::H, Species::Oh})
        composition[species] = 0.0;
    composition.boundHydrogen = 0.0;
    return IonicStrength(composition);
}

}  // namespace

const DBObjects::AlkalizingAgent* FindAgent(const std::string& key)
{
    static const std::vector<DBObjects::AlkalizingAgent> agents = MasterDatabase::GetAlkalizingAgents();
    const auto found =
        std::find_if(agents.begin(), agents.end(), [&key](const auto& agent) { return agent.key == key; });
    return found == agents.end() ? nullptr : &*found;
}

double PkaOf(const DBObjects::AlkalizingAgent& agent, double celsius)
{
    return PkaAt(agent.pKa.value(), agent.enthalpy.value_or(0.0), celsius);
}

bool KnownCarbonate::IsKnown() const
{
    return !contradictsPh && std::isfinite(water.alkalinity) && std::isfinite(water.totalCarbon);
}

KnownCarbonate CarbonateOf(const DetailList& liquid)
{
    KnownCarbonate known;
    const bool isFull = liquid.At("liquid/analysis.type").GetStdStringValue() == "FULL";
    const Composition composition = WholeComposition(liquid);
    const double pH = isFull ? PhOf(liquid) : std::nan("");
    known.contradictsPh = ContradictsPh(composition, pH);
    known.base = DosedBaseOf(liquid);
    PhWater stated{.pH = pH,
                   .celsius = liquid.At("liquid/temp").GetDoubleValue(),
                   .carbonateAlkalinity = composition[Species::Hco3] + 2.0 * composition[Species::Co3],
                   .co2 = Co2Of(liquid),
                   .backgroundStrength = BackgroundStrength(composition),
                   .sulfate = composition[Species::So4]};
    if (known.base) {
        stated.bases = {&known.base->base, 1};
        // The charged part of the base stands among the ions, too.
        constexpr int kPasses = 3;
        const double strength = stated.backgroundStrength;
        for (int pass = 0; pass < kPasses; ++pass)
            stated.backgroundStrength =
                strength - 0.5e-3 * ChargedPart(known.base->base, StateFromPh(stated), stated.celsius);
    }
    known.state = StateFromPh(stated);
    known.water = WaterFromPh(stated, known.state);
    if (stated.carbonateAlkalinity > 0.0)
        known.excess = composition[Species::Co3] - known.state.carbonate;
    return known;
}

}  // namespace water
