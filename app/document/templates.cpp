// SPDX-License-Identifier: MIT
#include "app/document/templates.h"

#include "core/delimited_text.h"
#include "core/ion_table.h"
#include "core/number_text.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/project/project_edit.h"
#include "tncommon/data_dir.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>

namespace app {
namespace {

/// Detail that a column of the file fills; columns that only serve comparison fill none.
std::optional<std::string> DetailKey(const std::string& column)
{
    if (column == "temperature_c")
        return "liquid/temp.orig";
    if (column == "ph")
        return "liquid/ph";
    if (column == "m_value_mmol_l")
        return "liquid/alkalinity.m.orig";
    if (column == "conductivity_25_us_cm")
        return "liquid/cond25.measured.orig";
    const auto isIon = [&column](const auto& keys) {
        return std::find(keys.begin(), keys.end(), column) != keys.end();
    };
    if (isIon(ions::kCationKeys) || isIon(ions::kAnionKeys))
        return "liquid/" + column + ".orig";
    return std::nullopt;
}

/// Columns that say where the water comes from, and their details.
const std::map<std::string, std::string>& OriginColumns()
{
    static const std::map<std::string, std::string> columns{{"country", "liquid/country"},
                                                            {"place", "liquid/place"},
                                                            {"water_source", "liquid/water.source"},
                                                            {"water_type", "liquid/water.type"},
                                                            {"sampling_date", "liquid/sampling.date"},
                                                            {"source", "liquid/comments"}};
    return columns;
}

WaterTemplate MakeTemplate(const delimited::Row& heads, const delimited::Row& cells)
{
    WaterTemplate water;
    const std::map<std::string, std::string*> texts{
        {"id", &water.id}, {"name", &water.name}, {"kind", &water.kind}, {"source", &water.source}};
    for (std::size_t i = 0; i < heads.size() && i < cells.size(); ++i) {
        if (const auto origin = OriginColumns().find(heads[i]); origin != OriginColumns().end())
            water.texts.emplace_back(origin->second, cells[i]);
        if (const auto text = texts.find(heads[i]); text != texts.end()) {
            *text->second = cells[i];
            continue;
        }
        const auto key = DetailKey(heads[i]);
        const auto value = numbertext::Parse(cells[i], {});
        if (key && value)
            water.values.emplace_back(*key, *value);
    }
    return water;
}

std::vector<WaterTemplate> ReadTemplates()
{
    std::ifstream file(tncommon::DataDir() / "examples" / "waters.csv", std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    const auto rows = delimited::Parse(text, ',');
    std::vector<WaterTemplate> waters;
    for (std::size_t i = 1; i < rows.size(); ++i)
        waters.push_back(MakeTemplate(rows.front(), rows[i]));
    return waters;
}

}  // namespace

const std::vector<WaterTemplate>& WaterTemplates()
{
    static const std::vector<WaterTemplate> waters = ReadTemplates();
    return waters;
}

const WaterTemplate* FindWaterTemplate(const std::string& id)
{
    for (const WaterTemplate& water : WaterTemplates()) {
        if (water.id == id)
            return &water;
    }
    return nullptr;
}

void FillWater(LiquidData& liquid, const WaterTemplate& water)
{
    liquid.SetName(water.name);
    for (const auto& [key, value] : water.values)
        liquid.GetDetails()->At(key).SetValue(value);
    for (const auto& [key, text] : water.texts)
        liquid.GetDetails()->At(key).SetValue(text);
}

std::unique_ptr<Project> NewProjectFrom(const WaterTemplate& water)
{
    auto project = std::make_unique<iex::IEXProject>();
    const ProjectEdit edit(*project, {}, EditKind::Copied);
    LiquidData& liquid = project->GetLiquid(0);
    FillWater(liquid, water);
    if (DetailData* title = project->GetDetails().GetDetail("project/title"))
        title->SetValue(water.name);
    if (DetailData* comments = project->GetDetails().GetDetail("project/comments"))
        comments->SetValue(water.source);
    return project;
}

std::unique_ptr<Project> NewEmptyProject()
{
    auto project = std::make_unique<iex::IEXProject>();
    project->CalculateDesign();
    return project;
}

}  // namespace app
