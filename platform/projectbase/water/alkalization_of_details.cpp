// SPDX-License-Identifier: MIT
// The alkalization of the water that a list of details describes.
#include "core/ion_table.h"
#include "dbinterfaces/master_database.h"
#include "projectbase/water/alkalization.h"
#include "projectbase/water/ion_rows.h"
#include "projectbase/water/normalization.h"
#include "projectbase/water/totals.h"

#include <algorithm>
#include <cmath>

namespace water {

namespace {

const DBObjects::AlkalizingAgent* FindAgent(const std::string& key)
{
    static const std::vector<DBObjects::AlkalizingAgent> agents = MasterDatabase::GetAlkalizingAgents();
    const auto found =
        std::find_if(agents.begin(), agents.end(), [&key](const auto& agent) { return agent.key == key; });
    return found == agents.end() ? nullptr : &*found;
}

void SetIon(DetailList& liquid, std::string_view ion, double meq)
{
    const IonRow& row = *FindIonRow(ion);
    liquid.At(row.meql).SetValue(meq);
    liquid.At(row.mgl).SetValue(meq * ions::FindIon(ion)->equivalentWeight);
}

void AddToIon(DetailList& liquid, std::string_view ion, double meq)
{
    const double before = liquid.At(FindIonRow(ion)->meql).GetDoubleValue();
    SetIon(liquid, ion, (std::isfinite(before) ? before : 0.0) + meq);
}

/// Ionic strength (mol/l) of everything but carbonic acid, H+ and OH-.
double BackgroundStrength(Composition composition)
{
    for (const Species species : {Species::Hco3, Species::Co3, Species::H, Species::Oh})
        composition[species] = 0.0;
    return IonicStrength(composition);
}

void Apply(DetailList& liquid, const DBObjects::AlkalizingAgent& agent, const Dosing& dosing)
{
    const CarbonateState& state = dosing.state;
    SetIon(liquid, "hco3", state.bicarbonate);
    SetIon(liquid, "co3", 2.0 * state.carbonate);
    if (liquid.At("liquid/balance.ph").GetBoolValue()) {
        SetIon(liquid, "h.plus", state.hydrogen);
        SetIon(liquid, "oh.minus", state.hydroxide);
    }
    const double cation = agent.pKa ? state.baseCation : agent.valency * dosing.dose;
    if (!agent.ion.empty()) {
        AddToIon(liquid, agent.ion, cation);
    } else {
        liquid.At("liquid/alk.cation.meql").SetValue(cation);
        liquid.At("liquid/alk.cation.mgl").SetValue(cation * agent.cationMass);
    }
    liquid.At("liquid/co2.mgl").SetValue(state.co2 * ions::FindIon("co2")->molarMass);
    liquid.At("liquid/alk.ph").SetValue(state.pH);
    liquid.At("liquid/alk.dosed").SetValue(dosing.dose * agent.molarMass);
    UpdateDerivedValues(liquid);
}

}  // namespace

AlkalizationResult CalculateAlkalization(DetailList& liquid)
{
    const std::string key = liquid.At("liquid/alk.type").GetStdStringValue();
    if (key.empty())
        return AlkalizationResult::None;
    const DBObjects::AlkalizingAgent* agent = FindAgent(key);
    if (agent == nullptr)
        return AlkalizationResult::UnknownAgent;

    const bool byDose = liquid.At("liquid/alk.mode").GetStdStringValue() == "DOSE";
    const double goal = liquid.At(byDose ? "liquid/alk.dose" : "liquid/alk.target").GetDoubleValue();
    if (!std::isfinite(goal))
        return AlkalizationResult::UnknownGoal;

    const Composition composition = AddIons(liquid, false).composition;
    const double co2 = liquid.At("liquid/co2.mgl").GetDoubleValue() / ions::FindIon("co2")->molarMass;
    const CarbonateWater start =
        WaterFromPh(liquid.At("liquid/ph").GetDoubleValue(), liquid.At("liquid/temp").GetDoubleValue(),
                    composition[Species::Hco3], std::isfinite(co2) ? std::max(0.0, co2) : 0.0,
                    BackgroundStrength(composition));
    const bool isFull = liquid.At("liquid/analysis.type").GetStdStringValue() == "FULL";
    if (!isFull || !std::isfinite(start.alkalinity) || !std::isfinite(start.totalCarbon))
        return AlkalizationResult::UnknownWater;

    const std::optional<Dosing> dosing =
        byDose ? Dose(start, *agent, goal / agent->molarMass) : DoseToPh(start, *agent, goal);
    if (!dosing)
        return AlkalizationResult::Unreachable;
    Apply(liquid, *agent, *dosing);
    return AlkalizationResult::Done;
}

std::string AlkalizingAgentName(const std::string& key)
{
    const DBObjects::AlkalizingAgent* agent = FindAgent(key);
    return agent != nullptr ? agent->name : key;
}

}  // namespace water
