// SPDX-License-Identifier: MIT
#include "projectbase/advice/water_advice.h"

#include "projectbase/advice/resin_limits.h"
#include "projectbase/advice/saturation.h"
#include "projectbase/advice/water_numbers.h"
#include "projectbase/design/dose_keys.h"
#include "projectbase/design/plant_design.h"
#include "projectbase/design/regenerants.h"
#include "projectbase/design/resins.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/sequence/sequence_calculation.h"
#include "projectbase/sequence/sequence_tables.h"
#include "projectbase/water/alkalinity.h"
#include "projectbase/water/detection_limits.h"

#include <wx/translation.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace advice {

namespace {

constexpr double kWhole = 100.0;  // %
constexpr const char* kMakers = wxTRANSLATE("Practice of regeneration; one of several nearly equal tables");
constexpr const char* kRegeneration = wxTRANSLATE("Practice of regeneration");
constexpr const char* kOwn = wxTRANSLATE("Solubility of the spent acid");

/// A rule with what it says; what it looks at stands in the functions below.
struct Rule
{
    const char* id;
    Severity severity;
    const char* sentence;
    const char* label;
    const char* unit;
    const char* reason;
    const char* source;
    const char* anchor;
};

constexpr Rule kLangelier{
    "langelier",
    Severity::Note,
    wxTRANSLATE("%s is above %s: calcium carbonate may deposit"),
    wxTRANSLATE("Langelier index"),
    "",
    wxTRANSLATE("Between -0.3 and 0.3 a water counts as balanced; the index is no measure of "
                "corrosion"),
    "Standard Methods 2330 B",
    "langelier"};

struct MineralRule
{
    Mineral mineral;
    std::array<const char*, 2> ions;
    Rule rule;
};
constexpr const char* kSupersaturated = wxTRANSLATE("%s is above %s: it may deposit");
constexpr const char* kOverSolubility = wxTRANSLATE("The water holds more of it than dissolves");
// Barite above its solubility is common and harmless in water that feeds exchangers.
constexpr std::array kMineralRules{
    MineralRule{Mineral::Gypsum,
                {"ca", "so4"},
                {"gypsum", Severity::Note, kSupersaturated, wxTRANSLATE("Saturation index of gypsum"), "",
                 kOverSolubility, "Langmuir & Melchior 1985", "saturation"}},
    MineralRule{Mineral::Anhydrite,
                {"ca", "so4"},
                {"anhydrite", Severity::Note, kSupersaturated, wxTRANSLATE("Saturation index of anhydrite"),
                 "", kOverSolubility, "WATEQ4F", "saturation"}},
    MineralRule{Mineral::Celestite,
                {"sr", "so4"},
                {"celestite", Severity::Note, kSupersaturated, wxTRANSLATE("Saturation index of celestite"),
                 "", kOverSolubility, "Reardon & Armstrong 1987", "saturation"}},
    MineralRule{Mineral::Fluorite,
                {"ca", "f"},
                {"fluorite", Severity::Note, kSupersaturated, wxTRANSLATE("Saturation index of fluorite"), "",
                 kOverSolubility, "WATEQ4F", "saturation"}},
};
constexpr Rule kSilica{"silica",
                       Severity::Warn,
                       wxTRANSLATE("%s is above %s: part of the silica is likely colloidal"),
                       wxTRANSLATE("Saturation with amorphous silica"),
                       "%",
                       wxTRANSLATE("An anion resin does not take up colloidal silica"),
                       "Fournier & Rowe 1977",
                       "silica"};

constexpr const char* kGypsumForms = wxTRANSLATE(
    "Gypsum precipitates in the bed from acid too strong for the calcium that it takes off; keep the "
    "acid moving, displace it at once, or take hydrochloric acid");
constexpr Rule kAcidFirst{"caso4.first",
                          Severity::Warn,
                          wxTRANSLATE("%s is above %s, the usual limit at this share of calcium"),
                          wxTRANSLATE("Sulfuric acid of the first step"),
                          "%",
                          kGypsumForms,
                          kMakers,
                          "caso4"};
constexpr Rule kAcidSecond{"caso4.second",
                           Severity::Warn,
                           wxTRANSLATE("%s is above %s, the usual limit at this share of calcium"),
                           wxTRANSLATE("Sulfuric acid of the second step"),
                           "%",
                           kGypsumForms,
                           kMakers,
                           "caso4"};
constexpr Rule kAcidPortion{"caso4.portion",
                            Severity::Note,
                            wxTRANSLATE("%s is below %s, the usual part at this share of calcium"),
                            wxTRANSLATE("Part of the sulfuric acid in the first step"),
                            "%",
                            kGypsumForms,
                            kMakers,
                            "caso4"};
constexpr Rule kAcidWeak{"caso4.weak",
                         Severity::Warn,
                         wxTRANSLATE("%s is above %s, the usual limit for weak-acid resins"),
                         wxTRANSLATE("Sulfuric acid"),
                         "%",
                         kGypsumForms,
                         kMakers,
                         "caso4"};
constexpr Rule kBarium{
    "baso4",
    Severity::Warn,
    wxTRANSLATE("%s is not below %s: with sulfuric acid barium sulfate coats the resin"),
    wxTRANSLATE("Barium"),
    "mg/l",
    wxTRANSLATE("Spent acid dissolves less than 0.1 mg/l of barium; the cure is a new charge, or "
                "hydrochloric acid, or softening ahead"),
    kOwn,
    "baso4"};
constexpr Rule kBaseHard{"base.hard",
                         Severity::Warn,
                         wxTRANSLATE("%s of the water that dilutes or displaces a base is above %s: calcium "
                                     "carbonate and magnesium hydroxide precipitate"),
                         wxTRANSLATE("Total hardness"),
                         "meq/l",
                         wxTRANSLATE("Use decationised or softened water"),
                         kRegeneration,
                         "base"};
constexpr Rule kCaustic{
    "silica.caustic",
    Severity::Note,
    wxTRANSLATE("%s is above %s: warm the caustic and do not stop the displacement"),
    wxTRANSLATE("Share of silica in the anion load"),
    "%",
    wxTRANSLATE(
        "Caustic of 35 to 50 degrees Celsius; cold one leaves silica on the resin, where it polymerises"),
    kRegeneration,
    "caustic"};

/// Collects what rules say.
class Collected
{
public:
    void Add(const Rule& rule, double value, double limit, DetailAddress address)
    {
        all.push_back({.id = rule.id,
                       .severity = rule.severity,
                       .sentence = rule.sentence,
                       .label = rule.label,
                       .value = value,
                       .limit = limit,
                       .unit = rule.unit,
                       .reason = rule.reason,
                       .source = rule.source,
                       .anchor = rule.anchor,
                       .address = std::move(address)});
    }
    /// Whether it was said. The figure itself is in order; what is not known is not above anything.
    bool AddAbove(const Rule& rule, double value, double limit, DetailAddress address)
    {
        constexpr double kRounding = 1e-9;
        const bool isAbove = value > limit + kRounding * std::abs(limit);
        if (isAbove)
            Add(rule, value, limit, std::move(address));
        return isAbove;
    }

