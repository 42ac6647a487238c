// SPDX-License-Identifier: MIT
#include "projectbase/project/project.h"

#include "projectbase/project/project_edit.h"
#include "projectbase/project/project_journal.h"
#include "projectbase/project/project_rules.h"
#include "projectbase/water/blend.h"
#include "projectbase/water/blend_recipe.h"
#include "projectbase/water/normalization.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <unordered_map>

namespace {

constexpr const char* kMediumId = "feed/medium";
constexpr const char* kMediumTemperature = "feed/medium.temp";
constexpr const char* kMediumDensity = "feed/density";

}  // namespace

Project::Project(std::string moduleType)
    : m_moduleType(std::move(moduleType)), m_journal(std::make_unique<ProjectJournal>())
{
    Register(m_root);
}

Project::Project(const Project& other)
    : m_moduleType(other.m_moduleType),
      m_unitSystem(other.m_unitSystem),
      m_changed(other.m_changed),
      m_status(other.m_status),
      m_root(other.m_root),
      m_lastOwner(other.m_lastOwner),
      m_groups(other.m_groups),
      m_journal(std::make_unique<ProjectJournal>())
{
    Register(m_root);
}

Project::~Project() = default;

std::unique_ptr<Project> Project::Clone() const
{
    return std::unique_ptr<Project>(new Project(*this));
}

void Project::SetModuleType(const std::string& type)
{
    if (type == m_moduleType)
        return;
    const ProjectEdit edit(*this);
    m_root.SetOutOfDate(true);
    m_journal->NoteType({.before = std::exchange(m_moduleType, type), .after = type});
}

LiquidData& Project::GetLiquid(std::size_t index)
{
    return static_cast<LiquidData&>(*m_root.ChildrenOf(OwnerKind::Water).at(index));
}

const LiquidData& Project::GetLiquid(std::size_t index) const
{
    return const_cast<Project*>(this)->GetLiquid(index);
}

LiquidData& Project::AddLiquid(const std::string& name)
{
    return static_cast<LiquidData&>(AddOwner(m_root, std::make_shared<LiquidData>(name), GetLiquidCount()));
}

void Project::RemoveLiquid(std::size_t index)
{
    RemoveOwner(GetLiquid(index));
}

DetailGroupsPtr Project::GetDetailGroups(const std::string& kind) const
{
    const auto found = m_groups.find(kind);
    return found == m_groups.end() ? nullptr : found->second;
}

void Project::SetDetailGroups(const std::string& kind, std::vector<DetailGroup> groups)
{
    RestoreDetailGroups(kind, ShareGroups(GetDetailGroups(kind), std::move(groups)));
}

void Project::RestoreDetailGroups(const std::string& kind, const DetailGroupsPtr& groups)
{
    const ProjectEdit edit(*this);
    m_root.SetOutOfDate(true);
    m_journal->NoteGroups(kind, GetDetailGroups(kind));
    if (groups && !groups->empty())
        m_groups[kind] = groups;
    else
        m_groups.erase(kind);
}

FeedMedium::Data Project::LoadFeedMediumFromDetails() const
{
    const DetailList& details = GetDetails();
    return {details.At(kMediumId).GetLongValue(),
            {details.At(kMediumTemperature).GetDoubleValue(), TemperatureUnit::Celsius},
            details.At(kMediumDensity).GetDoubleValue()};
}

void Project::SaveFeedMediumToDetails(const FeedMedium::Data& medium)
{
    const ProjectEdit edit(*this);
    DetailList& details = GetDetails();
    details.At(kMediumId).SetValue(medium.id);
    // Through another unit and back, a temperature that nobody touched loses its last digits.
    constexpr double kRounding = 1e-9;
    DetailData& temperature = details.At(kMediumTemperature);
    const double celsius = medium.temperature.In(TemperatureUnit::Celsius);
    if (!(std::abs(celsius - temperature.GetDoubleValue()) < kRounding))
        temperature.SetValue(celsius);
    details.At(kMediumDensity).SetValue(medium.density);
}

void Project::NormalizeIon(std::size_t liquid, const std::string& ion, bool checkName)
{
    water::NormalizeIon(*GetLiquid(liquid).GetDetails(), ion, checkName);
}

void Project::NormalizeIons(std::size_t liquid, bool derived)
{
    DetailList& details = *GetLiquid(liquid).GetDetails();
    water::NormalizeEveryIon(details);
    if (derived)
        water::UpdateDerivedValues(details);
}

