// SPDX-License-Identifier: MIT
#include "projectbase/project/iex_project.h"

#include "dbinterfaces/master_database.h"
#include "projectbase/costs/project_costs.h"
#include "projectbase/design/plant_design.h"
#include "projectbase/design/resins.h"
#include "projectbase/sequence/sequence_calculation.h"
#include "projectbase/sequence/sequence_rows.h"

#include <wx/translation.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace iex {

namespace {

constexpr const char* kDegasser = "DEGAS";
constexpr const char* kInertResin = "inert";

bool IsPositive(const DetailList& details, const char* key)
{
    // False, too, for what is not known.
    return details.At(key).GetDoubleValue() > 0.0;
}

/// Parts of an exchanger with a regenerant of their own; a degasser has none.
std::size_t CompartmentsOf(const std::string& kind)
{
    if (kind == kDegasser)
        return 0;
    return kind == "MB" ? 2 : 1;
}

void FillCompartment(OwnerNode& compartment, OwnerNode& resin, const DBObjects::ExchangerDefault& usual)
{
    DetailList& details = *compartment.GetDetails();
    details.At("stepcomp/level").SetValue(usual.level);
    details.At("stepcomp/rm.chemical").SetValue(usual.chemical);
    details.At("stepcomp/rm.konz").SetValue(usual.supply);
    details.At(design::kFirstDilution).SetValue(usual.dilution);
    details.At("stepcomp/rm.temp").SetValue(usual.temperature);
    resin.GetDetails()->At("compcomp/resin").SetValue(usual.resin);
}

std::string KindOf(const OwnerNode& exchanger)
{
    return exchanger.GetDetails()->At("step/kind").GetStdStringValue();
}

/// Whether a type has exchangers of these kinds, in that order and with all that it cannot do without.
bool CanHave(const DBObjects::PlantType& plant, const std::vector<std::string>& kinds)
{
    auto next = kinds.begin();
    for (const DBObjects::PlantExchanger& exchanger : plant.exchangers) {
        if (next != kinds.end() && *next == exchanger.kind)
            ++next;
        else if (!exchanger.optional)
            return false;
    }
    return next == kinds.end();
}

bool IsComplete(const OwnerNode& compartment)
{
    const auto resins = compartment.GetChildren(OwnerKind::Resin);
    const bool chosen = std::ranges::any_of(resins, [](const auto& resin) {
        return !resin->GetDetails()->At("compcomp/resin").GetStringValue().empty();
    });
    return chosen && IsPositive(*compartment.GetDetails(), "stepcomp/level");
}

}  // namespace

IEXProject::IEXProject(std::string type) : Project(std::move(type))
{
    const auto plant = FindType(GetModuleType());
    if (!plant)
        throw std::invalid_argument("IEXProject::IEXProject: there is no type of plant '" + GetModuleType() +
                                    "'");
    const ProjectEdit edit(*this);
    AddLiquid(wxTRANSLATE("Feed water"));
    for (const DBObjects::PlantExchanger& exchanger : plant->exchangers) {
        if (!exchanger.optional)
            AddStep(exchanger.kind, NumberSteps());
    }
    SetChanged(false);
}

std::optional<DBObjects::PlantType> IEXProject::FindType(const std::string& type)
{
    const auto types = MasterDatabase::GetPlantTypes();
    const auto found = std::ranges::find(types, type, &DBObjects::PlantType::type);
    return found == types.end() ? std::nullopt : std::optional(*found);
}

std::unique_ptr<Project> IEXProject::Clone() const
{
    return std::unique_ptr<Project>(new IEXProject(*this));
}

Project::GraphicConfigTypes IEXProject::GetGraphicConfigTypes() const
{
    std::vector<std::string> kinds;
    for (const auto& exchanger : GetRoot().GetChildren(OwnerKind::Exchanger))
        kinds.push_back(KindOf(*exchanger));
    if (kinds.empty())
        return {};
    return {{"LINE", kinds}};
}

OwnerNode& IEXProject::GetStep(std::size_t index)
{
    const auto steps = GetRoot().GetChildren(OwnerKind::Exchanger);
    if (index >= steps.size())
        throw std::out_of_range("IEXProject::GetStep: there is no exchanger of that number");
    return *steps[index];
}

const OwnerNode& IEXProject::GetStep(std::size_t index) const
{
    return const_cast<IEXProject*>(this)->GetStep(index);
}

OwnerNode& IEXProject::AddStep(const std::string& kind, std::size_t position)
{
    const ProjectEdit edit(*this, wxTRANSLATE("add exchanger"));
    OwnerNode& step = AddOwner(GetRoot(), std::make_shared<OwnerNode>(OwnerKind::Exchanger), position);
    step.GetDetails()->At("step/kind").SetValue(kind);
    FillStep(step);
    return step;
}

