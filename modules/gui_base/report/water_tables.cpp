// SPDX-License-Identifier: MIT
#include "gui_base/report/water_tables.h"

#include "core/amount_text.h"
#include "core/detection_limit.h"
#include "dbinterfaces/master_database.h"
#include "gui_base/report/balance_text.h"
#include "gui_base/report/range_sentence.h"
#include "gui_base/report/water_results.h"
#include "gui_base/report/with_title.h"
#include "gui_base/water/rows/ion_rows.h"
#include "gui_base/water/rows/property_rows.h"
#include "projectbase/advice/balance_judgement.h"
#include "projectbase/advice/water_numbers.h"
#include "projectbase/details/date_text.h"
#include "projectbase/details/detail_display.h"
#include "projectbase/water/alkalinity.h"
#include "projectbase/water/detection_limits.h"

#include <fmt/format.h>
#include <wx/translation.h>

#include <algorithm>
#include <cmath>
#include <span>

namespace wateranalysis {
namespace {

using report::Align;
using report::Cell;

constexpr int kTypedDigits = 6;
constexpr int kMeqlDigits = 5;
constexpr int kMglDigits = 6;
constexpr int kDigits = 4;
constexpr double kLabelWidth = 110.0;
constexpr double kNumberWidth = 76.0;
constexpr double kUnitWidth = 64.0;
constexpr double kMeqPerMmolHardness = 2.0;

double Value(const DetailList& details, const std::string& key)
{
    return details.At(key).GetDoubleValue();
}

std::string Text(const DetailList& details, const std::string& key)
{
    const DetailData* detail = details.GetDetail(key);
    return detail != nullptr ? detail->GetStdStringValue() : std::string();
}

bool IsShort(const DetailList& details)
{
    return Text(details, "liquid/analysis.type").starts_with("SHORT");
}

/// A number that is marked where it lies outside its limits.
Cell NumberCell(const DetailData& detail, double shown, int digits, const ReportContext& context)
{
    const int side = SideOfLimits(detail);
    const char* const mark = side < 0 ? "\u25bc " : side > 0 ? "\u25b2 " : "";
    const bool isLimit = detection_limit::Is(shown) && water::TakesDetectionLimit(detail.GetName());
    const std::string number = isLimit ? "<" + context.Number(-shown, digits) : context.Number(shown, digits);
    return {.text = mark + number, .alarm = *mark != '\0'};
}

Cell NumberCell(const DetailData& detail, int digits, const ReportContext& context)
{
    return NumberCell(detail, detail.GetDoubleValue(), digits, context);
}

/// Two decimals, which is more than an analysis can state.
std::string PercentText(double percent, const ReportContext& context)
{
    const double rounded = std::round(100.0 * percent) / 100.0 + 0.0;
    return numbertext::Format(rounded, {.format = TvTextCtrlFormat::Fixed, .precision = 2},
                              context.separators);
}

/// Three columns as wide as their contents: what it is, how much, in which unit.
report::Table ValueTable(const ReportContext& context)
{
    report::Table table;
    table.columns = {
        {.title = context.Translated(wxTRANSLATE("Property")), .stretch = 1.0},
        {.title = context.Translated(wxTRANSLATE("Value")), .align = Align::Number, .minWidth = kNumberWidth},
        {.title = context.Translated(wxTRANSLATE("Unit")), .minWidth = kUnitWidth}};
    return table;
}

/// A value in the unit of the report's unit system, or in its ISO unit.
report::Row ValueRow(const std::string& label, const DetailData& detail, bool convertUnit, int digits,
                     const ReportContext& context)
{
    const DisplayFromDetail display;
    const std::string system = convertUnit ? context.unitSystem : "iso";
    return {.cells = {{label},
                      NumberCell(detail, display.GetValue(detail, system), digits, context),
                      {display.GetUnitLabel(detail, system).utf8_string()}}};
}

std::string CountryName(const DetailList& details, const ReportContext& context)
{
    const std::string code = Text(details, "liquid/country");
    const std::string name =
        code.empty() ? std::string() : MasterDatabase::GetCountry(code, context.language);
    return name.empty() ? code : name;
}

std::string DateText(const DetailList& details, const std::string& key)
{
    const DetailData* detail = details.GetDetail(key);
    if (detail == nullptr || detail->GetType() != DetailType::Date)
        return Text(details, key);
    return ::DateText(detail->GetDateValue()).utf8_string();
}

/// What kind of analysis it is, with the one value that a short one rests on.
std::string AnalysisText(const DetailList& details, const ReportContext& context)
{
    const std::string type = Text(details, "liquid/analysis.type");
    const auto withValue = [&](const char* source, const char* key) {
        const DetailData& detail = details.At(key);
        return WithTitle(context.Translated(source),
                         numbertext::WithUnit(context.Number(detail.GetDoubleValue(), kTypedDigits),
                                              DisplayFromDetail().GetUnitLabel(detail, "iso").utf8_string()),
                         context);
    };
    if (type == "SHORT_TDS")
        return withValue(wxTRANSLATE("Short analysis based on TDS"), "liquid/tds.short");
    if (type == "SHORT_COND")
        return withValue(wxTRANSLATE("Short analysis based on conductivity"), "liquid/cond.short");
    return context.Translated(wxTRANSLATE("Full analysis"));
}

report::Row IonTableRow(const DetailList& details, const IonRow& ion, const ReportContext& context)
{
    const std::string prefix = std::string("liquid/") + ion.key;
    const std::string name =
        ion.kind == IonRowKind::Named ? Text(details, prefix + ".name") : PlainLabel(ion.label, context);
    // A short analysis sets sodium and chloride itself, an m-value bicarbonate and carbonate: what stands in
    // their fields has no part in it.
    const bool isOfAlkalinity = std::string_view(ion.key) == "hco3" || std::string_view(ion.key) == "co3";
    const bool typed = !IsShort(details) && !(isOfAlkalinity && water::IsAlkalinityReported(details));
    return {.cells = {{name},
                      typed ? NumberCell(details.At(prefix + ".orig"), kTypedDigits, context) : Cell{""},
                      {typed ? Text(details, prefix + ".unit") : std::string()},
                      NumberCell(details.At(prefix + ".mgl"), kMglDigits, context),
                      NumberCell(details.At(prefix + ".meql"), kMeqlDigits, context)}};
}

report::Table IonTable(const DetailList& details, std::span<const IonRow> rows, const TotalRow& sum,
                       const TotalRow& closing, const ReportContext& context)
{
    report::Table table;
    table.columns = {
        {.title = context.Translated(wxTRANSLATE("Ion")), .stretch = 1.0},
        {.title = context.Translated(wxTRANSLATE("As reported")),
         .align = Align::Number,
         .minWidth = kNumberWidth},
        {.title = context.Translated(wxTRANSLATE("Unit")), .minWidth = kUnitWidth},
        {.title = "mg/l", .align = Align::Number, .minWidth = kNumberWidth},
        {.title = "meq/l", .align = Align::Number, .minWidth = kNumberWidth},
    };
    for (const IonRow& row : rows) {
        if (Value(details, std::string("liquid/") + row.key + ".meql") != 0.0)
            table.rows.push_back(IonTableRow(details, row, context));
    }
    const auto addTotal = [&](const TotalRow& total) {
        table.rows.push_back({.cells = {{context.Translated(total.label)},
                                        {},
                                        {},
                                        {},
                                        NumberCell(details.At(total.key), kMeqlDigits, context)},
                              .total = true});
    };
    addTotal(sum);
    if (Value(details, closing.key) > 0.0)
        addTotal(closing);
    return table;
}

/// An amount in meq/l, in degrees and as calcium carbonate; in mmol/l where it is of divalent ions.
report::Row HardnessRow(const std::string& label, double meq, bool divalent, const ReportContext& context)
{
    const auto in = [&](std::string_view unit) {
        return Cell{context.Number(advice::HardnessIn(meq, unit), kDigits)};
    };
    report::Row row{
        .cells = {{label},
                  {context.Number(meq, kDigits)},
                  {divalent ? context.Number(meq / kMeqPerMmolHardness, kDigits) : std::string()}}};
    if (const std::string degree = HardnessDegree(context); !degree.empty())
        row.cells.push_back(in(degree));
    row.cells.push_back(in("ppm CaCO3"));
    return row;
}

}  // namespace

std::string PlainLabel(const char* source, const ReportContext& context)
{
    std::string label = context.Translated(source);
    // French has a blank before it.
    for (const std::string_view colon : {"\u00a0:", ":"}) {
        if (label.ends_with(colon))
            label.resize(label.size() - colon.size());
    }
    return label;
}

std::string WaterTypeText(const std::string& code, const ReportContext& context)
{
    const std::string description =
        code.empty() ? std::string() : MasterDatabase::GetWaterTypeDescription(code);
    return description.empty() ? code : context.Translated(description.c_str());
}

report::Table GeneralTable(const DetailList& details, const std::string& name, const ReportContext& context)
{
    report::Table table;
    table.showTitles = false;
    table.columns = {{.minWidth = kLabelWidth}, {.stretch = 1.0}};
    const auto add = [&](const char* label, const std::string& text) {
        if (!text.empty())
            table.rows.push_back({.cells = {{context.Translated(label)}, {text}}});
    };
    add(wxTRANSLATE("Water"), name);
    add(wxTRANSLATE("Country"), CountryName(details, context));
    add(wxTRANSLATE("Place"), Text(details, "liquid/place"));
    add(wxTRANSLATE("Water source"), Text(details, "liquid/water.source"));
    add(wxTRANSLATE("Water type"), WaterTypeText(Text(details, "liquid/water.type"), context));
    add(wxTRANSLATE("Date of sampling"), DateText(details, "liquid/sampling.date"));
    add(wxTRANSLATE("Analysis"), AnalysisText(details, context));
    add(wxTRANSLATE("Comments"), Text(details, "liquid/comments"));
    return table;
}

report::Table CationTable(const DetailList& details, const ReportContext& context)
{
    return IonTable(details, kCationRows, {"liquid/sum.c.meql", wxTRANSLATE("Sum of cations")},
                    {"liquid/na.plus.meql", wxTRANSLATE("Sodium that closes the balance")}, context);
}

report::Table AnionTable(const DetailList& details, const ReportContext& context)
{
    return IonTable(details, kAnionRows, {"liquid/sum.a.meql", wxTRANSLATE("Sum of anions")},
                    {"liquid/cl.plus.meql", wxTRANSLATE("Chloride that closes the balance")}, context);
}

report::Table BalanceTable(const DetailList& details, const ReportContext& context)
{
    const advice::BalanceJudgement judged = advice::JudgeBalance(details, advice::ChosenBalanceRule());
    const bool alarm = judged.verdict == advice::BalanceVerdict::OverLimit;
    report::Table table = ValueTable(context);
    table.showTitles = false;
    table.rows.push_back(
        {.cells = {{context.Translated(wxTRANSLATE("Difference of the sums in percent of their total"))},
                   {.text = PercentText(Value(details, "liquid/balance.error"), context), .alarm = alarm},
                   {"%"}}});
    const std::string judgement = BalanceText(judged, context);
    if (!judgement.empty())
        table.rows.push_back({.cells = {{.text = judgement, .alarm = alarm}}});
    return table;
}

report::Table MeasuredTable(const DetailList& details, const ReportContext& context)
{
    report::Table table = ValueTable(context);
    const auto add = [&](const char* label, const char* key, int digits) {
        table.rows.push_back(ValueRow(PlainLabel(label, context), details.At(key), true, digits, context));
    };
    add(wxTRANSLATE("Temperature"), "liquid/temp", kDigits);
    for (const PropertyRow& row : kMainProperties)
        add(row.label, row.key, row.precision);
    for (const AlkalinityRow& row : kAlkalinityRows) {
        if (Value(details, row.key) != 0.0 && !IsShort(details))
            table.rows.push_back({.cells = {{context.Translated(row.label)},
                                            NumberCell(details.At(row.key), kTypedDigits, context),
                                            {Text(details, row.unitKey)}}});
    }
    for (const MeasuredRow& row : kMeasuredRows) {
        const std::string key = std::string("liquid/") + row.name;
        if (std::isfinite(Value(details, key + ".orig")))
            table.rows.push_back({.cells = {{context.Translated(row.label)},
                                            NumberCell(details.At(key + ".orig"), kTypedDigits, context),
                                            {Text(details, key + ".unit")}}});
    }
    // CO2 that was neither typed nor calculated is not known.
    if (Value(details, "liquid/co2.mgl") != 0.0 || details.At("liquid/calculate.co2").GetBoolValue())
        add(wxTRANSLATE("CO2:"), "liquid/co2.mgl", kTypedDigits);
    for (const PropertyRow& row : kFurtherProperties) {
        if (std::isfinite(Value(details, row.key)))
            add(row.label, row.key, row.precision);
    }
    return table;
}

report::Table HardnessTable(const DetailList& details, const ReportContext& context)
{
    report::Table table;
    table.columns = {{.title = context.Translated(wxTRANSLATE("Property")), .stretch = 1.0}};
    const std::string degree = HardnessDegree(context);
    for (const char* unit : {"meq/l", "mmol/l", degree.c_str(), "ppm CaCO3"}) {
        if (*unit != '\0')
            table.columns.push_back({.title = unit, .align = Align::Number, .minWidth = kNumberWidth});
    }
    if (IsShort(details))
        return table;
    const auto add = [&](const char* label, double meq, bool divalent) {
        table.rows.push_back(HardnessRow(context.Translated(label), meq, divalent, context));
    };
    // What the pH alone makes of H+ and OH- is no alkalinity.
    const bool hasAlkalinity = water::IsAlkalinityKnown(details);
    for (const EquivalentRow& row : kEquivalentRows) {
        const std::string_view key = row.key;
        if (!hasAlkalinity && key != "liquid/hardness.total" && key != "liquid/ema")
            continue;
        add(row.label, Value(details, row.key), row.isHardness);
        if (key == "liquid/hardness.carbonate")
            add(wxTRANSLATE("Non-carbonate hardness"),
                Value(details, "liquid/hardness.total") - Value(details, row.key), true);
    }
    return table;
}

report::Table SummaryTable(const DetailList& details, const ReportContext& context)
{
    report::Table table = ValueTable(context);
    for (const SummaryRow& row : kSummaryRows) {
        std::string label = PlainLabel(row.label, context) + row.labelSuffix;
        std::erase(label, ':');
        table.rows.push_back(ValueRow(label, details.At(row.key), row.convertUnit, row.precision, context));
    }
    return table;
}

std::vector<std::string> RangeSentences(const DetailList& details, const ReportContext& context)
{
    std::vector<std::string> sentences;
    for (const RangeFault& fault : RangeFaults(details))
        sentences.push_back(RangeSentence(fault, context));
    return sentences;
}

}  // namespace wateranalysis
