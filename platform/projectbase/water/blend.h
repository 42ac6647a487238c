// SPDX-License-Identifier: MIT
#pragma once

/// Two waters mixed by share.
///
/// Everything dissolved is mixed linearly, and so is the temperature. The pH is that of the mixed alkalinity
/// and total carbon in a closed system; bicarbonate, carbonate and CO2 follow from it. Where the pH of a
/// water is unknown, that of the mixture is, and carbonate and bicarbonate are mixed as they are.

#include "projectbase/details/detail_list.h"
#include "projectbase/projectbase_export.h"

#include <string_view>

namespace water {

/// Sets the typed values of `target` to the mixture of two normalised waters, of which the first has `share`
/// (0 to 1); the target is not normalised. Properties of which one water does not tell are unknown; a fouling
/// index cannot be mixed. Named ions of the same name are one.
PROJECTBASE_EXPORT void Blend(const DetailList& first, const DetailList& second, double share,
                              DetailList& target);

/// Whether a water is calculated as a blend of others: it then has "liquid/blend.first" and
/// "liquid/blend.second", the names of two waters, and "liquid/blend.share", percent of the first.
PROJECTBASE_EXPORT bool IsBlend(const DetailList& liquid);

/// Whether a value belongs to the recipe of a blend: it means nothing outside of its project.
PROJECTBASE_EXPORT bool IsOfRecipe(std::string_view key);
/// Makes an ordinary water of a blend, with the values that it has.
PROJECTBASE_EXPORT void ClearRecipe(DetailList& liquid);

}  // namespace water
