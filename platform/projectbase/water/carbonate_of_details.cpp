// SPDX-License-Identifier: MIT
#include "projectbase/water/carbonate_of_details.h"

#include "dbinterfaces/master_database.h"
#include "projectbase/water/blend_recipe.h"
#include "projectbase/water/normalization.h"
#include "projectbase/water/totals.h"

#include <algorithm>
#include <cmath>

namespace water {

namespace {

constexpr const char* kBases = "liquid/amine.bases";

std::vector<DissolvedBase> BasesOf(const DetailList& liquid)
{
    std::vector<DissolvedBase> bases;
    const double celsius = liquid.At("liquid/temp").GetDoubleValue();
    const auto add = [&](const DBObjects::AlkalizingAgent* agent, double millimoles) {
        if (agent != nullptr && agent->pKa && std::isfinite(millimoles))
            bases.push_back({{millimoles, PkaOf(*agent, celsius)}, agent});
    };
    for (const BlendPart& brought : PartsOfText(liquid.At(kBases).GetStdStringValue()))
        add(FindAgent(brought.water), brought.amount);
    if (const auto* agent = FindAgent(liquid.At("liquid/alk.type").GetStdStringValue()))
        add(agent, liquid.At("liquid/alk.dosed").GetDoubleValue() / agent->molarMass);
    return bases;
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

std::vector<WeakBase> WithoutAgents(const std::vector<DissolvedBase>& bases)
{
    std::vector<WeakBase> weak;
    for (const DissolvedBase& dissolved : bases)
        weak.push_back(dissolved.base);
    return weak;
}

void StoreBases(const std::vector<DissolvedBase>& bases, DetailList& liquid)
{
    std::vector<BlendPart> parts;
    for (const auto& [base, agent] : bases) {
        const auto same = std::ranges::find(parts, agent->key, &BlendPart::water);
        if (same != parts.end())
            same->amount += base.amount;
        else if (base.amount > 0.0)
            parts.push_back({agent->key, base.amount});
    }
    liquid.At(kBases).SetValue(PartsText(parts));
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
    known.bases = BasesOf(liquid);
    const std::vector<WeakBase> bases = WithoutAgents(known.bases);
    PhWater stated{.pH = pH,
                   .celsius = liquid.At("liquid/temp").GetDoubleValue(),
                   .carbonateAlkalinity = composition[Species::Hco3] + 2.0 * composition[Species::Co3],
                   .co2 = Co2Of(liquid),
                   .backgroundStrength = BackgroundStrength(composition),
                   .sulfate = composition[Species::So4]};
    if (!bases.empty()) {
        stated.bases = bases;
        // The charged part of the bases stands among the ions, too.
        constexpr int kPasses = 3;
        const double strength = stated.backgroundStrength;
        for (int pass = 0; pass < kPasses; ++pass)
            stated.backgroundStrength = strength - 0.5e-3 * StateFromPh(stated).baseCations;
    }
    known.state = StateFromPh(stated);
    known.water = WaterFromPh(stated, known.state);
    if (stated.carbonateAlkalinity > 0.0)
        known.excess = composition[Species::Co3] - known.state.carbonate;
    return known;
}

}  // namespace water
