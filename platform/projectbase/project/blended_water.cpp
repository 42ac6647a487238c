// SPDX-License-Identifier: MIT
#include "projectbase/project/blended_water.h"

#include "projectbase/project/project.h"
#include "projectbase/project/project_edit.h"

#include <wx/translation.h>

namespace water {

LiquidData& StoreBlend(Project& project, LiquidData* blend, const BlendRecipe& recipe,
                       const std::string& name)
{
    const ProjectEdit edit(project, wxTRANSLATE("blend waters"));
    if (blend == nullptr)
        blend = &project.AddLiquid(name);
    else if (!name.empty() && name != blend->GetName())
        project.RenameOwner(*blend, name);
    StoreRecipe(recipe, *blend->GetDetails());
    return *blend;
}

TriedBlend TryBlend(const Project& project, const LiquidData* blend, const BlendRecipe& recipe)
{
    TriedBlend tried{.project = project.Clone()};
    LiquidData* copy = blend == nullptr ? nullptr : &tried.project->GetLiquid(blend->GetPosition());
    // Nobody sees the name of a new one.
    tried.water = &StoreBlend(*tried.project, copy, recipe, copy == nullptr ? "blend" : "");
    return tried;
}

}  // namespace water
