// SPDX-License-Identifier: MIT
#include "gui_base/report/feed_report.h"

#include "dbinterfaces/compound_names.h"
#include "dbinterfaces/master_database.h"
#include "gui_base/report/with_title.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/units/unit_system_manager.h"

#include <fmt/format.h>
#include <wx/translation.h>

#include <array>
#include <optional>
#include <stdexcept>

namespace {

using Unit = FeedComposition::Unit;

constexpr int kDigits = 5;
constexpr std::array kShownUnits{Unit::MgPerLitre, Unit::MmolPerLitre, Unit::MeqPerLitre, Unit::MgPerKg};

/// The compounds of the project's feed; nothing where it has none.
std::optional<FeedComposition> CompositionOf(const Project& project)
{
    const auto* plant = dynamic_cast<const iex::IEXProject*>(&project);
    if (plant == nullptr)
        return std::nullopt;
    FeedComposition composition = plant->LoadFeedCompositionFromDetails();
    if (composition.GetEntries().empty())
        return std::nullopt;
    return composition;
}

report::Row TextRow(const std::string& label, const std::string& value, const std::string& unit = {})
{
    return {.cells = {{.text = label}, {.text = value}, {.text = unit}}};
}

report::Table MediumTable(const FeedComposition& composition, const ReportContext& context)
{
    const FeedMedium::Data& medium = composition.GetMedium();
    const std::string name = MasterDatabase::GetFeedMedium(static_cast<int>(medium.id)).name;
    const std::string celsius = Temperature::UnitText(TemperatureUnit::Celsius);
    const double temperature = UnitSystemManager::FromISO(celsius, context.unitSystem,
                                                          medium.temperature.In(TemperatureUnit::Celsius));
    report::Table table{.columns = {{}, {.align = report::Align::Right}, {.stretch = 1.0}},
                        .showTitles = false};
    table.rows = {
        TextRow(context.Translated(wxTRANSLATE("Medium")), context.Translated(name.c_str())),
        TextRow(context.Translated(wxTRANSLATE("Temperature")), context.Number(temperature, kDigits),
                UnitSystemManager::GetUnit(celsius, context.unitSystem, true)),
        TextRow(
            context.Translated(wxTRANSLATE("Density")),
            context.Number(UnitSystemManager::FromISO("kg/l", context.unitSystem, composition.GetDensity()),
                           kDigits),
            UnitSystemManager::GetUnit("kg/l", context.unitSystem, true)),
    };
    return table;
}

report::Row NumberRow(const std::string& name, const std::string& formula,
                      const std::array<double, FeedComposition::kUnitCount>& values,
                      const ReportContext& context)
{
    report::Row row{.cells = {{.text = name}, {.text = formula}}};
    for (const Unit unit : kShownUnits) {
        const double value = values[static_cast<std::size_t>(unit)];
        row.cells.push_back({.text = context.Number(value, kDigits), .alarm = value < 0.0});
    }
    return row;
}

using Block = FeedComposition::Concentration FeedComposition::CompoundEntry::*;

report::Table ConcentrationTable(const FeedComposition& composition, Block block,
                                 const FeedComposition::Totals& totals, const ReportContext& context)
{
    report::Table table{.columns = {{.title = context.Translated(wxTRANSLATE("Name")), .stretch = 1.0},
                                    {.title = context.Translated(wxTRANSLATE("Formula"))}}};
    for (const Unit unit : kShownUnits)
        table.columns.push_back({.title = FeedComposition::kUnitTexts[static_cast<std::size_t>(unit)],
                                 .align = report::Align::Number});
    for (const auto& entry : composition.GetEntries())
        table.rows.push_back(NumberRow(compound_names::Shown(entry.name, entry.formula, context.language),
                                       entry.formula, (entry.*block).values, context));
    table.rows.push_back(
        NumberRow(context.Translated(wxTRANSLATE("Total")), std::string(), totals.values, context));
    table.rows.back().total = true;
    return table;
}

report::Paragraph PhOf(double pH, const ReportContext& context)
{
    return {WithTitle(context.Translated(wxTRANSLATE("pH")), context.Number(pH, 3), context)};
}

}  // namespace

std::vector<ReportPage> FeedReport::GetReportPages(const ReportContext& context) const
{
    if (!CompositionOf(m_project))
        return {};
    return {{.title = wxString::FromUTF8(context.Translated(wxTRANSLATE("Feed composition"))),
             .id = 0,
             .name = "feed"}};
}

report::Section FeedReport::BuildReportPage(int id, const ReportContext& context) const
{
    const auto composition = CompositionOf(m_project);
    if (id != 0 || !composition)
        throw std::out_of_range(fmt::format("FeedReport::BuildReportPage: there is no page {}", id));
    report::Section section{.title = context.Translated(wxTRANSLATE("Feed composition"))};
    section.blocks.push_back(MediumTable(*composition, context));
    section.blocks.push_back(report::Heading{context.Translated(wxTRANSLATE("Total feed composition"))});
    section.blocks.push_back(ConcentrationTable(*composition, &FeedComposition::CompoundEntry::feed,
                                                composition->GetFeedTotals(), context));
    section.blocks.push_back(PhOf(composition->GetTotalPh(), context));
    if (!composition->UsesEffluent())
        return section;
    section.blocks.push_back(report::Heading{context.Translated(wxTRANSLATE("Total effluent composition"))});
    section.blocks.push_back(ConcentrationTable(*composition, &FeedComposition::CompoundEntry::effluent,
                                                composition->GetEffluentTotals(), context));
    section.blocks.push_back(PhOf(composition->GetEffluentTotals().pH, context));
    return section;
}
