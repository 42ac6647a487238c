// SPDX-License-Identifier: MIT
#pragma once

/// Waters of a project that are mixed of others: how one is made or changed, and what it would be.

#include "projectbase/projectbase_export.h"
#include "projectbase/water/blend_recipe.h"

#include <memory>
#include <string>

class LiquidData;
class Project;

namespace water {

/// Gives `blend` that recipe and name, or makes a new water behind the others where it is null. A name that
/// is empty leaves the blend its own. One edit.
PROJECTBASE_EXPORT LiquidData& StoreBlend(Project& project, LiquidData* blend, const BlendRecipe& recipe,
                                          const std::string& name);

/// A copy of a project in which a blend has been stored, and that water.
struct TriedBlend
{
    std::unique_ptr<Project> project;
    const LiquidData* water = nullptr;
};

/// The same in a copy: what the blend would be. `blend` is a water of the project, or null for a new one.
PROJECTBASE_EXPORT TriedBlend TryBlend(const Project& project, const LiquidData* blend,
                                       const BlendRecipe& recipe);

}  // namespace water
