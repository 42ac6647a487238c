// SPDX-License-Identifier: MIT
#pragma once

/// What the details of a water say about its carbonic acid, its alkalinity and its weak bases, as treated.
/// Internal to the water chemistry.

#include "dbinterfaces/db_objects.h"
#include "projectbase/details/detail_list.h"
#include "projectbase/water/alkalization.h"

#include <string>
#include <vector>

namespace water {

/// The agent of that key; null where the database has none.
const DBObjects::AlkalizingAgent* FindAgent(const std::string& key);

/// pKa of the acid of a weak agent at that temperature.
double PkaOf(const DBObjects::AlkalizingAgent& agent, double celsius);

/// A weak base that is dissolved in a water, and what tells where its charged form is stated.
struct DissolvedBase
{
    WeakBase base;
    const DBObjects::AlkalizingAgent* agent = nullptr;
};

struct KnownCarbonate
{
    CarbonateState state;  ///< as the pH has it
    CarbonateWater water;
    double excess = 0.0;  ///< mmol/l of carbonate that is stated beyond that state; see FormsAsStated
    /// Those that came with the waters of a mixture, then the one that was dosed.
    std::vector<DissolvedBase> bases;
    bool contradictsPh = false;  ///< see ContradictsPh; nothing else is then known

    /// Whether pH and temperature tell the state.
    bool IsKnown() const;
};

std::vector<WeakBase> WithoutAgents(const std::vector<DissolvedBase>& bases);

/// Keeps the weak bases that the water brings along, in "liquid/amine.bases": mmol/l of each in both forms,
/// as "0.12 morpholine; 0.05 nh3". Bases of the same agent are one.
void StoreBases(const std::vector<DissolvedBase>& bases, DetailList& liquid);

/// Of a water whose derived values are up to date. Not known for a short analysis, whose pH plays no part.
KnownCarbonate CarbonateOf(const DetailList& liquid);

}  // namespace water
