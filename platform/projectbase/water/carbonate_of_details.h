// SPDX-License-Identifier: MIT
#pragma once

/// What the details of a water say about its carbonic acid, its alkalinity and its weak bases, as treated.
/// Internal to the water chemistry.

#include "dbinterfaces/db_objects.h"
#include "projectbase/details/detail_list.h"
#include "projectbase/water/alkalization.h"

#include <optional>
#include <string>

namespace water {

/// The agent of that key; null where the database has none.
const DBObjects::AlkalizingAgent* FindAgent(const std::string& key);

/// pKa of the acid of a weak agent at that temperature.
double PkaOf(const DBObjects::AlkalizingAgent& agent, double celsius);

/// A base that an alkalization left in the water, and where its charged form is stated.
struct DosedBase
{
    WeakBase base;
    const DBObjects::AlkalizingAgent* agent = nullptr;
};

struct KnownCarbonate
{
    CarbonateState state;  ///< as the pH has it
    CarbonateWater water;
    double excess = 0.0;  ///< mmol/l of carbonate that is stated beyond that state; see FormsAsStated
    std::optional<DosedBase> base;
    bool contradictsPh = false;  ///< see ContradictsPh; nothing else is then known

    /// Whether pH and temperature tell the state.
    bool IsKnown() const;
};

/// Of a water whose derived values are up to date. Not known for a short analysis, whose pH plays no part.
KnownCarbonate CarbonateOf(const DetailList& liquid);

}  // namespace water
