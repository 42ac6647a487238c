// SPDX-License-Identifier: MIT
#include "app/command_line/feed_setting.h"

#include "core/detection_limit.h"
#include "projectbase/feed/feed_composition.h"
#include "projectbase/project/iex_project.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace app {

namespace {

using Unit = FeedComposition::Unit;

std::string_view Trim(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

/// The place of the entry that a setting names.
std::size_t EntryOf(std::size_t count, const ProjectSetting& setting)
{
    const std::string_view digits = std::string_view(setting.owner).substr(kFeedEntry.size());
    std::size_t number = 0;
    const auto parsed = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (parsed.ec != std::errc() || parsed.ptr != digits.data() + digits.size() || number < 1 ||
        number > count)
        throw SettingError(
            fmt::format("there is no '{}' in the project: its feed has {} compounds", setting.owner, count));
    return number - 1;
}

Unit UnitOf(const std::string& text, Unit usual)
{
    if (text.empty())
        return usual;
    const auto& texts = FeedComposition::kUnitTexts;
    const auto found = std::ranges::find(texts, text);
    if (found == texts.end())
        throw SettingError(fmt::format("'{}' is no unit for a compound of the feed", text));
    return static_cast<Unit>(found - texts.begin());
}

}  // namespace

Quantity ParseQuantity(const ProjectSetting& setting)
{
    std::string_view text = Trim(setting.value);
    if (text.empty())
        return {};
    if (text.front() == '+' && text.size() > 1 && text[1] != '-')
        text.remove_prefix(1);
    double value = 0.0;
    const char* const end = text.data() + text.size();
    const auto parsed = std::from_chars(text.data(), end, value);
    if (parsed.ec != std::errc() || !std::isfinite(value))
        throw SettingError(fmt::format("'{}' is no number for {}", setting.value, setting.key));
    return {value,
            std::string(Trim(std::string_view(parsed.ptr, static_cast<std::size_t>(end - parsed.ptr))))};
}

Quantity ParseAmount(const ProjectSetting& setting)
{
    const auto limit = detection_limit::Behind(Trim(setting.value));
    Quantity quantity =
        limit ? ParseQuantity({.owner = setting.owner, .key = setting.key, .value = std::string(*limit)})
              : ParseQuantity(setting);
    if (quantity.value < 0.0)
        throw SettingError(fmt::format("'{}' is negative, which {} cannot be", setting.value, setting.key));
    if (limit)
        quantity.value = detection_limit::Make(quantity.value);
    return quantity;
}

DetailAddress FindFeedAddress(const Project& project, const ProjectSetting& setting)
{
    const auto groups = project.GetDetailGroups("feedcompound");
    const std::size_t entry = EntryOf(groups == nullptr ? 0 : groups->size(), setting);
    for (const std::string& name :
         {setting.key, "feedcompound/" + setting.key + ".typed", "feedcompound/" + setting.key}) {
        if (FindDetail(*(*groups)[entry], name) != nullptr)
            return {{}, name, static_cast<int>(entry)};
    }
    throw SettingError(fmt::format("there is no value '{}' of a compound", setting.key));
}

void ApplyFeedSetting(Project& project, const ProjectSetting& setting)
{
    auto* plant = dynamic_cast<iex::IEXProject*>(&project);
    if (plant == nullptr)
        throw SettingError("the project has no feed");
    FeedComposition composition = plant->LoadFeedCompositionFromDetails();
    const std::size_t index = EntryOf(composition.GetEntries().size(), setting);
    std::string_view key = setting.key;
    if (key.starts_with("feedcompound/"))
        key.remove_prefix(std::string_view("feedcompound/").size());
    const bool isEquivalents = key.ends_with(".meql");
    if (isEquivalents)
        key.remove_suffix(std::string_view(".meql").size());
    else if (key.ends_with(".typed"))
        key.remove_suffix(std::string_view(".typed").size());
    const bool isEffluent = key == "conc.effluent";
    if (!isEffluent && key != "conc")
        throw SettingError(fmt::format("there is no value '{}' of a compound that can be set", setting.key));
    const auto& entry = composition.GetEntries()[index];
    const Unit stated = (isEffluent ? entry.effluent : entry.feed).typed;
    const Quantity quantity = ParseQuantity(setting);
    const Unit unit = UnitOf(quantity.unit, isEquivalents ? Unit::MeqPerLitre : stated);
    if (isEffluent)
        composition.SetEffluent(index, unit, quantity.value);
    else
        composition.SetFeed(index, unit, quantity.value);
    plant->SaveFeedCompositionToDetails(composition);
}

}  // namespace app
