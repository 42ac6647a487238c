// SPDX-License-Identifier: MIT
#pragma once

/// Waters mixed by share.
///
/// Everything dissolved is mixed linearly, and so is the temperature: also what closes the balance of waters
/// that are balanced, and the cation of an amine. The pH is that of the mixed alkalinity and total carbon in
/// a closed system; bicarbonate, carbonate, CO2, H+ and OH- and the charged part of weak bases change by as
/// much as the equilibrium does. So a water mixed with itself is that water, whatever its analysis and its
/// pH disagree about. Where the pH of a water is unknown, that of the mixture is, and all is mixed as it is.

#include "projectbase/details/detail_list.h"
#include "projectbase/projectbase_export.h"

#include <span>

namespace water {

struct BlendSource
{
    const DetailList& liquid;  ///< its derived values are up to date
    double share = 0.0;        ///< of all that is mixed; the shares of all sources add up to 1
};

/// Sets the typed values of `target` to the mixture; the target is not normalised. A water of which nothing
/// is taken need not be known. Properties of which one water does not tell are unknown; a fouling index
/// cannot be mixed. Named ions of the same name are one.
///
/// The mixture is balanced automatically where all waters are; else what closes the balance of some of them
/// is sodium and chloride that the mixture has. It states H+ and OH- where all waters do.
PROJECTBASE_EXPORT void Blend(std::span<const BlendSource> sources, DetailList& target);

}  // namespace water
