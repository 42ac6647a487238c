// SPDX-License-Identifier: MIT
#include "app/command_line/project_output.h"

#include "core/amount_text.h"
#include "dbinterfaces/master_database.h"
#include "gui_base/report/advice_text.h"
#include "gui_base/report/balance_text.h"
#include "gui_base/report/design_report.h"
#include "gui_base/report/range_sentence.h"
#include "gui_base/report/water_results.h"
#include "projectbase/advice/evaluation.h"
#include "projectbase/details/detail_display.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/project/project_json.h"
#include "projectbase/project/range_faults.h"
#include "projectbase/water/alkalization.h"
#include "tncommon/printable_text.h"

#include <fmt/format.h>
#include <fmt/ostream.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace app {

namespace {

struct SummaryRow
{
    const char* name;
    const char* label;
    bool onlyIfKnown = false;
    bool isTyped = false;  ///< 0 is what nobody typed
};

constexpr std::array kSummary{
    SummaryRow{"liquid/sum.c.meql", "Sum of cations"},
    SummaryRow{"liquid/sum.a.meql", "Sum of anions"},
    SummaryRow{"liquid/na.plus.meql", "+ Na"},
    SummaryRow{"liquid/cl.plus.meql", "+ Cl"},
    SummaryRow{"liquid/balance.error", "Balance error"},
    SummaryRow{"liquid/hardness.total", "Total hardness", true},
    SummaryRow{"liquid/hardness.measured", "Measured hardness", true},
    SummaryRow{"liquid/hardness.carbonate", "Carbonate hardness", true},
    SummaryRow{"liquid/alkalinity.m", "m-value", true},
    SummaryRow{"liquid/alkalinity.p", "p-value", true},
    SummaryRow{"liquid/ema", "Equivalent acidity", true},
    SummaryRow{"liquid/temp", "Temperature"},
    SummaryRow{"liquid/ph", "pH"},
    SummaryRow{"liquid/alk.ph", "pH after alkalization", true},
    SummaryRow{"liquid/alk.dosed", "Alkalizing agent", true},
    SummaryRow{"liquid/co2.mgl", "CO2", true, true},
    SummaryRow{"liquid/tds", "Total dissolved solids"},
    SummaryRow{"liquid/residue", "Dry residue at 180 \u00b0C"},
    SummaryRow{"liquid/cond", "Conductivity"},
    SummaryRow{"liquid/cond25", "Conductivity at 25 \u00b0C"},
    SummaryRow{"liquid/cond25.measured", "Measured conductivity", true},
    SummaryRow{"liquid/p.osmotic", "Osmotic pressure"},
    SummaryRow{"liquid/ionic.strength", "Ionic strength"},
};

std::string Shown(const DetailData& detail, const std::string& unitSystem)
{
    const std::string text = DisplayFromDetail().GetValueAsString(detail, unitSystem).utf8_string();
    return text.empty() ? "-" : text;
}

void PrintIons(const DetailList& details, const std::string& unitSystem, std::ostream& out)
{
    fmt::print(out, "  {:<24}{:>14}{:>14}\n", "", "meq/l", "mg/l");
    for (const auto& ion : MasterDatabase::GetIons("%", "%", "%")) {
        const DetailData& meql = details.At("liquid/" + ion.key + ".meql");
        const DetailData& mgl = details.At("liquid/" + ion.key + ".mgl");
        if (meql.GetDoubleValue() == 0.0 && mgl.GetDoubleValue() == 0.0)
            continue;
        const DetailData* name = details.GetDetail("liquid/" + ion.key + ".name");
        const std::string label = name == nullptr ? ion.symbol : name->GetStdStringValue();
        fmt::print(out, "  {:<24}{:>14}{:>14}\n", label, Shown(meql, unitSystem), Shown(mgl, unitSystem));
    }
}

void PrintSummary(const DetailList& details, const std::string& unitSystem, std::ostream& out)
{
    for (const SummaryRow& row : kSummary) {
        const DetailData& detail = details.At(row.name);
        const double value = detail.GetDoubleValue();
        if (row.onlyIfKnown && (!std::isfinite(value) || (row.isTyped && value == 0.0)))
            continue;
        const std::string unit = DisplayFromDetail().GetUnitLabel(detail, unitSystem).utf8_string();
        fmt::print(out, "  {:<24}{:>14} {}", row.label, Shown(detail, unitSystem), unit);
        out << '\n';
    }
}

/// English, ISO units unless it says otherwise, a decimal point.
ReportContext PlainContext(const std::string& unitSystem = "iso")
{
    ReportContext context;
    context.unitSystem = unitSystem;
    return context;
}

void PrintResult(const std::string& name, const std::string& text, std::ostream& out)
{
    fmt::print(out, "  {:<38}{}\n", name, numbertext::WithUsualBlanks(text));
}

/// What the results of the window tell beyond the summary and the indices.
void PrintResults(const advice::Evaluation& evaluation, const LiquidData& liquid,
                  const ReportContext& context, std::ostream& out)
{
    if (const std::string balance = wateranalysis::BalanceText(evaluation.balance, context); !balance.empty())
        PrintResult("Ion balance", balance, out);
    constexpr std::array<std::string_view, 2> kLoads{"anions", "load"};
    for (const wateranalysis::ResultTile& tile : wateranalysis::ResultTiles(evaluation, liquid, context)) {
        if (std::string_view(tile.id) == "ph" && !tile.second.empty())
            PrintResult("Free carbonic acid", tile.second, out);
        if (tile.value.empty() || std::ranges::find(kLoads, tile.id) == kLoads.end())
            continue;
        const std::string second = tile.second.empty() ? std::string() : fmt::format(" ({})", tile.second);
        PrintResult(tile.title, fmt::format("{} {}{}", tile.value, tile.unit, second), out);
    }
    const std::string reading = wateranalysis::LangelierReading(evaluation.saturation.langelier, context);
    if (!reading.empty())
        PrintResult("Reading of the Langelier index", reading, out);
}

/// All lines below the first one as that one.
std::string Indented(std::string text)
{
    constexpr std::string_view kBreak = "\n    ";
    for (auto at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + kBreak.size()))
        text.replace(at, 1, kBreak);
    return text;
}

