// SPDX-License-Identifier: MIT
#include "projectbase/details/detail_catalogue.h"

#include "dbinterfaces/master_database.h"

#include <filesystem>
#include <map>
#include <mutex>
#include <stdexcept>

namespace {

using Group = std::shared_ptr<const std::vector<DetailData>>;

DetailData FromDefinition(const DBObjects::DetailDefinition& definition)
{
    const auto type = DetailTypeFromName(definition.type);
    if (!type)
        throw std::runtime_error("CatalogueGroup: '" + definition.name + "' has the unknown type '" +
                                 definition.type + "'");
    DetailData detail(definition.name, *type, definition.unit);
    detail.SetDerived(definition.derived);
    detail.SetLabel(definition.label);
    detail.SetLimits(definition.min, definition.max, definition.limitUnit);
    detail.SetChoices(definition.choices);
    const bool keepEmpty = definition.defaultValue.empty() && *type != DetailType::Double;
    if (!keepEmpty && !detail.SetValueFromString(wxString::FromUTF8(definition.defaultValue))) {
        throw std::runtime_error("CatalogueGroup: '" + definition.name + "' cannot hold its default '" +
                                 definition.defaultValue + "'");
    }
    return detail;
}

Group ReadGroup(const std::string& group, const std::string& variant)
{
    auto details = std::make_shared<std::vector<DetailData>>();
    for (const auto& definition : MasterDatabase::GetDetailDefinitions(group, variant))
        details->push_back(FromDefinition(definition));
    if (details->empty())
        throw std::runtime_error("CatalogueGroup: no details for group '" + group + "', variant '" + variant +
                                 "'");
    return details;
}

}  // namespace

Group CatalogueGroup(const std::string& group, const std::string& variant)
{
    static std::mutex mutex;
    static std::filesystem::path source;
    static std::map<std::pair<std::string, std::string>, Group> groups;

    const std::lock_guard lock(mutex);
    const std::filesystem::path path = MasterDatabase::GetPath();
    if (path != source) {
        groups.clear();
        source = path;
    }
    Group& entry = groups[{group, variant}];
    if (!entry)
        entry = ReadGroup(group, variant);
    return entry;
}
