// SPDX-License-Identifier: MIT
#include "projectbase/sequence/sequence_rows.h"

#include "core/text_limits.h"
#include "projectbase/project/project.h"
#include "projectbase/project/project_edit.h"

#include <wx/translation.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace sequence {

namespace {

struct RowValue
{
    std::string_view name;
    const char* key;
};
constexpr std::array kValues{RowValue{"v", "regseqstep/v"},       RowValue{"q", "regseqstep/q"},
                             RowValue{"q.bv", "regseqstep/q.bv"}, RowValue{"t", "regseqstep/t"},
                             RowValue{"vol", "regseqstep/vol"},   RowValue{"vol.bv", "regseqstep/vol.bv"}};

std::string Text(const OwnerNode& node, const char* key)
{
    return node.GetDetails()->At(key).GetStdStringValue();
}

/// What there must be, in its place among the default rows.
struct Requirement
{
    std::string type;
    std::string medium;  ///< empty: any
};

bool IsMixedBed(const OwnerNode& exchanger)
{
    return exchanger.GetChildren(OwnerKind::Compartment).size() > 1;
}

bool IsStepwise(const OwnerNode& compartment)
{
    return Text(compartment, "stepcomp/rm.chemical") == "H2SO4" &&
           compartment.GetDetails()->At("stepcomp/rm.progressive").GetBoolValue();
}

std::vector<Requirement> RequirementsOf(const OwnerNode& exchanger)
{
    std::vector<Requirement> required;
    for (const auto& compartment : exchanger.GetChildren(OwnerKind::Compartment)) {
        const Medium* const chemical = MediumOfChemical(Text(*compartment, "stepcomp/rm.chemical"));
        const std::string medium = IsMixedBed(exchanger) && chemical != nullptr ? chemical->key : "";
        if (IsStepwise(*compartment))
            required.push_back({kFirstRegenerant, medium});
        required.push_back({kRegenerant, medium});
    }
    if (required.empty())
        return required;
    required.push_back({kDisplacement, {}});
    required.push_back({kRinse, {}});
    if (IsMixedBed(exchanger)) {
        for (const char* type : {kBackwash, kAirMix, kFinalRinse})
            required.push_back({type, {}});
    }
    return required;
}

/// The default row of an exchanger that is like this one, or null.
const Default* DefaultOf(const OwnerNode& exchanger, std::string_view type, std::string_view medium)
{
    const auto rows = DefaultsOf(Text(exchanger, "step/kind"));
    const auto find = [&](bool sameMedium) {
        return std::ranges::find_if(rows, [&](const Default* row) {
            return row->type == type && (!sameMedium || row->medium == medium);
        });
    };
    auto found = find(true);
    if (found == rows.end())
        found = find(false);
    return found == rows.end() ? nullptr : *found;
}

const char* ChemicalKey(bool conditioning)
{
    return conditioning ? "stepcomp/cond.chemical" : "stepcomp/rm.chemical";
}

/// The medium of a compartment's chemical, or null.
const Medium* MediumOf(const OwnerNode& compartment, bool conditioning)
{
    return MediumOfChemical(Text(compartment, ChemicalKey(conditioning)));
}

/// A medium that a row of the type can have; a chemical is one of the exchanger's, and none where it has
/// none.
std::string MediumFor(const OwnerNode& exchanger, const Type& type, const std::string& wanted)
{
    const Medium* const present = FindMedium(wanted);
    if (type.rowClass == "chemical") {
        const Medium* first = nullptr;
        for (const auto& compartment : exchanger.GetChildren(OwnerKind::Compartment)) {
            const Medium* const own = MediumOf(*compartment, type.key == kConditioning);
            if (own != nullptr && own == present)
                return wanted;
            first = first == nullptr ? own : first;
        }
        return first == nullptr ? std::string() : first->key;
    }
    if (present != nullptr && CanHave(type, *present))
        return wanted;
    const auto found = std::ranges::find_if(Media(), [&](const Medium& each) { return CanHave(type, each); });
    return found == Media().end() ? std::string() : found->key;
}

/// Where the regenerant flows in a vessel with one bed: against the service, which flows down, or with it.
/// Empty for what the mode of regeneration does not settle.
std::string DirectionOf(const OwnerNode& exchanger, std::string_view type)
{
    const bool isMeant = IsRegeneration(type) || type == kDisplacement;
    if (!isMeant || exchanger.GetChildren(OwnerKind::Compartment).size() != 1)
        return {};
    return Text(exchanger, "step/mode") == "COUNTER" ? "UP" : "DOWN";
}

bool IsBlank(const RegSeqStep& step)
{
    return std::ranges::all_of(kValues,
                               [&](const RowValue& value) { return std::isnan(step.Get(value.name)); });
}

void TakeFigures(RegSeqStep& step, const DBObjects::SequenceFigures& figures)
{
    if (!figures.flow.empty())
        step.Type(figures.flow, figures.flowValue);
    if (!figures.amount.empty())
        step.Type(figures.amount, figures.amountValue);
}

/// The row as the project keeps it; see Save.
RegSeqStep Corrected(const OwnerNode& exchanger, const RegSeqStep& step)
{
    RegSeqStep row = step;
    const Type* const type = FindType(row.type);
    if (type == nullptr)
        return row;
    row.medium = MediumFor(exchanger, *type, row.medium);
    if (IsBlank(row)) {
        const Default* const usual = DefaultOf(exchanger, row.type, row.medium);
        TakeFigures(row, usual != nullptr ? usual->figures : type->usual);
    }
    return row;
}

void SetText(DetailList& details, const char* key, const std::string& text)
{
    details.At(key).SetValue(text);
}

void SetFlag(DetailList& details, const char* key, bool flag)
{
    details.At(key).SetValue(flag);
}

void WriteRow(OwnerNode& node, const RegSeqStep& row)
{
    DetailList& details = *node.GetDetails();
    SetText(details, "regseqstep/type", row.type);
    SetText(details, "regseqstep/medium", row.medium);
    SetText(details, "regseqstep/direction", row.direction);
    for (const RowValue& value : kValues)
        details.At(value.key).SetValue(row.Get(value.name));
    SetText(details, "regseqstep/flow.typed", row.flowTyped);
    SetText(details, "regseqstep/amount.typed", row.amountTyped);
    SetFlag(details, "regseqstep/flag.counts", row.counts);
    SetFlag(details, "regseqstep/flag.own", row.own);
}

RegSeqStep FromDefault(const OwnerNode& exchanger, const Default& usual)
{
    const std::string direction = DirectionOf(exchanger, usual.type);
    RegSeqStep row{.type = usual.type,
                   .medium = usual.medium,
                   .direction = direction.empty() ? usual.figures.direction : direction};
    TakeFigures(row, usual.figures);
    return row;
}

OwnerNode& AddRow(Project& project, OwnerNode& exchanger, const RegSeqStep& row, std::size_t place)
{
    OwnerNode& node = project.AddOwner(exchanger, std::make_shared<OwnerNode>(OwnerKind::SequenceRow), place);
    WriteRow(node, Corrected(exchanger, row));
    return node;
}

bool Meets(const OwnerNode& row, const Requirement& required)
{
    return Text(row, "regseqstep/type") == required.type &&
           (required.medium.empty() || Text(row, "regseqstep/medium") == required.medium);
}

/// Where a row that is missing usually stands: behind the last one that usually stands before it, or is like
/// it.
std::size_t UsualPlace(const OwnerNode& exchanger, const Requirement& required)
{
    const auto rows = DefaultsOf(Text(exchanger, "step/kind"));
    const auto placeOf = [&](std::string_view type) {
        return std::ranges::find(rows, type, [](const Default* row) { return std::string_view(row->type); }) -
               rows.begin();
    };
    const auto usual = placeOf(required.type);
    const auto present = exchanger.GetChildren(OwnerKind::SequenceRow);
    for (std::size_t place = present.size(); place > 0; --place) {
        if (placeOf(Text(*present[place - 1], "regseqstep/type")) <= usual)
            return place;
    }
    return 0;
}

}  // namespace

