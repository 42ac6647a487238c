// SPDX-License-Identifier: MIT
#include "gui_base/water/feedwater/water_clipboard.h"

#include "projectbase/water/blend_recipe.h"

namespace {

struct Store
{
    bool available = false;
    LiquidData liquid;
};

Store& GetStore()
{
    static Store store;
    return store;
}

}  // namespace

void WaterClipboard::PutLiquid(const LiquidData* liquid)
{
    Store& store = GetStore();
    DetailList& kept = *store.liquid.GetDetails();
    if (liquid != nullptr) {
        kept.LoadGroup("liquid", "BASE");
        kept.CopyValues(*liquid->GetDetails());
        // Where it is pasted, the waters of a blend may be others.
        water::ClearRecipe(kept);
    } else {
        kept.ClearValues();
    }
    store.available = liquid != nullptr;
}

bool WaterClipboard::GetLiquid(LiquidData* target)
{
    const Store& store = GetStore();
    if (store.available && target != nullptr)
        target->GetDetails()->CopyValues(*store.liquid.GetDetails());
    return store.available;
}

bool WaterClipboard::LiquidAvailable()
{
    return GetStore().available;
}

void WaterClipboard::RemoveLiquid()
{
    GetStore().liquid.GetDetails()->ClearValues();
}
