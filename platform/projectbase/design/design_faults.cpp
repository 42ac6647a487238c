// SPDX-License-Identifier: MIT
#include "projectbase/design/design_faults.h"

#include "projectbase/design/dose_keys.h"
#include "projectbase/design/hydraulics.h"
#include "projectbase/design/plant_design.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/sequence/sequence_calculation.h"
#include "projectbase/sequence/sequence_tables.h"

#include <wx/translation.h>

#include <algorithm>
#include <cmath>

namespace design {

namespace {

constexpr double kGreatestPressureDrop = 1.5;  // bar, AWWA/ASCE Water Treatment Plant Design ch. 12
constexpr double kWhole = 100.0;               // %

/// A rule of the design: what the user reads when a value lies on the wrong side of its limit.
struct Rule
{
    bool isBelow;
    const char* sentence;
};
constexpr Rule kVelocity{false, wxTRANSLATE("%s is above the velocity limit of %s")};
constexpr Rule kVelocityOfResin{false, wxTRANSLATE("%s is above what the resin stands, %s")};
constexpr Rule kDepth{true, wxTRANSLATE("%s is below the least bed depth of %s")};
constexpr Rule kPressureDrop{false, wxTRANSLATE("%s is above the usual limit of %s")};
constexpr Rule kRunTime{true, wxTRANSLATE("%s of the installed resin is below the running time of %s")};
constexpr Rule kTemperature{false, wxTRANSLATE("%s is above what the resin stands, %s")};
constexpr Rule kLevelTooLow{true, wxTRANSLATE("%s is below the usual range, which begins with %s")};
constexpr Rule kLevelTooHigh{false, wxTRANSLATE("%s is above the usual range, which ends with %s")};
constexpr Rule kRatio{true, wxTRANSLATE("%s does not suffice for the load, which needs %s")};
constexpr Rule kDensity{false, wxTRANSLATE("%s is above the strongest solution whose density is known, %s")};
constexpr Rule kSupply{false, wxTRANSLATE("%s is above the concentration of the supply, %s")};
constexpr Rule kOwnUse{
    false, wxTRANSLATE("%s, which the regenerations take from the product, is above all of it, %s")};
constexpr const char* kNoWater = wxTRANSLATE("There is no water of that number");
constexpr const char* kNoChemical = wxTRANSLATE("The exchanger has no chemical for this row");
constexpr const char* kOtherChemical = wxTRANSLATE("The resin is not regenerated with this chemical");
constexpr Rule kTerminal{false, wxTRANSLATE("%s carries the beads out, which sink with %s")};

class Faults
{
public:
    /// Checks a value of an owner. What is not known breaks no rule; neither do last digits.
    void Check(const OwnerNode& node, std::string_view key, double limit, const Rule& rule)
    {
        const DetailData& detail = node.GetDetails()->At(key);
        // What the catalogue refuses is told already.
        if (SideOfLimits(detail) != 0)
            return;
        Add(node, detail, detail.GetDoubleValue(), detail.GetLabel(), detail.GetUnit(), limit, rule);
    }

    void Add(const OwnerNode& node, const DetailData& detail, double value, const std::string& label,
             const std::string& unit, double limit, const Rule& rule)
    {
        constexpr double kRounding = 1e-9;
        const double beyond = rule.isBelow ? limit - value : value - limit;
        if (!(beyond > kRounding * std::abs(limit)))
            return;
        all.push_back({.address = {node.GetOwner(), detail.GetName()},
                       .label = label,
                       .value = value,
                       .limit = limit,
                       .isBelow = rule.isBelow,
                       .unit = unit,
                       .sentence = rule.sentence});
    }

    /// Says of a choice what no number tells.
    void Tell(const OwnerNode& node, std::string_view key, const char* sentence)
    {
        const DetailData& detail = node.GetDetails()->At(key);
        all.push_back({.address = {node.GetOwner(), detail.GetName()},
                       .label = detail.GetLabel(),
                       .value = kNotKnown,
                       .limit = kNotKnown,
                       .unit = {},
                       .sentence = sentence});
    }