void AddDefaults(Project& project, OwnerNode& exchanger)
{
    if (!exchanger.GetChildren(OwnerKind::SequenceRow).empty())
        return;
    const ProjectEdit edit(project);
    const auto compartments = exchanger.GetChildren(OwnerKind::Compartment);
    const bool stepwise =
        std::ranges::any_of(compartments, [](const auto& each) { return IsStepwise(*each); });
    for (const Default* usual : DefaultsOf(Text(exchanger, "step/kind"))) {
        if (stepwise || usual->type != kFirstRegenerant)
            AddRow(project, exchanger, FromDefault(exchanger, *usual), static_cast<std::size_t>(-1));
    }
    KeepRequired(project, exchanger);
}

RegSeqData Read(const OwnerNode& exchanger)
{
    RegSeqData data{.steps = {}, .remarks = Text(exchanger, "step/remarks")};
    for (const auto& node : exchanger.GetChildren(OwnerKind::SequenceRow)) {
        const DetailList& details = *node->GetDetails();
        RegSeqStep row{.row = node->GetOwner(),
                       .type = Text(*node, "regseqstep/type"),
                       .medium = Text(*node, "regseqstep/medium"),
                       .direction = Text(*node, "regseqstep/direction")};
        for (const RowValue& value : kValues)
            row.Type(value.name, details.At(value.key).GetDoubleValue());
        row.flowTyped = Text(*node, "regseqstep/flow.typed");
        row.amountTyped = Text(*node, "regseqstep/amount.typed");
        row.removable = details.At("regseqstep/flag.removable").GetBoolValue();
        row.counts = details.At("regseqstep/flag.counts").GetBoolValue();
        row.own = details.At("regseqstep/flag.own").GetBoolValue();
        data.steps.push_back(std::move(row));
    }
    return data;
}

