// SPDX-License-Identifier: MIT
#include "core/amount_text.h"
#include "gui_base/report/design_report.h"
#include "gui_base/report/with_title.h"
#include "projectbase/design/exchanger_label.h"
#include "projectbase/design/resins.h"
#include "projectbase/project/owner_node.h"
#include "projectbase/sequence/sequence_tables.h"
#include "projectbase/units/unit_system_manager.h"

#include <fmt/format.h>
#include <wx/translation.h>

#include <array>
#include <cmath>

namespace designtext {

namespace {

/// As in the fields of the pages.
constexpr int kDigits = 4;
constexpr int kFewDigits = 3;

constexpr std::array kExchangerResults{"step/load",      "step/capacity",  "step/diameter",   "step/area",
                                       "step/v",         "step/bvh",       "step/bed.depth",  "step/dp",
                                       "step/expansion", "step/run.time",  "step/throughput", "step/rb.ges",
                                       "step/rb.ratio",  "step/rb.excess", "step/konz.d"};
constexpr std::array kCompartmentResults{"stepcomp/load",       "stepcomp/capacity", "stepcomp/level",
                                         "stepcomp/rm",         "stepcomp/rb.ratio", "stepcomp/rb.excess",
                                         "stepcomp/cond.amount"};
constexpr std::array kResinResults{"compcomp/vol", "compcomp/vol.actual", "compcomp/vol.total"};

std::string Range(double low, double high, const ReportContext& context)
{
    return context.Number(low, kFewDigits) + " \u2013 " + context.Number(high, kFewDigits);
}

Line Amount(const std::string& name, double value, const std::string& unit, const ReportContext& context)
{
    return {name, context.Number(UnitSystemManager::FromISO(unit, context.unitSystem, value), kDigits),
            UnitSystemManager::GetUnit(unit, context.unitSystem, true)};
}

std::string NameOfResin(const OwnerNode& resin, const ReportContext& context)
{
    const design::Resin* kind =
        design::FindResin(resin.GetDetails()->At("compcomp/resin").GetStdStringValue());
    return kind == nullptr ? std::string() : context.Translated(kind->name.c_str());
}

/// "row 4 (Displacement)".
std::string Numbered(const char* label, const OwnerNode& part, const std::string& name,
                     const ReportContext& context)
{
    std::string text = context.Translated(label);
    if (const auto at = text.find("%s"); at != std::string::npos)
        text.replace(at, 2, std::to_string(part.GetPosition() + 1));
    return name.empty() ? text : text + " (" + name + ")";
}

/// The name of what the part belongs to, and its own.
std::string Within(const OwnerNode& part, const std::string& own, const ReportContext& context)
{
    const std::string whole = PartTitle(*part.GetParent(), context);
    return own.empty() ? whole : whole + ", " + own;
}

}  // namespace

std::string ExchangerTitle(const OwnerNode& exchanger, const ReportContext& context)
{
    const std::string kind = exchanger.GetDetails()->At("step/kind").GetStdStringValue();
    return fmt::format("{} {}", exchanger.GetPosition() + 1,
                       context.Translated(design::ExchangerLabel(kind)));
}

std::string CompartmentTitle(const OwnerNode& compartment, const ReportContext& context)
{
    const OwnerNode& exchanger = *compartment.GetParent();
    if (exchanger.GetChildren(OwnerKind::Compartment).size() < 2)
        return {};
    const OwnerNode* working = design::WorkingResin(compartment);
    const std::string number =
        fmt::format("{}.{}", exchanger.GetPosition() + 1, compartment.GetPosition() + 1);
    return working == nullptr ? number : number + " " + NameOfResin(*working, context);
}

std::string PartTitle(const OwnerNode& part, const ReportContext& context)
{
    switch (part.GetKind()) {
        case OwnerKind::Exchanger:
            return ExchangerTitle(part, context);
        case OwnerKind::Compartment:
            return Within(part, CompartmentTitle(part, context), context);
        case OwnerKind::Resin: {
            const bool isOnlyOne = part.GetParent()->GetChildren(OwnerKind::Resin).size() < 2;
            return Within(part,
                          isOnlyOne
                              ? std::string()
                              : Numbered(wxTRANSLATE("layer %s"), part, NameOfResin(part, context), context),
                          context);
        }
        case OwnerKind::SequenceRow: {
            const auto* type =
                sequence::FindType(part.GetDetails()->At("regseqstep/type").GetStdStringValue());
            const std::string step =
                type == nullptr ? std::string() : context.Translated(type->label.c_str());
            return Within(part, Numbered(wxTRANSLATE("row %s"), part, step, context), context);
        }
        case OwnerKind::Project:
        case OwnerKind::Water:
            break;
    }
    return context.Translated(part.GetName().c_str());
}

std::vector<Line> CapacityLines(const design::Capacity& capacity, const ReportContext& context)
{
    if (std::isnan(capacity.value))
        return {};
    const std::string origin =
        WithTitle(context.Translated(wxTRANSLATE("Capacity")), context.Translated(capacity.origin), context);
    std::vector<Line> lines{Amount(origin, capacity.base, "eq/l", context)};
    for (const design::Correction& correction : capacity.Corrections())
        lines.push_back({WithTitle(context.Translated(wxTRANSLATE("Correction")),
                                   context.Translated(correction.name), context),
                         "\u00d7 " + context.Number(correction.factor, kDigits),
                         {}});
    return lines;
}

std::vector<Line> LeakageLines(const std::vector<design::Leakage>& leakages, const ReportContext& context)
{
    std::vector<Line> lines;
    for (const design::Leakage& leakage : leakages) {
        const auto shown = [&](double value) {
            return UnitSystemManager::FromISO(leakage.unit, context.unitSystem, value);
        };
        lines.push_back(
            {WithTitle(context.Translated(wxTRANSLATE("Leakage")), context.Translated(leakage.name), context),
             Range(shown(leakage.low), shown(leakage.high), context),
             UnitSystemManager::GetUnit(leakage.unit, context.unitSystem, true)});
    }
    return lines;
}

std::vector<Line> NeutralisationLines(const design::PlantDesign& plant, const ReportContext& context)
{
    if (std::isnan(plant.neutral))
        return {};
    const char* const surplus =
        plant.neutral < 0.0 ? wxTRANSLATE("Free base of a line") : wxTRANSLATE("Free acid of a line");
    std::vector<Line> lines{Amount(context.Translated(surplus), std::fabs(plant.neutral), "eq", context)};
    const std::string neutralised = context.Translated(wxTRANSLATE("Neutralised with"));
    const auto add = [&](const design::Regenerant& chemical, double mass) {
        lines.push_back(Amount(WithTitle(neutralised, context.Translated(chemical.name.c_str()), context),
                               mass, "kg", context));
    };
    if (plant.bought != nullptr)
        add(*plant.bought, plant.boughtMass);
    for (const design::ExchangerDesign& exchanger : plant.exchangers) {
        for (const design::CompartmentDesign& bed : exchanger.compartments) {
            if (bed.neutralizes > 0.0)
                add(*bed.chemical, bed.neutralizes);
        }
    }
    return lines;
}

std::vector<Line> WasteLines(const design::PlantDesign& plant, const OwnerNode& exchanger,
                             const ReportContext& context)
{
    std::vector<Line> lines = NeutralisationLines(plant, context);
    const auto found = std::ranges::find(plant.exchangers, &exchanger, &design::ExchangerDesign::node);
    if (found != plant.exchangers.end() && !std::isnan(found->wasteVolume))
        lines.insert(lines.begin(), Amount(context.Translated(wxTRANSLATE("Waste water of a regeneration")),
                                           found->wasteVolume, "m3", context));
    return lines;
}

std::string TextOf(const std::vector<Line>& lines, const ReportContext& context)
{
    std::string text;
    for (const Line& line : lines)
        text += (text.empty() ? "" : "\n") +
                WithTitle(line.name, numbertext::WithUnit(line.value, line.unit), context);
    return text;
}

std::span<const char* const> ExchangerResults()
{
    return kExchangerResults;
}

std::span<const char* const> CompartmentResults(bool isOnlyOne)
{
    static constexpr std::array kOwn{"stepcomp/level", "stepcomp/cond.amount"};
    return isOnlyOne ? std::span<const char* const>(kOwn) : std::span<const char* const>(kCompartmentResults);
}

std::span<const char* const> ResinResults()
{
    return kResinResults;
}

Line DetailLine(const DetailData& detail, const ReportContext& context)
{
    return Amount(context.Translated(detail.GetLabel().c_str()), detail.GetDoubleValue(), detail.GetUnit(),
                  context);
}

}  // namespace designtext