water::AlkalizationResult Project::CalculateAlkalization(std::size_t liquid)
{
    LiquidData& water = GetLiquid(liquid);
    water.SetAlkalization(water::CalculateAlkalization(*water.GetDetails()));
    return water.GetAlkalization();
}

void Project::CalculateDesign()
{
    const ProjectEdit edit(*this);
    ApplyPendingRules();
    // An undo brings back what stood there.
    if (m_journal->GetKind() != EditKind::History)
        rules::KeepInvariants(*this);
    // A blend is made of waters before it, which are calculated first and put it out of date.
    const auto blends = BlendsOfWaters();
    for (std::size_t i = 0; i < GetLiquidCount(); ++i) {
        if (!GetLiquid(i).IsOutOfDate())
            continue;
        CalculateOne(i);
        m_root.SetOutOfDate(true);
        for (const std::size_t blend : blends[i])
            GetLiquid(blend).SetOutOfDate(true);
    }
    if (IsPlantOutOfDate()) {
        CalculatePlant();
        m_root.ForEach([](OwnerNode& node) { node.SetOutOfDate(false); });
    }
    // Inputs that the calculation settles (a reset, a blend, a diameter) are not typed.
    m_journal->TakeTyped();
}

bool Project::IsPlantOutOfDate()
{
    bool isOutOfDate = false;
    m_root.ForEach([&isOutOfDate](OwnerNode& node) { isOutOfDate = isOutOfDate || node.IsOutOfDate(); });
    return isOutOfDate;
}

void Project::CalculateLiquid(std::size_t liquid)
{
    const ProjectEdit edit(*this);
    ApplyPendingRules();
    CalculateOne(liquid);
    m_root.SetOutOfDate(true);
    m_journal->TakeTyped();
    const auto blends = BlendsOfWaters();
    for (const std::size_t blend : blends[liquid])
        GetLiquid(blend).SetOutOfDate(true);
}

std::vector<std::vector<std::size_t>> Project::BlendsOfWaters() const
{
    std::vector<std::vector<std::size_t>> blends(GetLiquidCount());
    std::unordered_map<std::string_view, std::size_t> places;
    for (std::size_t i = 0; i < GetLiquidCount(); ++i) {
        const LiquidData& liquid = GetLiquid(i);
        if (water::IsBlend(*liquid.GetDetails())) {
            for (const std::size_t place : PlacesOf(liquid, places))
                blends[place].push_back(i);
        }
        places.emplace(liquid.GetName(), i);
    }
    return blends;
}

std::vector<std::size_t> Project::PlacesOf(const LiquidData& blend,
                                           const std::unordered_map<std::string_view, std::size_t>& before)
{
    std::vector<std::size_t> places;
    for (const water::BlendPart& part : water::RecipeOf(*blend.GetDetails()).parts) {
        const auto found = before.find(part.water);
        if (found == before.end())
            return {};
        places.push_back(found->second);
    }
    return places;
}

void Project::CalculateOne(std::size_t liquid)
{
    UpdateBlend(liquid);
    NormalizeLiquid(liquid);
    CalculateAlkalization(liquid);
    GetLiquid(liquid).SetOutOfDate(false);
}

std::vector<const LiquidData*> Project::WatersOf(const LiquidData& blend) const
{
    if (!water::IsBlend(*blend.GetDetails()))
        return {};
    std::unordered_map<std::string_view, std::size_t> before;
    const std::size_t position = blend.GetPosition();
    for (std::size_t i = 0; i < position; ++i)
        before.emplace(GetLiquid(i).GetName(), i);
    std::vector<const LiquidData*> waters;
    for (const std::size_t place : PlacesOf(blend, before))
        waters.push_back(&GetLiquid(place));
    return waters;
}

bool Project::IsMixed(const LiquidData& liquid) const
{
    return !WatersOf(liquid).empty();
}

bool Project::UpdateBlend(std::size_t liquid)
{
    const auto waters = WatersOf(GetLiquid(liquid));
    if (waters.empty())
        return false;
    const ProjectEdit edit(*this);
    DetailList& details = *GetLiquid(liquid).GetDetails();
    const std::vector<double> shares = water::RecipeOf(details).Shares();
    std::vector<water::BlendSource> sources;
    for (std::size_t i = 0; i < waters.size(); ++i)
        sources.push_back({*waters[i]->GetDetails(), shares[i]});
    water::Blend(sources, details);
    return true;
}
