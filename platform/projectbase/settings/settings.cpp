// SPDX-License-Identifier: MIT
#include "projectbase/settings/settings.h"

#include "dbinterfaces/project_database.h"
#include "projectbase/details/detail_catalogue.h"
#include "projectbase/project/range_faults.h"

#include <fmt/format.h>

#include <cmath>
#include <map>
#include <stdexcept>

namespace {

/// Names the database that holds the others, so it cannot live in there.
constexpr std::string_view kConnection = "database.connection";

/// Shortest text that reads back as the same value.
std::string ToText(const DetailData& detail)
{
    const double value = detail.GetDoubleValue();
    if (detail.GetType() == DetailType::Double && !std::isnan(value))
        return fmt::format("{}", value);
    return detail.GetValueAsString().utf8_string();
}

struct State
{
    State()
    {
        details.LoadGroup("settings", "BASE");
        for (const auto& [name, detail] : details)
            stored[name] = ToText(detail);
    }

    DetailList details;
    /// Texts as they stand in the database; a setting that was never stored counts as stored with its
    /// default.
    std::map<std::string, std::string> stored;
};

State& GetState()
{
    static State state;
    return state;
}

/// Takes the stored text into a copy first, so that a bad one leaves the setting alone.
bool TakeText(DetailData& detail, const std::string& text)
{
    DetailData parsed(detail);
    if (!detail.IsChoice(text) || !parsed.SetValueFromString(wxString::FromUTF8(text)) ||
        SideOfLimits(parsed) != 0)
        return false;
    detail.CopyValue(parsed);
    return true;
}

std::string ParameterName(const std::string& name)
{
    return "/Settings/" + name;
}

}  // namespace

DetailData& Settings::GetSetting(const std::string& name)
{
    if (DetailData* detail = GetState().details.GetDetail(name))
        return *detail;
    throw std::runtime_error("Settings::GetSetting: no setting '" + name + "'");
}

DetailList& Settings::GetSettings()
{
    return GetState().details;
}

std::string Settings::TextOf(const std::string& name)
{
    return ToText(GetSetting(name));
}

bool Settings::SetFromText(const std::string& name, const std::string& text)
{
    return TakeText(GetSetting(name), text);
}

void Settings::Load()
{
    State& state = GetState();
    std::map<std::string, std::string> read;
    for (const auto& [name, detail] : state.details) {
        const std::string key = ParameterName(name);
        read[name] = name == kConnection ? ProjectDatabase::GetLocalParameter(key, ToText(detail))
                                         : ProjectDatabase::GetUserParameter(key, ToText(detail));
    }
    for (const auto& [name, text] : read)
        TakeText(state.details.At(name), text);
    state.stored = std::move(read);
}

void Settings::Save()
{
    State& state = GetState();
    for (const auto& [name, detail] : state.details) {
        const std::string text = ToText(detail);
        std::string& stored = state.stored[name];
        if (text == stored)
            continue;
        if (name == kConnection)
            ProjectDatabase::SetLocalParameter(ParameterName(name), text);
        else
            ProjectDatabase::SetUserParameter(ParameterName(name), text);
        stored = text;
    }
}

void Settings::Reset()
{
    for (const auto& [name, detail] : GetState().details)
        Reset(name);
}

void Settings::Reset(const std::string& name)
{
    for (const DetailData& prototype : *CatalogueGroup("settings", "BASE")) {
        if (prototype.GetName() == name)
            GetSetting(name).CopyValue(prototype);
    }
}