void Save(Project& project, OwnerNode& exchanger, const RegSeqData& data)
{
    const ProjectEdit edit(project, wxTRANSLATE("change regeneration sequence"));
    const auto present = exchanger.GetChildren(OwnerKind::SequenceRow);
    for (const OwnerNode::Nodes nodes(present.begin(), present.end()); const auto& node : nodes) {
        if (std::ranges::find(data.steps, node->GetOwner(), &RegSeqStep::row) == data.steps.end())
            project.RemoveOwner(*node);
    }
    for (std::size_t place = 0; place < data.steps.size(); ++place) {
        const RegSeqStep& step = data.steps[place];
        OwnerNode* const node = step.row == DetailOwner() ? nullptr : project.FindOwner(step.row);
        if (node == nullptr) {
            AddRow(project, exchanger, step, place);
            continue;
        }
        if (node->GetPosition() != place)
            project.MoveOwner(*node, place);
        WriteRow(*node, Corrected(exchanger, step));
    }
    SetText(*exchanger.GetDetails(), "step/remarks",
            std::string(text_limits::Cut(data.remarks, text_limits::kRemarks)));
    KeepRequired(project, exchanger);
}

void CorrectMedium(OwnerNode& row)
{
    const Type* const type = FindType(Text(row, "regseqstep/type"));
    const OwnerNode* const exchanger = row.GetParent();
    if (type != nullptr && exchanger != nullptr)
        SetText(*row.GetDetails(), "regseqstep/medium",
                MediumFor(*exchanger, *type, Text(row, "regseqstep/medium")));
}

void KeepRequired(Project& project, OwnerNode& exchanger)
{
    const ProjectEdit edit(project);
    std::vector<DetailOwner> kept;
    for (const Requirement& required : RequirementsOf(exchanger)) {
        const auto rows = exchanger.GetChildren(OwnerKind::SequenceRow);
        // Compartments with the same chemical need a row each.
        const auto found = std::ranges::find_if(rows, [&](const auto& row) {
            return Meets(*row, required) && std::ranges::find(kept, row->GetOwner()) == kept.end();
        });
        if (found != rows.end()) {
            kept.push_back((*found)->GetOwner());
            continue;
        }
        RegSeqStep row{.type = required.type, .medium = required.medium, .direction = "DOWN"};
        if (const Default* usual = DefaultOf(exchanger, required.type, required.medium)) {
            row = FromDefault(exchanger, *usual);
            row.medium = required.medium.empty() ? row.medium : required.medium;
        }
        kept.push_back(AddRow(project, exchanger, row, UsualPlace(exchanger, required)).GetOwner());
    }
    for (const auto& row : exchanger.GetChildren(OwnerKind::SequenceRow))
        SetFlag(*row->GetDetails(), "regseqstep/flag.removable",
                std::ranges::find(kept, row->GetOwner()) == kept.end());
}

void ReplaceChemical(OwnerNode& compartment, std::string_view before, bool conditioning)
{
    OwnerNode* const exchanger = compartment.GetParent();
    if (exchanger == nullptr)
        return;
    const auto compartments = exchanger->GetChildren(OwnerKind::Compartment);
    const Medium* const from = MediumOfChemical(before);
    const Medium* const to = MediumOf(compartment, conditioning);
    // Of compartments that had the same chemical, each has the rows at its place; else all of them are its
    // own.
    const auto had = [&](const auto& each) { return MediumOf(*each, conditioning) == from; };
    const bool isShared = std::ranges::any_of(compartments, had);
    const auto end = compartments.begin() + static_cast<std::ptrdiff_t>(compartment.GetPosition());
    const auto place = std::count_if(compartments.begin(), end, had);
    const std::string now = to == nullptr ? std::string() : to->key;
    std::ptrdiff_t seen = 0;
    for (const auto& row : exchanger->GetChildren(OwnerKind::SequenceRow)) {
        const std::string type = Text(*row, "regseqstep/type");
        const bool isMeant = conditioning ? type == kConditioning : IsRegeneration(type);
        if (!isMeant || FindMedium(Text(*row, "regseqstep/medium")) != from)
            continue;
        if (!isShared || seen == place)
            SetText(*row->GetDetails(), "regseqstep/medium", now);
        ++seen;
    }
}

void FollowMode(OwnerNode& exchanger)
{
    for (const auto& row : exchanger.GetChildren(OwnerKind::SequenceRow)) {
        const std::string direction = DirectionOf(exchanger, Text(*row, "regseqstep/type"));
        if (!direction.empty())
            SetText(*row->GetDetails(), "regseqstep/direction", direction);
    }
}

void RememberTyped(OwnerNode& row, std::string_view key)
{
    DetailList& details = *row.GetDetails();
    const auto value = std::ranges::find(kValues, key, &RowValue::key);
    if (value == kValues.end())
        return;
    RegSeqStep step{.type = Text(row, "regseqstep/type"),
                    .flowTyped = Text(row, "regseqstep/flow.typed"),
                    .amountTyped = Text(row, "regseqstep/amount.typed")};
    step.Type(value->name, 0.0);
    SetText(details, "regseqstep/flow.typed", step.flowTyped);
    SetText(details, "regseqstep/amount.typed", step.amountTyped);
}

}  // namespace sequence
