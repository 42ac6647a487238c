// SPDX-License-Identifier: MIT
#include "app/command_line/project_setting.h"

#include "core/ion_units.h"
#include "projectbase/project/project.h"
#include "projectbase/units/temperature.h"
#include "projectbase/units/unit_system_manager.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace app {

namespace {

/// Accepted for an ion beside those that the choice offers.
constexpr std::array<std::string_view, 3> kFurtherIonUnits{"g/m3", "g/l", "mgCaCO3/l"};
constexpr std::array<std::string_view, 3> kAnalysisTypes{"FULL", "SHORT_TDS", "SHORT_COND"};

constexpr std::string_view kOrig = ".orig";
constexpr std::string_view kUnit = ".unit";

template <typename Range>
bool Contains(const Range& range, std::string_view text)
{
    return std::find(range.begin(), range.end(), text) != range.end();
}

std::string_view Trim(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

struct Quantity
{
    double value = std::numeric_limits<double>::quiet_NaN();
    std::string unit;
};

/// A number and whatever follows it; not known for an empty text.
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

/// The name of the unit detail that belongs to an ".orig" one.
std::string UnitName(const std::string& name)
{
    return name.substr(0, name.size() - kOrig.size()) + std::string(kUnit);
}

/// The list and the name in it that a key means.
struct Target
{
    DetailList* list = nullptr;
    std::string name;
    DetailData* detail = nullptr;
};

Target FindTarget(Project& project, const ProjectSetting& setting)
{
    if (DetailData* detail = project.GetDetails().GetDetail(setting.key))
        return {&project.GetDetails(), setting.key, detail};
    if (setting.liquid >= project.GetLiquidCount()) {
        throw SettingError(fmt::format("there is no water {}: the project has {}", setting.liquid,
                                       project.GetLiquidCount()));
    }
    DetailList* list = project.GetLiquid(setting.liquid).GetDetails();
    std::string name = setting.key.starts_with("liquid/") ? setting.key : "liquid/" + setting.key;
    // "temp" stands for what is typed, not for the temperature in °C that follows from it.
    if (DetailData* typed = list->GetDetail(name + std::string(kOrig)))
        return {list, name + std::string(kOrig), typed};
    DetailData* detail = list->GetDetail(name);
    if (detail == nullptr)
        throw SettingError(fmt::format("there is no value '{}'", setting.key));
    if (detail->IsDerived())
        throw SettingError(fmt::format("'{}' is calculated and cannot be set", setting.key));
    return {list, name, detail};
}

/// The unit as the project keeps it; throws when what is typed as `name` cannot be given in it.
std::string CheckTypedUnit(const std::string& name, const std::string& unit)
{
    if (name.starts_with("liquid/temp.")) {
        if (const auto known = Temperature::UnitFromText(unit))
            return Temperature::UnitText(*known);
    } else if (name.starts_with("liquid/h.plus.") || name.starts_with("liquid/oh.minus.")) {
        if (Contains(ions::kEquivalentUnits, unit))
            return unit;
    } else if (Contains(ions::kIonUnits, unit) || Contains(kFurtherIonUnits, unit)) {
        return unit;
    }
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
    const Quantity quantity = ParseQuantity(setting);
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
    const bool known = target.name != "liquid/analysis.type" || Contains(kAnalysisTypes, value);
    const wxString text = wxString::FromUTF8(value);
    if (!known || text.empty() != value.empty() || !target.detail->SetValueFromString(text)) {
        throw SettingError(
            fmt::format("'{}' is no {} for {}", setting.value, target.detail->GetTypeName(), setting.key));
    }
}

}  // namespace

ProjectSetting ParseSetting(const std::string& text)
{
    const auto equals = text.find('=');
    if (equals == std::string::npos || equals == 0)
        throw SettingError(fmt::format("'{}' is not of the form KEY=VALUE", text), true);
    ProjectSetting setting{.liquid = 0, .key = text.substr(0, equals), .value = text.substr(equals + 1)};
    const auto colon = setting.key.find(':');
    if (colon == std::string::npos)
        return setting;
    const char* const end = setting.key.data() + colon;
    const auto parsed = std::from_chars(setting.key.data(), end, setting.liquid);
    if (parsed.ec != std::errc() || parsed.ptr != end || colon + 1 == setting.key.size())
        throw SettingError(fmt::format("'{}' is not of the form WATER:KEY=VALUE", text), true);
    setting.key.erase(0, colon + 1);
    return setting;
}

void ApplySetting(Project& project, const ProjectSetting& setting)
{
    const Target target = FindTarget(project, setting);
    if (target.detail->GetType() == DetailType::Double)
        SetNumber(target, setting);
    else
        SetText(target, setting);
}

}  // namespace app
