// SPDX-License-Identifier: MIT
#include "gui_base/report/evaluation_tables.h"

#include "gui_base/report/advice_text.h"
#include "gui_base/report/balance_text.h"
#include "gui_base/report/water_results.h"

#include <wx/translation.h>

#include <algorithm>

namespace wateranalysis {
namespace {

using report::Align;

constexpr double kNumberWidth = 60.0;
constexpr double kUnitWidth = 56.0;
constexpr double kSeverityWidth = 60.0;

}  // namespace

report::Table ResultTable(const advice::Evaluation& evaluation, const LiquidData& water,
                          const ReportContext& context)
{
    report::Table table;
    table.columns = {
        {.title = context.Translated(wxTRANSLATE("Property")), .stretch = 1.0},
        {.title = context.Translated(wxTRANSLATE("Value")), .align = Align::Number, .minWidth = kNumberWidth},
        {.title = context.Translated(wxTRANSLATE("Unit")), .minWidth = kUnitWidth},
        {.title = "", .stretch = 1.0}};
    for (const ResultTile& tile : ResultTiles(evaluation, water, context)) {
        if (!tile.value.empty())
            table.rows.push_back({.cells = {{tile.title}, {tile.value}, {tile.unit}, {tile.second}}});
    }
    const std::string balance = BalanceText(evaluation.balance, context);
    const bool isAlarm = evaluation.balance.verdict == advice::BalanceVerdict::OverLimit;
    if (!balance.empty())
        table.rows.push_back({.cells = {{context.Translated(wxTRANSLATE("Ion balance"))},
                                        {},
                                        {},
                                        {.text = balance, .alarm = isAlarm}}});
    return table;
}

report::Table SaturationTable(const advice::Saturation& saturation, const ReportContext& context)
{
    report::Table table;
    table.columns = {{.title = context.Translated(wxTRANSLATE("Property")), .stretch = 1.0},
                     {.title = context.Translated(wxTRANSLATE("Value")),
                      .align = Align::Number,
                      .minWidth = kNumberWidth}};
    for (const SaturationRow& row : SaturationRows(saturation, context)) {
        if (!row.value.empty())
            table.rows.push_back({.cells = {{row.name}, {row.value}}});
    }
    return table;
}

report::Table AdviceTable(const std::vector<advice::Advice>& advice, const ReportContext& context)
{
    report::Table table;
    table.columns = {{.title = context.Translated(wxTRANSLATE("Kind")), .minWidth = kSeverityWidth},
                     {.title = context.Translated(wxTRANSLATE("Advice")), .stretch = 2.0},
                     {.title = context.Translated(wxTRANSLATE("Source")), .stretch = 1.0}};
    for (const advice::Advice& each : advice)
        table.rows.push_back(
            {.cells = {{.text = SeverityText(each.severity, context), .alarm = advice::IsWarning(each)},
                       {AdviceSentence(each, context)},
                       {AdviceSource(each, context)}}});
    return table;
}

}  // namespace wateranalysis
