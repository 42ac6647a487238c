// SPDX-License-Identifier: MIT
#include "gui_base/report/regeneration_report.h"

#include "gui_base/report/design_report.h"
#include "gui_base/report/with_title.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/sequence/sequence_calculation.h"
#include "projectbase/sequence/sequence_rows.h"
#include "projectbase/units/unit_system_manager.h"

#include <fmt/format.h>
#include <wx/translation.h>

#include <array>
#include <cmath>
#include <numeric>
#include <stdexcept>

namespace {

constexpr int kDigits = 4;

struct Quantity
{
    const char* label;
    const char* unit;
    const char* name;  ///< of the value of a row
};
constexpr std::array kQuantities{
    Quantity{wxTRANSLATE("Velocity"), "m/h", "v"},      Quantity{wxTRANSLATE("Flow rate"), "m3/h", "q"},
    Quantity{wxTRANSLATE("Flow rate"), "BV/h", "q.bv"}, Quantity{wxTRANSLATE("Time"), "h", "t"},
    Quantity{wxTRANSLATE("Volume"), "m3", "vol"},       Quantity{wxTRANSLATE("Volume"), "BV", "vol.bv"},
};

std::string InUnit(const char* unit, double value, const ReportContext& context)
{
    return context.Number(UnitSystemManager::FromISO(unit, context.unitSystem, value), kDigits);
}

std::string Title(const char* label, const char* unit, const ReportContext& context)
{
    return fmt::format("{} [{}]", context.Translated(label),
                       UnitSystemManager::GetUnit(unit, context.unitSystem, true));
}

template <typename Record>
std::string LabelOf(const Record* record, const ReportContext& context)
{
    return record != nullptr ? context.Translated(record->label.c_str()) : std::string();
}

report::Table SequenceTable(const OwnerNode& exchanger, const ReportContext& context)
{
    report::Table table{.columns = {{.title = context.Translated(wxTRANSLATE("Type")), .stretch = 1.0},
                                    {.title = context.Translated(wxTRANSLATE("Medium"))}}};
    for (const Quantity& quantity : kQuantities)
        table.columns.push_back({.title = context.Translated(quantity.label),
                                 .unit = UnitSystemManager::GetUnit(quantity.unit, context.unitSystem, true),
                                 .align = report::Align::Number});
    for (const RegSeqStep& step : sequence::Read(exchanger).steps) {
        report::Row row{.cells = {{.text = LabelOf(sequence::FindType(step.type), context)},
                                  {.text = LabelOf(sequence::FindMedium(step.medium), context)}}};
        for (const Quantity& quantity : kQuantities) {
            const double value = step.Get(quantity.name);
            row.cells.push_back({.text = InUnit(quantity.unit, value, context), .alarm = value < 0.0});
        }
        table.rows.push_back(std::move(row));
    }
    return table;
}

report::Table MediumTable(const OwnerNode& exchanger, const ReportContext& context)
{
    report::Table table{
        .columns = {{.title = context.Translated(wxTRANSLATE("Medium")), .stretch = 1.0},
                    {.title = Title(wxTRANSLATE("Volume"), "m3", context), .align = report::Align::Number}}};
    const MediumSumsData sums = sequence::SumsOf(exchanger);
    for (const MediumSum& sum : sums)
        table.rows.push_back({.cells = {{.text = LabelOf(sequence::FindMedium(sum.medium), context)},
                                        {.text = InUnit("m3", sum.volume, context)}}});
    const double total = std::accumulate(sums.begin(), sums.end(), 0.0,
                                         [](double all, const MediumSum& sum) { return all + sum.volume; });
    table.rows.push_back({.cells = {{.text = context.Translated(wxTRANSLATE("Total"))},
                                    {.text = InUnit("m3", total, context)}}});
    table.rows.back().total = true;
    return table;
}

bool IsRegenerated(const OwnerNode& exchanger)
{
    return !exchanger.GetChildren(OwnerKind::SequenceRow).empty();
}

/// "Regeneration: Exchanger 1"
std::string TitleOf(const OwnerNode& exchanger, const ReportContext& context)
{
    return WithTitle(context.Translated(wxTRANSLATE("Regeneration")),
                     designtext::ExchangerTitle(exchanger, context), context);
}

}  // namespace

std::vector<ReportPage> RegenerationReport::GetReportPages(const ReportContext& context) const
{
    std::vector<ReportPage> pages;
    for (const auto& exchanger : m_project.GetRoot().GetChildren(OwnerKind::Exchanger)) {
        if (!IsRegenerated(*exchanger))
            continue;
        const auto place = static_cast<int>(exchanger->GetPosition());
        pages.push_back({.title = wxString::FromUTF8(TitleOf(*exchanger, context)),
                         .id = place,
                         .name = fmt::format("{}:regeneration", place)});
    }
    return pages;
}

report::Section RegenerationReport::BuildReportPage(int id, const ReportContext& context) const
{
    const auto exchangers = m_project.GetRoot().GetChildren(OwnerKind::Exchanger);
    if (id < 0 || static_cast<std::size_t>(id) >= exchangers.size() ||
        !IsRegenerated(*exchangers[static_cast<std::size_t>(id)]))
        throw std::out_of_range(fmt::format("RegenerationReport::BuildReportPage: there is no page {}", id));
    const OwnerNode& exchanger = *exchangers[static_cast<std::size_t>(id)];
    report::Section section{.title = TitleOf(exchanger, context), .joins = true};
    section.blocks.push_back(SequenceTable(exchanger, context));
    const std::string remarks = exchanger.GetDetails()->At("step/remarks").GetStdStringValue();
    if (!remarks.empty())
        section.blocks.push_back(report::Paragraph{remarks});
    section.blocks.push_back(report::Heading{context.Translated(wxTRANSLATE("Medium volumes"))});
    section.blocks.push_back(MediumTable(exchanger, context));
    return section;
}
