// SPDX-License-Identifier: MIT
#pragma once

/// What the user is told of a blend, also before it is made.

#include "gui_base/report/water_results.h"
#include "projectbase/water/blend_recipe.h"

namespace wateranalysis {

/// TDS, hardness, alkalinity, pH and balance of the water that the recipe would make of `blend`, or of a new
/// water where it is null; without values while the recipe is not complete. Nothing in the project changes.
GUI_BASE_REPORT_EXPORT std::vector<ResultTile> BlendTiles(const Project& project, const LiquidData* blend,
                                                          const water::BlendRecipe& recipe,
                                                          const ReportContext& context);

/// "30 % Feed water, 70 % Well", "12 m³/h Feed water, 8 m³/h Well".
GUI_BASE_REPORT_EXPORT std::string RecipeText(const water::BlendRecipe& recipe, const ReportContext& context);

}  // namespace wateranalysis
