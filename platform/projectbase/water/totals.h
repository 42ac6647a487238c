// SPDX-License-Identifier: MIT
#pragma once

/// What the ion rows of a water add up to. Internal to the water chemistry.

#include "projectbase/details/detail_list.h"
#include "projectbase/water/carbonic_acid.h"
#include "projectbase/water/composition.h"

namespace water {

struct Totals
{
    Composition composition;
    ChargeSums charges;
    double mass = 0.0;  // mg/l
};

/// Adds the normalised ions, and the cation of an amine that the water was alkalised with; `withWaterIons`
/// also the rows of H+ and OH-.
Totals AddIons(const DetailList& liquid, bool withWaterIons);

/// The pH of the water as treated: the one that an alkalization gave it, else the typed one.
double PhOf(const DetailList& liquid);

/// H+ and OH- at that pH in a water that holds the other ions; they add to the ionic strength themselves.
Dissociation DissociationIn(const Composition& others, double pH, double celsius);

}  // namespace water
