// SPDX-License-Identifier: MIT
#include "projectbase/water/blend_recipe.h"

#include "core/number_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numeric>
#include <optional>

namespace water {
namespace {

constexpr const char* kFirst = "liquid/blend.first";
constexpr const char* kSecond = "liquid/blend.second";
constexpr const char* kShare = "liquid/blend.share";
constexpr const char* kParts = "liquid/blend.parts";
constexpr const char* kMode = "liquid/blend.mode";
constexpr const char* kByFlow = "FLOW";
constexpr const char* kByShare = "SHARE";
constexpr double kAll = 100.0;  // %

/// Takes the text of one part off the front, its name freed of backslashes.
std::string TakePart(std::string_view& text)
{
    std::string part;
    std::size_t at = 0;
    for (; at < text.size() && text[at] != ';'; ++at) {
        if (text[at] == '\\' && at + 1 < text.size())
            ++at;
        part += text[at];
    }
    text.remove_prefix(std::min(text.size(), at + 1));
    return numbertext::Trim(part);
}

std::optional<BlendPart> ReadPart(const std::string& text)
{
    BlendPart part;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), part.amount);
    if (error != std::errc() || !std::isfinite(part.amount) || part.amount < 0.0)
        return std::nullopt;
    part.water = numbertext::Trim(text.substr(static_cast<std::size_t>(end - text.data())));
    if (part.water.empty())
        return std::nullopt;
    return part;
}

/// "liquid/blend.first" and its companions can say no more than this.
bool IsPairByShare(const BlendRecipe& recipe)
{
    constexpr double kRounding = 1e-9;
    return !recipe.byFlow && recipe.parts.size() == 2 &&
           std::abs(recipe.parts[0].amount + recipe.parts[1].amount - kAll) < kRounding;
}

}  // namespace

bool BlendRecipe::IsComplete() const
{
    const bool isValid = std::ranges::all_of(parts, [](const BlendPart& part) {
        return !part.water.empty() && std::isfinite(part.amount) && part.amount >= 0.0;
    });
    return isValid && parts.size() > 1 &&
           std::ranges::any_of(parts, [](const BlendPart& part) { return part.amount > 0.0; });
}

std::vector<double> BlendRecipe::Shares() const
{
    double all = 0.0;
    for (const BlendPart& part : parts)
        all += part.amount;
    std::vector<double> shares;
    for (const BlendPart& part : parts)
        shares.push_back(part.amount / all);
    return shares;
}

std::string PartsText(const std::vector<BlendPart>& parts)
{
    std::string text;
    for (const BlendPart& part : parts) {
        text += fmt::format("{}{} ", text.empty() ? "" : "; ", part.amount);
        for (const char letter : part.water) {
            if (letter == ';' || letter == '\\')
                text += '\\';
            text += letter;
        }
    }
    return text;
}

std::vector<BlendPart> PartsOfText(std::string_view text)
{
    std::vector<BlendPart> parts;
    while (!text.empty()) {
        const std::string written = TakePart(text);
        if (written.empty())
            continue;
        const auto part = ReadPart(written);
        if (!part || parts.size() == kMostBlendParts)
            return {};
        parts.push_back(*part);
    }
    return parts;
}

BlendRecipe RecipeOf(const DetailList& liquid)
{
    const std::string parts = liquid.At(kParts).GetStdStringValue();
    if (!parts.empty())
        return {PartsOfText(parts), liquid.At(kMode).GetStdStringValue() == kByFlow};
    const std::string first = liquid.At(kFirst).GetStdStringValue();
    const std::string second = liquid.At(kSecond).GetStdStringValue();
    if (first.empty() || second.empty())
        return {};
    const double share = std::clamp(liquid.At(kShare).GetDoubleValue(), 0.0, kAll);
    return {{{first, share}, {second, kAll - share}}, false};
}

void StoreRecipe(const BlendRecipe& recipe, DetailList& liquid)
{
    const bool isPair = IsPairByShare(recipe);
    liquid.At(kFirst).SetValue(isPair ? recipe.parts[0].water : std::string());
    liquid.At(kSecond).SetValue(isPair ? recipe.parts[1].water : std::string());
    if (isPair)
        liquid.At(kShare).SetValue(recipe.parts[0].amount);
    liquid.At(kParts).SetValue(isPair ? std::string() : PartsText(recipe.parts));
    liquid.At(kMode).SetValue(recipe.byFlow ? kByFlow : kByShare);
}

void RenameInRecipe(DetailList& liquid, const std::string& before, const std::string& after)
{
    BlendRecipe recipe = RecipeOf(liquid);
    bool isChanged = false;
    for (BlendPart& part : recipe.parts) {
        if (part.water == before) {
            part.water = after;
            isChanged = true;
        }
    }
    if (isChanged)
        StoreRecipe(recipe, liquid);
}

bool IsBlend(const DetailList& liquid)
{
    // Most waters are none: they need no recipe taken apart.
    if (liquid.At(kParts).GetStringValue().empty() && liquid.At(kFirst).GetStringValue().empty())
        return false;
    return RecipeOf(liquid).IsComplete();
}

bool IsOfRecipe(std::string_view key)
{
    return key.starts_with("liquid/blend.");
}

void ClearRecipe(DetailList& liquid)
{
    for (auto& [key, detail] : liquid) {
        if (IsOfRecipe(key))
            detail.ClearValue();
    }
}

}  // namespace water
