// SPDX-License-Identifier: MIT
#pragma once

/// Of which waters a blend is mixed, and how much of each: in percent, or as flows. Only the ratio of the
/// amounts counts.

#include "projectbase/details/detail_list.h"
#include "projectbase/projectbase_export.h"

#include <string>
#include <string_view>
#include <vector>

namespace water {

/// A recipe read from outside has no more parts than that.
inline constexpr std::size_t kMostBlendParts = 1000;

struct BlendPart
{
    std::string water;    ///< name
    double amount = 0.0;  ///< percent, or m³/h
};

struct BlendRecipe
{
    std::vector<BlendPart> parts;
    bool byFlow = false;

    /// Two or more waters with names and amounts that are not negative, of which one at least is positive.
    PROJECTBASE_EXPORT bool IsComplete() const;
    /// The share of each part in all of a complete recipe; they add up to 1.
    PROJECTBASE_EXPORT std::vector<double> Shares() const;
};

/// "40 Feed water; 60 Well": amounts with a decimal point, each before the name of its water. In a name a
/// semicolon or a backslash has a backslash before it.
PROJECTBASE_EXPORT std::string PartsText(const std::vector<BlendPart>& parts);
/// The parts of such a text; none for one that cannot be understood.
PROJECTBASE_EXPORT std::vector<BlendPart> PartsOfText(std::string_view text);

/// What a water says about its blending; incomplete for an ordinary water. Two waters by share stand in
/// "liquid/blend.first", "liquid/blend.second" and "liquid/blend.share" (percent of the first); any other
/// recipe in "liquid/blend.parts", which comes first where it is not empty, and "liquid/blend.mode" ("SHARE"
/// or "FLOW").
PROJECTBASE_EXPORT BlendRecipe RecipeOf(const DetailList& liquid);
PROJECTBASE_EXPORT void StoreRecipe(const BlendRecipe& recipe, DetailList& liquid);
/// A water got another name.
PROJECTBASE_EXPORT void RenameInRecipe(DetailList& liquid, const std::string& before,
                                       const std::string& after);

/// Whether a water is calculated as a blend of others: it has a complete recipe.
PROJECTBASE_EXPORT bool IsBlend(const DetailList& liquid);

/// Whether a value belongs to the recipe of a blend: it means nothing outside of its project.
PROJECTBASE_EXPORT bool IsOfRecipe(std::string_view key);
/// Makes an ordinary water of a blend, with the values that it has.
PROJECTBASE_EXPORT void ClearRecipe(DetailList& liquid);

}  // namespace water
