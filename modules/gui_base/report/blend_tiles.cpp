// SPDX-License-Identifier: MIT
#include "gui_base/report/blend_tiles.h"

#include "core/amount_text.h"
#include "gui_base/report/balance_text.h"
#include "projectbase/advice/evaluation.h"
#include "projectbase/project/blended_water.h"
#include "projectbase/project/project.h"
#include "projectbase/units/unit_system_manager.h"

#include <fmt/format.h>
#include <wx/translation.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace wateranalysis {

namespace {

constexpr std::array<std::string_view, 4> kShown{"tds", "hardness", "m", "ph"};

std::vector<ResultTile> Chosen(std::vector<ResultTile> tiles, const std::string& balance,
                               const ReportContext& context)
{
    std::erase_if(tiles, [](const ResultTile& tile) {
        return std::ranges::find(kShown, std::string_view(tile.id)) == kShown.end();
    });
    tiles.push_back(
        {.id = "balance", .title = context.Translated(wxTRANSLATE("Balance error")), .value = balance});
    return tiles;
}

}  // namespace

std::vector<ResultTile> BlendTiles(const Project& project, const LiquidData* blend,
                                   const water::BlendRecipe& recipe, const ReportContext& context)
{
    if (!recipe.IsComplete())
        return Chosen(EmptyTiles(context), {}, context);
    const water::TriedBlend tried = water::TryBlend(project, blend, recipe);
    const advice::Evaluation evaluation = advice::Evaluate(*tried.project, *tried.water);
    return Chosen(ResultTiles(evaluation, *tried.water, context), BalanceText(evaluation.balance, context),
                  context);
}

std::string RecipeText(const water::BlendRecipe& recipe, const ReportContext& context)
{
    const char* const isoUnit = recipe.byFlow ? "m3/h" : "%";
    const std::string unit = UnitSystemManager::GetUnit(isoUnit, context.unitSystem, true);
    std::string text;
    for (const water::BlendPart& part : recipe.parts) {
        const double amount = UnitSystemManager::FromISO(isoUnit, context.unitSystem, part.amount);
        text += fmt::format("{}{} {}", text.empty() ? "" : ", ",
                            numbertext::WithUnit(context.Number(amount, 4), unit),
                            context.Translated(part.water.c_str()));
    }
    return text;
}

}  // namespace wateranalysis