    std::vector<Advice> all;
};

void JudgeSaturation(const LiquidData& water, const Saturation& saturation, Collected& collected)
{
    const auto at = [&water](const char* key) { return DetailAddress{water.GetOwner(), key}; };
    // What was not found may be far less than what is counted for it.
    const auto isFound = [&water](const char* ion) {
        return !water::IsBelowDetection(*water.GetDetails(), ion);
    };
    if (isFound("ca") && (isFound("hco3") || water::IsAlkalinityReported(*water.GetDetails())))
        collected.AddAbove(kLangelier, saturation.langelier, kLangelierBalanced, at("liquid/ph"));
    for (const MineralRule& row : kMineralRules) {
        if (std::ranges::all_of(row.ions, isFound))
            collected.AddAbove(row.rule, saturation.Index(row.mineral), 0.0, at("liquid/ca.orig"));
    }
    for (Advice& index : collected.all)
        index.isBeyondActivities = saturation.isBeyondDavies;
    if (isFound("sio2"))
        collected.AddAbove(kSilica, saturation.silicaPercent, kWhole, at("liquid/sio2.orig"));
}

double Value(const OwnerNode& node, std::string_view key)
{
    return node.GetDetails()->At(key).GetDoubleValue();
}

/// Whether the compartment is a cation resin that sulfuric acid regenerates.
bool HasSulfuricAcid(const design::CompartmentDesign& bed)
{
    return bed.resin != nullptr && bed.chemical != nullptr && bed.chemical->key == "H2SO4" &&
           (bed.resin->kind == "SAC" || bed.resin->kind == "WAC");
}

void JudgeAcid(const design::CompartmentDesign& bed, double calciumShare, Collected& collected)
{
    constexpr double kWeakAcidLimit = 0.8;
    const design::DoseKeys& keys = design::kRegenerantKeys;
    const OwnerNode& node = *bed.node;
    const auto at = [&node](std::string_view key) {
        return DetailAddress{node.GetOwner(), std::string(key)};
    };
    const double first = Value(node, keys.first);
    const bool isTwoSteps = node.GetDetails()->At(keys.progressive).GetBoolValue();
    if (bed.resin->kind == "WAC") {
        collected.AddAbove(kAcidWeak, std::fmax(first, isTwoSteps ? Value(node, keys.second) : first),
                           kWeakAcidLimit, at(keys.first));
        return;
    }
    if (std::isnan(calciumShare))
        return;
    const AcidSteps steps = AcidStepsFor(calciumShare);
    const auto judge = [&](const Rule& rule, std::string_view key, double limit) {
        const double percent = Value(node, key);
        if (collected.AddAbove(rule, percent, limit, at(key)))
            collected.all.back().acid = AcidFiguresOf(kWhole * calciumShare, percent,
                                                      design::SolutionDensity(*bed.chemical, percent));
    };
    judge(kAcidFirst, keys.first, steps.first);
    if (!isTwoSteps)
        return;
    judge(kAcidSecond, keys.second, steps.second);
    // A first step that is weak enough has to last long enough.
    const double portion = Value(node, keys.firstPortion);
    if (Value(node, keys.second) > steps.first && portion < steps.firstPortion)
        collected.Add(kAcidPortion, portion, steps.firstPortion, at(keys.firstPortion));
}

/// The medium of a sequence that is the water of the plant.
constexpr std::string_view kRawWater = "REGSEQ_RAW_WATER";

bool IsBase(const sequence::Medium* medium)
{
    const design::Regenerant* chemical =
        medium == nullptr ? nullptr : design::FindRegenerant(medium->chemical);
    return chemical != nullptr && chemical->kind == "base";
}

/// The row whose water dilutes the base of a sequence: the next displacement behind it.
const OwnerNode* DilutionOfBase(const OwnerNode& exchanger)
{
    bool isBehindBase = false;
    for (const auto& row : exchanger.GetChildren(OwnerKind::SequenceRow)) {
        const DetailList& details = *row->GetDetails();
        isBehindBase =
            isBehindBase || IsBase(sequence::FindMedium(details.At("regseqstep/medium").GetStdStringValue()));
        if (isBehindBase && details.At("regseqstep/type").GetStdStringValue() == sequence::kDisplacement)
            return row.get();
    }
    return nullptr;
}

void JudgeBase(const design::ExchangerDesign& exchanger, double hardness, Collected& collected)
{
    constexpr double kHard = 0.2;  // meq/l
    const auto isDilutedRaw = [](const sequence::RowVolumes& row) {
        return IsBase(row.medium) && row.dilution != nullptr && row.dilution->key == kRawWater;
    };
    if (!(hardness > kHard) || !std::ranges::any_of(sequence::Volumes(*exchanger.node), isDilutedRaw))
        return;
    const OwnerNode* const row = DilutionOfBase(*exchanger.node);
    collected.Add(kBaseHard, hardness, kHard,
                  row != nullptr ? DetailAddress{row->GetOwner(), "regseqstep/medium"}
                                 : DetailAddress{exchanger.node->GetOwner(), "step/kind"});
}

void JudgeCaustic(const design::CompartmentDesign& bed, Collected& collected)
{
    constexpr double kMuchSilica = 25.0;  // %
    constexpr double kWarm = 35.0;        // °C
    const bool isCaustic = bed.resin != nullptr && bed.resin->kind == "SBA" && bed.chemical != nullptr &&
                           bed.chemical->key == "NAOH";
    if (!isCaustic || Value(*bed.node, "stepcomp/rm.temp") >= kWarm)
        return;
    collected.AddAbove(kCaustic, kWhole * bed.takes.silica / bed.takes.Anions(), kMuchSilica,
                       {bed.node->GetOwner(), "stepcomp/rm.temp"});
}

/// What the plant is regenerated with, beside the water that feeds it.
void JudgeRegeneration(const iex::IEXProject& plant, const LiquidData& water, const WaterNumbers& numbers,
                       Collected& collected)
{
    const DetailList& details = *water.GetDetails();
    // What was not found may be far less than what is counted for it.
    const auto found = [&details](const char* ion, const char* key, double otherwise) {
        return water::IsBelowDetection(details, ion) ? otherwise : details.At(key).GetDoubleValue();
    };
    const double calcium = found("ca", "liquid/ca.meql", std::nan(""));
    const double hardness = found("ca", "liquid/ca.meql", 0.0) + found("mg", "liquid/mg.meql", 0.0);
    const double barium = found("ba", "liquid/ba.mgl", 0.0);
    bool isFirst = true;
    bool hasSulfuric = false;
    for (const design::ExchangerDesign& exchanger : design::DesignOf(plant).exchangers) {
        bool takesCations = false;
        for (const design::CompartmentDesign& bed : exchanger.compartments) {
            takesCations |= bed.resin != nullptr && (bed.resin->kind == "SAC" || bed.resin->kind == "WAC");
            if (HasSulfuricAcid(bed)) {
                hasSulfuric = true;
                // What comes behind another cation exchanger is no longer the water that feeds the plant.
                JudgeAcid(bed, isFirst ? calcium / numbers.cations : std::nan(""), collected);
            }
            if (!water::IsBelowDetection(details, "sio2"))
                JudgeCaustic(bed, collected);
        }
        JudgeBase(exchanger, hardness, collected);
        isFirst = isFirst && !takesCations;
    }
    constexpr double kLeastBarium = 0.05;  // mg/l
    if (hasSulfuric && barium >= kLeastBarium)
        collected.Add(kBarium, barium, kLeastBarium, {water.GetOwner(), "liquid/ba.orig"});
}

/// Of a metal without the other one there is one advice: by its own limit, unless that of the sum is broken
/// worse.
void AddSumOfMetals(const LiquidData& water, Advice sum, Collected& collected)
{
    if (const std::optional<Metal> metal = LoneMetal(water)) {
        const auto own = std::ranges::find_if(collected.all, [&metal](const Advice& advice) {
            return advice.id.starts_with("limit." + std::string(metal->rows));
        });
        if (own != collected.all.end() && own->severity >= sum.severity)
            return;
        if (own != collected.all.end())
            collected.all.erase(own);
        sum.label = metal->label;
        sum.address.key = metal->key;
    }
    collected.all.push_back(std::move(sum));
}

/// A limit that the user set is no longer what is usual, nor what the source of the row states.
void NameAsSetByUser(Advice& advice, const LimitRow& row, double usual)
{
    advice.sentence =
        row.isAtLimit
            ? wxTRANSLATE(
                  "%s is not below the limit of %s that the user set for water ahead of ion "
                  "exchangers")
            : wxTRANSLATE("%s is above the limit of %s that the user set for water ahead of ion exchangers");
    advice.usual = usual;
}

void JudgeLimits(const Project& project, const LiquidData& water, Collected& collected)
{
    const PlantKind plant = KindOfPlant(project, water);
    std::string_view judged;
    for (const LimitRow& row : LimitRows()) {
        const std::string_view quantity =
            std::string_view(row.id).substr(0, std::string_view(row.id).find('.'));
        if (quantity == judged || !row.isFor(plant))
            continue;
        judged = quantity;
        const double value = row.value(water);
        const Limits limits = LimitsOf(row);
        const auto breaks = [&](double limit) { return row.isAtLimit ? value >= limit : value > limit; };
        const bool isWarning = breaks(limits.warn);
        if (!isWarning && !breaks(limits.note))
            continue;
        const bool hasOwnNote = !isWarning && row.noteSentence != nullptr;
        Advice advice{.id = std::string("limit.") + row.id,
                      .severity = isWarning ? Severity::Warn : Severity::Note,
                      .sentence = hasOwnNote ? row.noteSentence : row.sentence,
                      .label = row.label,
                      .value = value,
                      .limit = isWarning ? limits.warn : limits.note,
                      .unit = quantity == "turbidity" ? "NTU" : "mg/l",
                      .reason = row.reason,
                      .source = hasOwnNote ? row.noteSource : row.source,
                      .anchor = "limits",
                      .address = {water.GetOwner(), KeyOf(row, water)}};
        const Limits usual = UsualLimitsOf(row);
        const double usualLimit = isWarning ? usual.warn : usual.note;
        if (!IsSameLimit(advice.limit, usualLimit))
            NameAsSetByUser(advice, row, usualLimit);
        if (quantity == "femn")
            AddSumOfMetals(water, std::move(advice), collected);
        else
            collected.all.push_back(std::move(advice));
    }
}

}  // namespace

