// SPDX-License-Identifier: MIT
#include "app/command_line/project_setting.h"

#include "app/command_line/feed_setting.h"
#include "core/text_limits.h"
#include "projectbase/project/project.h"
#include "projectbase/project/project_edit.h"
#include "projectbase/units/unit_system_manager.h"
#include "projectbase/water/blend_recipe.h"
#include "projectbase/water/detection_limits.h"
#include "projectbase/water/typed_units.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <limits>

namespace app {

namespace {

constexpr std::string_view kOrig = ".orig";
constexpr std::string_view kUnit = ".unit";

/// The name of the unit detail that belongs to an ".orig" one.
std::string UnitName(const std::string& name)
{
    return name.substr(0, name.size() - kOrig.size()) + std::string(kUnit);
}

/// The list and the name in it that a key means.
struct Target
{
    OwnerNode* owner = nullptr;
    DetailList* list = nullptr;
    std::string name;
    DetailData* detail = nullptr;
};

/// What the keys of an owner begin with.
std::string_view PrefixOf(OwnerKind kind)
{
    switch (kind) {
        case OwnerKind::Project:
            return "project/";
        case OwnerKind::Water:
            return "liquid/";
        case OwnerKind::Exchanger:
            return "step/";
        case OwnerKind::Compartment:
            return "stepcomp/";
        case OwnerKind::Resin:
            return "compcomp/";
        case OwnerKind::SequenceRow:
            break;
    }
    return "regseqstep/";
}

/// Whether a text has the form of an owner: "1", or "ex.1.comp.2", whatever the project has.
bool IsOwnerText(std::string_view text)
{
    const auto all = [](std::string_view part, int (*is)(int)) {
        return !part.empty() && std::all_of(part.begin(), part.end(),
                                            [is](char c) { return is(static_cast<unsigned char>(c)) != 0; });
    };
    if (text.empty() || all(text, std::isdigit))
        return !text.empty();
    while (!text.empty()) {
        const auto word = text.find('.');
        const auto end = word == std::string_view::npos ? word : text.find('.', word + 1);
        if (word == std::string_view::npos || !all(text.substr(0, word), std::isalpha) ||
            !all(text.substr(word + 1, end - word - 1), std::isdigit))
            return false;
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (end != std::string_view::npos && text.empty())
            return false;
    }
    return true;
}

/// The owner that a setting names; the first water where it names none.
OwnerNode& FindOwner(Project& project, const std::string& owner)
{
    std::size_t number = 0;
    const char* const end = owner.data() + owner.size();
    const auto parsed = std::from_chars(owner.data(), end, number);
    const bool isNumber = owner.empty() || (parsed.ec == std::errc() && parsed.ptr == end);
    if (isNumber) {
        if (number >= project.GetLiquidCount())
            throw SettingError(
                fmt::format("there is no water {}: the project has {}", number, project.GetLiquidCount()));
        return project.GetLiquid(number);
    }
    OwnerNode* found = project.FindOwner(owner);
    if (found == nullptr)
        throw SettingError(fmt::format("there is no '{}' in the project", owner));
    return *found;
}

Target FindTarget(Project& project, const ProjectSetting& setting)
{
    if (setting.owner.empty()) {
        if (DetailData* detail = project.GetDetails().GetDetail(setting.key))
            return {&project.GetRoot(), &project.GetDetails(), setting.key, detail};
    }
    OwnerNode& owner = FindOwner(project, setting.owner);
    DetailList* list = owner.GetDetails();
    const std::string_view prefix = PrefixOf(owner.GetKind());
    std::string name =
        setting.key.find('/') != std::string::npos ? setting.key : std::string(prefix) + setting.key;
    // "temp" stands for what is typed, not for the temperature in °C that follows from it.
    if (DetailData* typed = list->GetDetail(name + std::string(kOrig)))
        return {&owner, list, name + std::string(kOrig), typed};
    DetailData* detail = list->GetDetail(name);
    if (detail == nullptr)
        throw SettingError(fmt::format("there is no value '{}'", setting.key));
    return {&owner, list, name, detail};
}

/// The unit as the project keeps it; throws when what is typed as `name` cannot be given in it.
std::string CheckTypedUnit(const std::string& name, const std::string& unit)
{
    if (const auto known = water::TypedUnit(name, unit))
        return *known;
    throw SettingError(fmt::format("'{}' is no unit for {}", unit, name));
}

/// The number in the detail's ISO unit, given in that unit or in the one that another system shows for it.
double ToIso(const DetailData& detail, const Quantity& quantity)
{
    if (quantity.unit.empty())
        return quantity.value;
    for (const std::string& system : UnitSystemManager::GetUnitSystems()) {
        for (const bool typographic : {false, true}) {
            if (quantity.unit == UnitSystemManager::GetUnit(detail.GetUnit(), system, typographic))
                return UnitSystemManager::ToISO(detail.GetUnit(), system, quantity.value);
        }
    }
    throw SettingError(fmt::format("'{}' is no unit for {}", quantity.unit, detail.GetName()));
}

void SetNumber(const Target& target, const ProjectSetting& setting)
{
    const Quantity quantity =
        water::TakesDetectionLimit(target.name) ? ParseAmount(setting) : ParseQuantity(setting);
    DetailData* unit = target.name.ends_with(kOrig) ? target.list->GetDetail(UnitName(target.name)) : nullptr;
    if (unit == nullptr) {
        target.detail->SetValue(ToIso(*target.detail, quantity));
        return;
    }
    if (!quantity.unit.empty())
        unit->SetValue(CheckTypedUnit(target.name, quantity.unit));
    target.detail->SetValue(quantity.value);
}

void SetText(const Target& target, const ProjectSetting& setting)
{
    std::string value = setting.value;
    if (target.name.ends_with(kUnit))
        value = CheckTypedUnit(target.name, value);
    if (!target.detail->IsChoice(value))
        throw SettingError(fmt::format("'{}' is none of {} for {}", value,
                                       fmt::join(target.detail->GetChoices(), ", "), setting.key));
    const bool isOfParts = target.name == "liquid/blend.parts" || target.name == "liquid/amine.bases";
    const bool isRead = !isOfParts || value.empty() || !water::PartsOfText(value).empty();
    const std::size_t most = text_limits::MostOf(target.name);
    if (const std::size_t letters = text_limits::CountLetters(value); letters > most)
        throw SettingError(
            fmt::format("the text for {} has {} letters, {} is the most", setting.key, letters, most));
    const wxString text = wxString::FromUTF8(value);
    wxLongLong_t whole = 0;
    const bool isWhole = target.detail->GetType() != DetailType::Long || text.ToLongLong(&whole);
    if (!isRead || !isWhole || text.empty() != value.empty() || !target.detail->SetValueFromString(text)) {
        throw SettingError(
            fmt::format("'{}' is no {} for {}", setting.value, target.detail->GetTypeName(), setting.key));
    }
}

}  // namespace

DetailAddress FindAddress(Project& project, const ProjectSetting& setting)
{
    if (setting.owner.starts_with(kFeedEntry))
        return FindFeedAddress(project, setting);
    OwnerNode& owner = setting.owner.empty() && project.GetDetails().GetDetail(setting.key) != nullptr
                           ? project.GetRoot()
                           : FindOwner(project, setting.owner);
    for (const std::string& name : {setting.key, std::string(PrefixOf(owner.GetKind())) + setting.key}) {
        // What a key is short for is what it sets, where it sets anything.
        const bool isShort = name != setting.key && owner.FindDetail(name + std::string(kOrig)) != nullptr;
        if (!isShort && owner.FindDetail(name) != nullptr)
            return {owner.GetOwner(), name};
    }
    return {owner.GetOwner(), FindTarget(project, setting).name};
}

ProjectSetting ParseSetting(const std::string& text)
{
    const auto equals = text.find('=');
    if (equals == std::string::npos || equals == 0)
        throw SettingError(fmt::format("'{}' is not of the form KEY=VALUE", text), true);
    ProjectSetting setting{.owner = {}, .key = text.substr(0, equals), .value = text.substr(equals + 1)};
    const auto colon = setting.key.find(':');
    if (colon == std::string::npos)
        return setting;
    if (!IsOwnerText(setting.key.substr(0, colon)) || colon + 1 == setting.key.size())
        throw SettingError(fmt::format("'{}' is not of the form OWNER:KEY=VALUE", text), true);
    setting.owner = setting.key.substr(0, colon);
    setting.key.erase(0, colon + 1);
    return setting;
}

void ApplySetting(Project& project, const ProjectSetting& setting)
{
    if (setting.owner.starts_with(kFeedEntry)) {
        ApplyFeedSetting(project, setting);
        return;
    }
    const Target target = FindTarget(project, setting);
    if (target.detail->IsDerived())
        throw SettingError(fmt::format("'{}' is calculated and cannot be set", setting.key));
    DetailData::Value given;
    {
        const ProjectEdit edit(project);
        if (target.detail->GetType() == DetailType::Double)
            SetNumber(target, setting);
        else
            SetText(target, setting);
        project.NoteTyped(*target.owner, *target.detail);
        given = target.detail->GetStoredValue();
    }
    // A blend is what its waters make it, an ion without a name is none. What is given back may follow again.
    if (!setting.value.empty() && !SameDetailValue(given, target.detail->GetStoredValue()))
        throw SettingError(fmt::format("'{}' is settled by other values of the project", setting.key));
}

}  // namespace app