/// What follows from the evaluation of a water.
void PrintEvaluation(const Project& project, const LiquidData& liquid, std::ostream& out)
{
    const ReportContext context = PlainContext(project.GetUnitSystemDisplay());
    const advice::Evaluation evaluation = advice::Evaluate(project, liquid);
    PrintResults(evaluation, liquid, context, out);
    for (const wateranalysis::SaturationRow& row :
         wateranalysis::SaturationRows(evaluation.saturation, context)) {
        if (!row.value.empty())
            PrintResult(row.name, row.value, out);
    }
    for (const advice::Advice& advice : evaluation.advice)
        fmt::print(out, "  {}: {}\n    {}\n", wateranalysis::SeverityText(advice.severity, context),
                   numbertext::WithUsualBlanks(wateranalysis::AdviceSentence(advice, context)),
                   Indented(numbertext::WithUsualBlanks(wateranalysis::AdviceReason(advice, context))));
}

void PrintLine(const designtext::Line& line, std::ostream& out)
{
    if (!line.value.empty())
        fmt::print(out, "  {:<52}{:>16} {}\n", line.name, line.value, line.unit);
}

void PrintDetails(const OwnerNode& node, std::span<const char* const> keys, const ReportContext& context,
                  std::ostream& out)
{
    for (const char* key : keys)
        PrintLine(designtext::DetailLine(node.GetDetails()->At(key), context), out);
}