void IEXProject::FillStep(OwnerNode& step)
{
    const ProjectEdit edit(*this);
    for (const OwnerKind kind : {OwnerKind::Compartment, OwnerKind::SequenceRow}) {
        while (!step.GetChildren(kind).empty())
            RemoveOwner(*step.GetChildren(kind).back());
    }
    const std::string kind = KindOf(step);
    for (std::size_t i = 0; i < CompartmentsOf(kind); ++i) {
        OwnerNode& compartment = AddOwner(step, OwnerKind::Compartment);
        OwnerNode& resin = AddOwner(compartment, OwnerKind::Resin);
        const auto* usual = design::FindDefault(GetModuleType(), kind, i);
        if (usual == nullptr)
            continue;
        step.GetDetails()->At("step/mode").SetValue(usual->mode);
        step.GetDetails()->At("step/v.max").SetValue(usual->maxVelocity);
        FillCompartment(compartment, resin, *usual);
    }
    sequence::AddDefaults(*this, step);
}

void IEXProject::SetPlant(const std::string& type, const std::vector<std::string>& kinds)
{
    const auto plant = FindType(type);
    if (!plant || !CanHave(*plant, kinds))
        throw std::invalid_argument("IEXProject::SetPlant: a plant of type '" + type +
                                    "' cannot have those exchangers");
    const ProjectEdit edit(*this, wxTRANSLATE("change plant"));
    for (const OwnerNode* lost : LostBy(kinds))
        RemoveOwner(*FindOwner(lost->GetOwner()));
    SetModuleType(type);
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        if (i >= NumberSteps() || KindOf(GetStep(i)) != kinds[i])
            AddStep(kinds[i], i);
    }
}

std::vector<const OwnerNode*> IEXProject::LostBy(const std::vector<std::string>& kinds) const
{
    std::vector<const OwnerNode*> lost;
    auto next = kinds.begin();
    for (const auto& step : GetRoot().GetChildren(OwnerKind::Exchanger)) {
        const auto found = std::find(next, kinds.end(), KindOf(*step));
        if (found == kinds.end())
            lost.push_back(step.get());
        else
            next = found + 1;
    }
    return lost;
}

OwnerNode& IEXProject::AddResin(OwnerNode& compartment, std::size_t position)
{
    const ProjectEdit edit(*this, wxTRANSLATE("add resin layer"));
    OwnerNode& resin = AddOwner(compartment, std::make_shared<OwnerNode>(OwnerKind::Resin), position);
    resin.GetDetails()->At("compcomp/resin").SetValue(kInertResin);
    return resin;
}

RegSeqData IEXProject::GetRegSeqData(std::size_t step) const
{
    return sequence::Read(GetStep(step));
}

void IEXProject::SaveRegSeqData(std::size_t step, const RegSeqData& data)
{
    sequence::Save(*this, GetStep(step), data);
}

MediumSumsData IEXProject::GetRegSeqSums(std::size_t step) const
{
    return sequence::SumsOf(GetStep(step));
}

bool IEXProject::HasConditioning(std::size_t step) const
{
    const auto compartments = GetStep(step).GetChildren(OwnerKind::Compartment);
    return IsOfType("FOODC") || std::ranges::any_of(compartments, [](const auto& compartment) {
               return !compartment->GetDetails()->At("stepcomp/cond.chemical").GetStdStringValue().empty();
           });
}

bool IEXProject::StepHasConditioning(std::size_t step, const RegSeqStep& row) const
{
    return row.type == sequence::kConditioning && HasConditioning(step);
}

void IEXProject::CalculatePlant()
{
    costs::UpdateCosts(*this, design::UpdateDesign(*this));
}

long IEXProject::ReachedStatus() const
{
    const long reached = Project::ReachedStatus();
    return reached == StatusComplete && design::IsDesigned(*this) ? StatusDesigned : reached;
}

bool IEXProject::IsFeedKnown() const
{
    if (IsOfType("FOODC"))
        return GetDetailGroups("feedcompound") != nullptr;
    return FeedingWater() != nullptr;
}

const LiquidData* IEXProject::FeedingWater() const
{
    const long water = GetDetails().At("project/water").GetLongValue();
    const bool isThere = water >= 1 && static_cast<std::size_t>(water) <= GetLiquidCount();
    return isThere && !IsOfType("FOODC") ? &GetLiquid(static_cast<std::size_t>(water - 1)) : nullptr;
}

bool IEXProject::IsReadyToCalculate() const
{
    const auto steps = GetRoot().GetChildren(OwnerKind::Exchanger);
    const DetailList& details = GetDetails();
    const bool amount = IsPositive(details, "project/qbrutto") || IsPositive(details, "project/wbrutto");
    if (steps.empty() || !IsFeedKnown() || !amount || !IsPositive(details, "project/lz"))
        return false;
    return std::ranges::all_of(steps, [](const auto& step) {
        return std::ranges::all_of(step->GetChildren(OwnerKind::Compartment),
                                   [](const auto& compartment) { return IsComplete(*compartment); });
    });
}

const IEXProject* PlantOf(const Project& project)
{
    const auto* plant = dynamic_cast<const IEXProject*>(&project);
    return plant != nullptr && plant->NumberSteps() > 0 ? plant : nullptr;
}

}  // namespace iex