    std::vector<RangeFault> all;
};

double Value(const OwnerNode& node, const char* key)
{
    return node.GetDetails()->At(key).GetDoubleValue();
}

/// Usual levels (kg/m³) of a compartment: as the table has them, or as a share of the load.
void CheckLevel(const ExchangerDesign& exchanger, const CompartmentDesign& bed, Faults& faults)
{
    const bool isMixed = exchanger.kind == ExchangerKind::MixedBed;
    const char* const mode = isMixed ? "MB" : exchanger.isCounterCurrent ? "COUNTER" : "CO";
    const ResinRegeneration* usual = FindRegeneration(*bed.resin, bed.chemical->key, mode);
    if (usual == nullptr)
        return;
    const double share = MassOf(*bed.chemical, bed.load) / bed.volume / kWhole;
    const bool byLoad = std::isfinite(usual->ratioMin);
    const double low = byLoad ? usual->ratioMin * share : usual->levelMin;
    const double high = byLoad ? usual->ratioMax * share : usual->levelMax;
    if (!std::isfinite(low) || !std::isfinite(high))
        return;
    faults.Check(*bed.node, "stepcomp/level", low, kLevelTooLow);
    faults.Check(*bed.node, "stepcomp/level", high, kLevelTooHigh);
}

/// Solutions that cannot be made, or whose volumes nobody knows.
void CheckSolutions(const OwnerNode& compartment, const DoseKeys& keys, Faults& faults)
{
    const DetailList& details = *compartment.GetDetails();
    const Regenerant* chemical = FindRegenerant(details.At(keys.chemical).GetStdStringValue());
    if (chemical == nullptr || chemical->densities.empty())
        return;
    const double strongest = chemical->densities.back().percent;
    const double supply = details.At(keys.supply).GetDoubleValue();
    faults.Check(compartment, keys.supply, strongest, kDensity);
    for (const std::string_view key : {keys.first, keys.second}) {
        if (key == keys.second && !details.At(keys.progressive).GetBoolValue())
            continue;
        // The lower limit is the one that counts.
        const bool isSupply = supply < strongest;
        faults.Check(compartment, key, isSupply ? supply : strongest, isSupply ? kSupply : kDensity);
    }
}

void CheckBed(const ExchangerDesign& exchanger, const CompartmentDesign& bed, Faults& faults)
{
    if (bed.resin != nullptr && bed.chemical != nullptr && !IsRegeneratedWith(*bed.resin, bed.chemical->key))
        faults.Tell(*bed.node, kRegenerantKeys.chemical, kOtherChemical);
    CheckSolutions(*bed.node, kRegenerantKeys, faults);
    CheckSolutions(*bed.node, kConditionerKeys, faults);
    if (bed.resin == nullptr)
        return;
    const DetailData& resin = bed.resinNode->GetDetails()->At("compcomp/resin");
    faults.Add(*bed.resinNode, resin, exchanger.temperature, wxTRANSLATE("Temperature"), "°C",
               bed.resin->maxTemperature, kTemperature);
    if (bed.chemical == nullptr)
        return;
    faults.Check(*bed.node, "stepcomp/rm.temp", bed.resin->maxTemperature, kTemperature);
    faults.Check(*bed.node, "stepcomp/rb.ratio", kWhole, kRatio);
    CheckLevel(exchanger, bed, faults);
}

/// Rows of a chemical that nobody chose for the exchanger.
void CheckRows(const ExchangerDesign& exchanger, Faults& faults)
{
    for (const auto& row : exchanger.node->GetChildren(OwnerKind::SequenceRow)) {
        const auto* type = sequence::FindType(row->GetDetails()->At("regseqstep/type").GetStdStringValue());
        const bool isEmpty = row->GetDetails()->At("regseqstep/medium").GetStringValue().empty();
        if (type != nullptr && type->rowClass == "chemical" && isEmpty)
            faults.Tell(*row, "regseqstep/medium", kNoChemical);
    }
}

/// A backwash that carries the beads out.
void CheckBackwash(const ExchangerDesign& exchanger, Faults& faults)
{
    double terminal = kNotKnown;
    for (const CompartmentDesign& bed : exchanger.compartments) {
        if (bed.resin == nullptr)
            return;
        const double velocity = TerminalVelocity(
            {bed.resin->bead, bed.resin->density, bed.resin->voidFraction}, WaterAt(exchanger.temperature));
        terminal = std::isnan(terminal) || velocity < terminal ? velocity : terminal;
    }
    for (const auto& row : exchanger.node->GetChildren(OwnerKind::SequenceRow)) {
        if (row->GetDetails()->At("regseqstep/type").GetStdStringValue() == "REGSEQ_BW")
            faults.Check(*row, "regseqstep/v", terminal, kTerminal);
    }
}

void CheckExchanger(const ExchangerDesign& exchanger, double runningTime, Faults& faults)
{
    const OwnerNode& node = *exchanger.node;
    if (exchanger.compartments.empty())
        return;
    double resinLimit = kNotKnown;
    bool isInstalled = false;
    for (const CompartmentDesign& bed : exchanger.compartments) {
        if (bed.resin == nullptr)
            continue;
        resinLimit = std::fmin(resinLimit, bed.resin->maxVelocity);
        isInstalled = isInstalled || bed.volume != bed.designed;
    }
    const double limit = Value(node, "step/v.max");
    // The lower limit is the one that counts.
    if (resinLimit < limit)
        faults.Check(node, "step/v", resinLimit, kVelocityOfResin);
    else
        faults.Check(node, "step/v", limit, kVelocity);
    // Where nothing is to be taken there is no bed.
    if (exchanger.depth > 0.0)
        faults.Check(node, "step/bed.depth", Value(node, "step/bed.min"), kDepth);
    faults.Check(node, "step/dp", kGreatestPressureDrop, kPressureDrop);
    if (isInstalled)
        faults.Check(node, "step/run.time", runningTime, kRunTime);
    CheckBackwash(exchanger, faults);
    CheckRows(exchanger, faults);
    for (const CompartmentDesign& bed : exchanger.compartments)
        CheckBed(exchanger, bed, faults);
}

}  // namespace

std::vector<RangeFault> DesignFaults(const iex::IEXProject& project)
{
    if (project.NumberSteps() == 0)
        return {};
    Faults faults;
    if (project.FeedingWater() == nullptr && !project.IsOfType("FOODC"))
        faults.Tell(project.GetRoot(), "project/water", kNoWater);
    const DetailData& product = project.GetDetails().At("project/wbrutto");
    faults.Add(project.GetRoot(), product, sequence::TotalsOf(project).ownUse, wxTRANSLATE("Water"),
               product.GetUnit(), product.GetDoubleValue(), kOwnUse);
    const double runningTime = project.GetDetails().At("project/lz").GetDoubleValue();
    for (const ExchangerDesign& exchanger : DesignOf(project).exchangers)
        CheckExchanger(exchanger, runningTime, faults);
    return faults.all;
}

}  // namespace design
