// SPDX-License-Identifier: MIT
#include "projectbase/project/project_rules.h"

#include "dbinterfaces/master_database.h"
#include "projectbase/feed/feed_quantities.h"
#include "projectbase/project/iex_project.h"
#include "projectbase/project/project.h"
#include "projectbase/sequence/sequence_rows.h"
#include "projectbase/water/normalization.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace rules {

namespace {

/// Inputs that were typed together, as the rules look at them.
struct Context
{
    Project& project;
    const std::vector<TypedInput>& typed;

    const TypedInput* Find(const OwnerNode& node, std::string_view key) const
    {
        const auto found = std::ranges::find_if(typed, [&](const TypedInput& input) {
            return &input.node == &node && input.detail.GetName() == key;
        });
        return found == typed.end() ? nullptr : &*found;
    }
    bool IsTyped(const OwnerNode& node, std::string_view key) const { return Find(node, key) != nullptr; }
};

using Rule = void (*)(const Context& context, const TypedInput& input);

/// H+ and OH- take part in the balance: they begin as they follow from pH and temperature.
void FillWaterIons(const Context& context, const TypedInput& input)
{
    const bool given = context.IsTyped(input.node, "liquid/h.plus.orig") ||
                       context.IsTyped(input.node, "liquid/oh.minus.orig");
    if (!input.detail.GetBoolValue() || given)
        return;
    // The pH and the ions may have been typed in the same breath.
    water::NormalizeEveryIon(*input.node.GetDetails());
    water::FillHydrogenAndHydroxide(*input.node.GetDetails());
}

/// What was typed last counts: bicarbonate or carbonate, or an alkalinity in their place.
void ReplaceAlkalinity(const Context& context, const TypedInput& input)
{
    if (input.detail.GetDoubleValue() == 0.0)
        return;
    for (const char* value : {"liquid/alkalinity.m.orig", "liquid/alkalinity.p.orig"}) {
        if (!context.IsTyped(input.node, "liquid/alkalinity.m.orig"))
            input.node.GetDetails()->At(value).SetValue(0.0);
    }
}

bool BlendsAreCalculated(const Project& project)
{
    return project.GetDetails().At("arrangement/calculate.blend").GetBoolValue();
}

bool IsShortAnalysis(const std::string& type)
{
    return type == "SHORT_TDS" || type == "SHORT_COND";
}

/// A short analysis starts from what the ions gave, so that switching to it does not change the water at
/// once. Where blends are calculated there is none; see KeepInvariants.
void BeginShortAnalysis(const Context& context, const TypedInput& input)
{
    DetailList& details = *input.node.GetDetails();
    const std::string type = input.detail.GetStdStringValue();
    if (!IsShortAnalysis(type) || BlendsAreCalculated(context.project))
        return;
    const bool byTds = type == "SHORT_TDS";
    const char* const given = byTds ? "liquid/tds.short" : "liquid/cond.short";
    DetailData& typed = details.At(given);
    if (typed.GetDoubleValue() == 0.0 && !context.IsTyped(input.node, given))
        typed.SetValue(details.At(byTds ? "liquid/tds" : "liquid/cond").GetDoubleValue());
}

/// A medium brings its density along.
void TakeDensity(const Context& context, const TypedInput& input)
{
    if (context.IsTyped(input.node, "feed/density"))
        return;
    const auto medium = MasterDatabase::GetFeedMedium(static_cast<int>(input.detail.GetLongValue()));
    if (medium.id >= 0)
        input.node.GetDetails()->At("feed/density").SetValue(medium.density);
}

/// The adjustment of a feed's pH begins with what was stated before, or else with what the feed has of
/// itself.
void BeginPhAdjustment(const Context& context, const TypedInput& input)
{
    DetailData& stated = input.node.GetDetails()->At("feed/ph");
    const auto* project = dynamic_cast<const iex::IEXProject*>(&context.project);
    if (!input.detail.GetBoolValue() || !std::isnan(stated.GetDoubleValue()) || project == nullptr)
        return;
    stated.SetValue(project->LoadFeedCompositionFromDetails().GetFeedTotals().pH);
}

constexpr std::array<const char*, FeedQuantities::kCount> kQuantities{"project/qbrutto", "project/lz",
                                                                      "project/wbrutto"};

/// Of flow, time and volume the one that was typed longest ago follows.
void FollowQuantities(const Context& context, const TypedInput& input)
{
    DetailList& details = *input.node.GetDetails();
    // All that were typed together are answered at the first of them.
    const auto isQuantity = [](const TypedInput& each) {
        return std::ranges::find(kQuantities, each.detail.GetName()) != kQuantities.end();
    };
    if (&*std::ranges::find_if(context.typed, isQuantity) != &input)
        return;
    FeedQuantities quantities(details.At("project/quantities.typed").GetStdStringValue());
    FeedQuantities::Values before{};
    for (std::size_t i = 0; i < kQuantities.size(); ++i) {
        const TypedInput* typed = context.Find(input.node, kQuantities[i]);
        before[i] =
            typed != nullptr ? std::get<double>(typed->before) : details.At(kQuantities[i]).GetDoubleValue();
    }
    quantities.SetValues(before);
    for (const TypedInput& each : context.typed) {
        const auto quantity = std::ranges::find(kQuantities, each.detail.GetName());
        if (quantity != kQuantities.end())
            quantities.Edit(static_cast<FeedQuantities::Quantity>(quantity - kQuantities.begin()),
                            each.detail.GetDoubleValue());
    }
    for (std::size_t i = 0; i < kQuantities.size(); ++i) {
        if (!context.IsTyped(input.node, kQuantities[i]))
            details.At(kQuantities[i]).SetValue(quantities.GetValues()[i]);
    }
    details.At("project/quantities.typed").SetValue(quantities.GetOrder());
}

void RememberTypedOfRow(const Context&, const TypedInput& input)
{
    sequence::RememberTyped(input.node, input.detail.GetName());
}

void KeepRequiredRows(const Context& context, const TypedInput& input)
{
    if (input.node.GetKind() == OwnerKind::SequenceRow)
        sequence::CorrectMedium(input.node);
    OwnerNode* const exchanger = input.node.GetParent();
    if (exchanger != nullptr)
        sequence::KeepRequired(context.project, *exchanger);
}

/// The rows of a chemical follow it.
void FollowChemical(const Context& context, const TypedInput& input)
{
    const std::string before = std::get<wxString>(input.before).utf8_string();
    const bool conditioning = input.detail.GetName() == "stepcomp/cond.chemical";
    sequence::ReplaceChemical(input.node, before, conditioning);
    KeepRequiredRows(context, input);
}

/// An exchanger that becomes one of another kind begins anew; a new one has its parts from whoever made it.
void RefillStep(const Context& context, const TypedInput& input)
{
    auto* project = dynamic_cast<iex::IEXProject*>(&context.project);
    const bool isNew = std::get<wxString>(input.before).empty();
    if (project != nullptr && !isNew && std::get<wxString>(input.before) != input.detail.GetStringValue())
        project->FillStep(input.node);
}

void FollowMode(const Context&, const TypedInput& input)
{
    sequence::FollowMode(input.node);
}

constexpr double kWhole = 100.0;  // %

/// Without a second dilution the first one is all.
void FillFirstPortion(DetailList& details, const std::string& portion)
{
    details.At(portion).SetValue(kWhole);
    details.At(portion + "2").SetValue(0.0);
}

/// The portions of two dilutions make a whole.
void FollowPortion(const Context& context, const TypedInput& input)
{
    DetailList& details = *input.node.GetDetails();
    std::string portion = input.detail.GetName();
    const bool isSecond = portion.ends_with('2');
    if (isSecond)
        portion.pop_back();
    if (!details.At(portion.substr(0, portion.rfind('.')) + ".progressive").GetBoolValue())
        return FillFirstPortion(details, portion);
    const std::string other = isSecond ? portion : portion + "2";
    if (!context.IsTyped(input.node, other))
        details.At(other).SetValue(std::clamp(kWhole - input.detail.GetDoubleValue(), 0.0, kWhole));
}

/// What is typed stays, also where the design would come to the same.
void KeepDiameter(const Context&, const TypedInput& input)
{
    input.node.GetDetails()->At("step/diameter.designed").SetValue(std::nan(""));
}

void KeepDilutions(const Context& context, const TypedInput& input)
{
    const std::string& key = input.detail.GetName();
    if (!input.detail.GetBoolValue())
        FillFirstPortion(*input.node.GetDetails(), key.substr(0, key.rfind('.')) + ".portion");
    KeepRequiredRows(context, input);
}

struct RuleOfKey
{
    std::string_view key;
    Rule rule;
};
constexpr std::array kRules{
    RuleOfKey{"liquid/balance.ph", &FillWaterIons},
    RuleOfKey{"liquid/hco3.orig", &ReplaceAlkalinity},
    RuleOfKey{"liquid/co3.orig", &ReplaceAlkalinity},
    RuleOfKey{"liquid/analysis.type", &BeginShortAnalysis},
    RuleOfKey{"feed/medium", &TakeDensity},
    RuleOfKey{"feed/adjust.ph", &BeginPhAdjustment},
    RuleOfKey{"project/qbrutto", &FollowQuantities},
    RuleOfKey{"project/lz", &FollowQuantities},
    RuleOfKey{"project/wbrutto", &FollowQuantities},
    RuleOfKey{"regseqstep/v", &RememberTypedOfRow},
    RuleOfKey{"regseqstep/q", &RememberTypedOfRow},
    RuleOfKey{"regseqstep/q.bv", &RememberTypedOfRow},
    RuleOfKey{"regseqstep/t", &RememberTypedOfRow},
    RuleOfKey{"regseqstep/vol", &RememberTypedOfRow},
    RuleOfKey{"regseqstep/vol.bv", &RememberTypedOfRow},
    RuleOfKey{"regseqstep/type", &KeepRequiredRows},
    RuleOfKey{"regseqstep/medium", &KeepRequiredRows},
    RuleOfKey{"regseqstep/flag.removable", &KeepRequiredRows},
    RuleOfKey{"step/kind", &RefillStep},
    RuleOfKey{"step/mode", &FollowMode},
    RuleOfKey{"step/diameter", &KeepDiameter},
    RuleOfKey{"stepcomp/rm.chemical", &FollowChemical},
    RuleOfKey{"stepcomp/cond.chemical", &FollowChemical},
    RuleOfKey{"stepcomp/rm.progressive", &KeepDilutions},
    RuleOfKey{"stepcomp/cond.progressive", &KeepDilutions},
    RuleOfKey{"stepcomp/rm.portion", &FollowPortion},
    RuleOfKey{"stepcomp/rm.portion2", &FollowPortion},
    RuleOfKey{"stepcomp/cond.portion", &FollowPortion},
    RuleOfKey{"stepcomp/cond.portion2", &FollowPortion},
};

}  // namespace

void Apply(Project& project, const std::vector<TypedInput>& typed)
{
    const Context context{project, typed};
    for (const TypedInput& input : typed) {
        const auto rule = std::ranges::find(kRules, input.detail.GetName(), &RuleOfKey::key);
        if (rule != kRules.end())
            rule->rule(context, input);
    }
}

void KeepInvariants(Project& project)
{
    if (!BlendsAreCalculated(project))
        return;
    for (std::size_t i = 0; i < project.GetLiquidCount(); ++i) {
        DetailData& type = project.GetLiquid(i).GetDetails()->At("liquid/analysis.type");
        if (IsShortAnalysis(type.GetStdStringValue()))
            type.SetValue("FULL");
    }
}

}  // namespace rules
