// SPDX-License-Identifier: MIT
// The alkalization of the water that a list of details describes.
#include "core/ion_table.h"
#include "projectbase/water/carbonate_of_details.h"
#include "projectbase/water/ion_rows.h"
#include "projectbase/water/normalization.h"
#include "projectbase/water/totals.h"

#include <wx/translation.h>

#include <algorithm>
#include <cmath>

namespace water {

namespace {

void AddToIon(DetailList& liquid, std::string_view ion, double meq)
{
    const double before = liquid.At(FindIonRow(ion)->meql).GetDoubleValue();
    SetIon(liquid, ion, std::max(0.0, (std::isfinite(before) ? before : 0.0) + meq));
}

/// A value of the details grows.
void Add(DetailList& liquid, const char* key, double amount)
{
    DetailData& detail = liquid.At(key);
    detail.SetValue(std::max(0.0, detail.GetDoubleValue() + amount));
}

/// The cation that an agent leaves in the water grows by `meq`.
void AddCation(DetailList& liquid, const DBObjects::AlkalizingAgent& agent, double meq)
{
    if (!agent.ion.empty())
        return AddToIon(liquid, agent.ion, meq);
    Add(liquid, "liquid/alk.cation.meql", meq);
    Add(liquid, "liquid/alk.cation.mgl", meq * agent.cationMass);
}

void Apply(DetailList& liquid, const DBObjects::AlkalizingAgent& agent, const KnownCarbonate& start,
           const Dosing& dosing)
{
    const CarbonateState& state = dosing.state;
    const CarbonateForms forms = FormsAsStated(state, start.excess);
    SetIon(liquid, "hco3", forms.bicarbonate);
    SetIon(liquid, "co3", 2.0 * forms.carbonate);
    if (liquid.At("liquid/balance.ph").GetBoolValue()) {
        AddToIon(liquid, "h.plus",
                 state.hydrogen + state.bisulfate - start.state.hydrogen - start.state.bisulfate);
        AddToIon(liquid, "oh.minus", state.hydroxide - start.state.hydroxide);
    }
    const double celsius = liquid.At("liquid/temp").GetDoubleValue();
    for (const auto& [base, brought] : start.bases)
        AddCation(liquid, *brought,
                  ChargedPart(base, state, celsius) - ChargedPart(base, start.state, celsius));
    const WeakBase dosed = BaseOf(agent, dosing.dose, celsius);
    AddCation(liquid, agent, agent.pKa ? ChargedPart(dosed, state, celsius) : agent.valency * dosing.dose);
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

    const KnownCarbonate start = CarbonateOf(liquid);
    if (start.contradictsPh)
        return AlkalizationResult::Contradictory;
    if (!start.IsKnown())
        return AlkalizationResult::UnknownWater;

    const std::vector<WeakBase> dissolved = WithoutAgents(start.bases);
    const std::optional<Dosing> dosing = byDose
                                             ? Dose(start.water, *agent, goal / agent->molarMass, dissolved)
                                             : DoseToPh(start.water, *agent, goal, dissolved);
    if (!dosing)
        return AlkalizationResult::Unreachable;
    Apply(liquid, *agent, start, *dosing);
    return AlkalizationResult::Done;
}

const char* Explain(AlkalizationResult result)
{
    using Result = AlkalizationResult;
    switch (result) {
        case Result::None:
        case Result::Done:
            return "";
        case Result::UnknownWater:
            return wxTRANSLATE("The full analysis with pH and temperature is needed.");
        case Result::Contradictory:
            return wxTRANSLATE("Bicarbonate does not go with a pH below 4.3.");
        case Result::UnknownAgent:
            return wxTRANSLATE("The alkalizing agent is not in the database.");
        case Result::UnknownGoal:
            return wxTRANSLATE("Enter a pH or a dose.");
        case Result::Unreachable:
            return wxTRANSLATE("This agent cannot bring the water there.");
    }
    return "";
}

std::string AlkalizingAgentName(const std::string& key)
{
    const DBObjects::AlkalizingAgent* agent = FindAgent(key);
    return agent != nullptr ? agent->name : key;
}

}  // namespace water