AcidFigures AcidFiguresOf(double calciumShare, double percent, double density)
{
    constexpr double kEquivalentOfAcid = 0.04904;  // g/meq
    constexpr double kGypsum = 35.0;               // meq/l of calcium
    const double strength = 10.0 * percent * density / kEquivalentOfAcid;
    return {calciumShare, calciumShare / kWhole * strength / kGypsum};
}

AcidSteps AcidStepsFor(double calciumShare)
{
    if (calciumShare < 0.15)
        return {3.0, 0.0, 3.0};
    if (calciumShare < 0.50)
        return {1.5, 30.0, 3.0};
    if (calciumShare <= 0.70)
        return {1.5, 50.0, 3.0};
    return {1.5, 0.0, 1.5};
}

std::vector<Advice> AdviceOn(const Project& project, const LiquidData& water)
{
    const DetailList& details = *water.GetDetails();
    return AdviceOn(project, water, NumbersOf(details), SaturationOf(details));
}

std::vector<Advice> AdviceOn(const Project& project, const LiquidData& water, const WaterNumbers& numbers,
                             const Saturation& saturation)
{
    Collected collected;
    JudgeSaturation(water, saturation, collected);
    const iex::IEXProject* const plant = iex::PlantOf(project);
    if (plant != nullptr && plant->FeedingWater() == &water)
        JudgeRegeneration(*plant, water, numbers, collected);
    JudgeLimits(project, water, collected);
    std::ranges::stable_partition(collected.all, &IsWarning);
    return std::move(collected.all);
}

}  // namespace advice