void PrintExchanger(const design::ExchangerDesign& exchanger, const ReportContext& context, std::ostream& out)
{
    fmt::print(out, "\n{}\n", designtext::ExchangerTitle(*exchanger.node, context));
    PrintDetails(*exchanger.node, designtext::ExchangerResults(), context, out);
    for (const designtext::Line& line : designtext::LeakageLines(exchanger.leakages, context))
        PrintLine(line, out);
    for (const design::CompartmentDesign& bed : exchanger.compartments) {
        if (const std::string title = designtext::CompartmentTitle(*bed.node, context); !title.empty())
            fmt::print(out, " {}\n", title);
        for (const designtext::Line& line : designtext::CapacityLines(bed.capacity, context))
            PrintLine(line, out);
        PrintDetails(*bed.node, designtext::CompartmentResults(exchanger.compartments.size() == 1), context,
                     out);
        for (const auto& resin : bed.node->GetChildren(OwnerKind::Resin))
            PrintDetails(*resin, designtext::ResinResults(), context, out);
    }
}

/// What the design of a plant comes to; nothing for a project without exchangers.
void PrintDesign(const Project& project, std::ostream& out)
{
    const iex::IEXProject* const plant = iex::PlantOf(project);
    if (plant == nullptr)
        return;
    const ReportContext context = PlainContext(project.GetUnitSystemDisplay());
    const design::PlantDesign design = design::DesignOf(*plant);
    for (const design::ExchangerDesign& exchanger : design.exchangers)
        PrintExchanger(exchanger, context, out);
    for (const designtext::Line& line : designtext::NeutralisationLines(design, context))
        PrintLine(line, out);
}

/// "water.1:liquid/ph", "project/qbrutto", "feedcompound.3:feedcompound/conc.meql".
std::string AddressText(const DetailAddress& address, const Project& project)
{
    std::string path = project.PathOf(address.owner);
    if (address.entry >= 0)
        path = address.key.substr(0, address.key.find('/')) + "." + std::to_string(address.entry + 1);
    return path.empty() ? address.key : path + ":" + address.key;
}

}  // namespace

void PrintTable(const Project& project, std::ostream& out)
{
    for (std::size_t i = 0; i < project.GetLiquidCount(); ++i) {
        const LiquidData& liquid = project.GetLiquid(i);
        fmt::print(out, "{}{}\n", i == 0 ? "" : "\n", liquid.GetName());
        PrintIons(*liquid.GetDetails(), project.GetUnitSystemDisplay(), out);
        PrintSummary(*liquid.GetDetails(), project.GetUnitSystemDisplay(), out);
        PrintEvaluation(project, liquid, out);
    }
    PrintDesign(project, out);
}

void PrintJson(const Project& project, const std::string& file, std::ostream& out)
{
    std::vector<JsonMessage> messages;
    for (const RangeFault& fault : RangeFaults(project)) {
        messages.push_back({AddressText(fault.address, project),
                            numbertext::WithUsualBlanks(RangeSentence(fault, project, PlainContext())),
                            fault.value, fault.limit});
    }
    std::vector<JsonAdvice> advice;
    for (std::size_t i = 0; i < project.GetLiquidCount(); ++i) {
        for (const advice::Advice& each : advice::AdviceOn(project, project.GetLiquid(i)))
            advice.push_back(
                {static_cast<int>(i + 1),
                 each.id,
                 advice::IsWarning(each),
                 numbertext::WithUsualBlanks(wateranalysis::AdviceReason(each, PlainContext())),
                 {AddressText(each.address, project),
                  numbertext::WithUsualBlanks(wateranalysis::AdviceSentence(each, PlainContext())),
                  each.value, each.limit}});
    }
    out << ProjectToJson(project, tncommon::PrintableText(file), messages, advice);
}

std::vector<std::string> RangeWarnings(const Project& project)
{
    std::vector<std::string> warnings;
    for (const RangeFault& fault : RangeFaults(project))
        warnings.push_back(numbertext::WithUsualBlanks(RangeSentence(fault, project, PlainContext())));
    for (std::size_t i = 0; i < project.GetLiquidCount(); ++i) {
        const LiquidData& liquid = project.GetLiquid(i);
        if (const std::string problem = water::Explain(liquid.GetAlkalization()); !problem.empty())
            warnings.push_back(fmt::format("{}: Alkalization: {}", liquid.GetName(), problem));
    }
    return warnings;
}

}  // namespace app
