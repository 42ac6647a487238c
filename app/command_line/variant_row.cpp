// SPDX-License-Identifier: MIT
#include "app/command_line/variant_row.h"

#include "core/delimited_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <nlohmann/json.hpp>

namespace app {

namespace {

constexpr std::array kPlantResults{"project/qnetto", "project/wnetto", "project/vol.waste.all"};
constexpr std::array kExchangerResults{"step/diameter", "step/v", "step/bed.depth", "step/dp",
                                       "step/run.time"};
constexpr std::array kCompartmentResults{"stepcomp/capacity", "stepcomp/rm", "stepcomp/rb.ratio"};
constexpr std::array kResinResults{"compcomp/vol"};
constexpr std::array kWaterResults{"liquid/ph", "liquid/tds", "liquid/cond25", "liquid/hardness.total"};

std::string Number(double value, const char* unknown)
{
    return std::isfinite(value) ? fmt::format("{}", value) : unknown;
}

/// As JSON where `isJson`.
std::string ValueText(const DetailData& detail, bool isJson)
{
    switch (detail.GetType()) {
        case DetailType::Double:
            return Number(detail.GetDoubleValue(), isJson ? "null" : "");
        case DetailType::Long:
            return fmt::format("{}", detail.GetLongValue());
        case DetailType::Bool:
            return detail.GetBoolValue() ? "true" : "false";
        case DetailType::Date:
        case DetailType::String:
            break;
    }
    const std::string text = detail.GetType() == DetailType::String ? detail.GetStdStringValue()
                                                                    : detail.GetValueAsString().utf8_string();
    return isJson ? nlohmann::json(text).dump() : text;
}

}  // namespace

VariantRow::VariantRow(Project& project, const std::vector<std::string>& first,
                       const std::vector<std::string>& columns, Form form)
    : m_form(form)
{
    for (const std::string& name : first)
        Add(project, name);
    for (const std::string& name : columns)
        Add(project, name);
    if (columns.empty())
        AddUsual(project);
}

void VariantRow::Add(Project& project, const std::string& name)
{
    const ProjectSetting key = ParseSetting(name + "=");
    const auto address = FindAddress(project, key);
    const auto isSame = [&address](const Column& column) { return column.address == address; };
    if (std::ranges::any_of(m_columns, isSame))
        return;
    if (m_columns.size() == kMostColumns)
        throw SettingError(fmt::format("there may be {} columns at most", kMostColumns));
    Column column{name, nlohmann::json(name).dump(), {}, address};
    if (const DetailData* detail = Find(project, column))
        column.unit = detail->GetUnit();
    m_columns.push_back(std::move(column));
}

void VariantRow::AddUsual(Project& project)
{
    const auto add = [&](const OwnerNode& node, const auto& keys) {
        const std::string path = project.PathOf(node.GetOwner());
        for (const char* key : keys)
            Add(project, path.empty() ? key : path + ":" + key);
    };
    const auto exchangers = project.GetRoot().GetChildren(OwnerKind::Exchanger);
    if (exchangers.empty()) {
        for (const auto& water : project.GetRoot().GetChildren(OwnerKind::Water))
            add(*water, kWaterResults);
        return;
    }
    add(project.GetRoot(), kPlantResults);
    for (const auto& exchanger : exchangers) {
        // A degasser has no bed.
        if (exchanger->GetChildren(OwnerKind::Compartment).empty())
            continue;
        add(*exchanger, kExchangerResults);
        for (const auto& compartment : exchanger->GetChildren(OwnerKind::Compartment)) {
            add(*compartment, kCompartmentResults);
            for (const auto& resin : compartment->GetChildren(OwnerKind::Resin))
                add(*resin, kResinResults);
        }
    }
}

const DetailData* VariantRow::Find(const Project& project, const Column& column) const
{
    const DetailAddress& address = column.address;
    if (address.entry < 0) {
        const OwnerNode* node = project.FindOwner(address.owner);
        return node == nullptr ? nullptr : node->FindDetail(address.key);
    }
    const auto groups = project.GetDetailGroups(address.key.substr(0, address.key.find('/')));
    const auto entry = static_cast<std::size_t>(address.entry);
    return groups == nullptr || entry >= groups->size() ? nullptr
                                                        : ::FindDetail(*(*groups)[entry], address.key);
}

std::string VariantRow::Line(std::vector<std::string> cells) const
{
    std::string text;
    if (m_form == Form::Csv) {
        text = delimited::Write({std::move(cells)}, ',');
        text.replace(text.size() - 2, 2, "\n");
        return text;
    }
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        text += fmt::format("{}{}: {}", i == 0 ? "{" : ", ", m_columns[i].quotedName, cells[i]);
    return text + "}\n";
}

std::string VariantRow::Head() const
{
    if (m_form == Form::JsonLine)
        return {};
    std::vector<std::string> cells;
    for (const Column& column : m_columns)
        cells.push_back(column.unit.empty() ? column.name : fmt::format("{} [{}]", column.name, column.unit));
    return Line(std::move(cells));
}

std::string VariantRow::Of(const Project& project) const
{
    const bool isJson = m_form == Form::JsonLine;
    std::vector<std::string> cells;
    cells.reserve(m_columns.size());
    for (const Column& column : m_columns) {
        const DetailData* detail = Find(project, column);
        cells.push_back(detail != nullptr ? ValueText(*detail, isJson) : isJson ? "null" : "");
    }
    return Line(std::move(cells));
}

std::string VariantRow::Failed(const std::vector<ProjectSetting>& settings) const
{
    const bool isJson = m_form == Form::JsonLine;
    std::vector<std::string> cells(m_columns.size(), isJson ? "null" : "");
    // What is swept stands first.
    for (std::size_t i = 0; i < settings.size() && i < cells.size(); ++i)
        cells[i] = isJson ? nlohmann::json(settings[i].value).dump() : settings[i].value;
    return Line(std::move(cells));
}

}  // namespace app
