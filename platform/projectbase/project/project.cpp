// SPDX-License-Identifier: MIT
#include "projectbase/project/project.h"

#include "projectbase/water/blend.h"
#include "projectbase/water/normalization.h"

#include <algorithm>

namespace {

constexpr const char* kMediumId = "feed/medium";
constexpr const char* kMediumTemperature = "feed/medium.temp";
constexpr const char* kMediumDensity = "feed/density";

}  // namespace

Project::Project(std::string moduleType) : m_moduleType(std::move(moduleType))
{
    m_details.LoadGroup("project", "BASE");
    m_details.LoadGroup("arrangement", "BASE");
    m_details.LoadGroup("feed", "BASE");
}

Project::~Project() = default;

LiquidData& Project::GetLiquid(std::size_t index)
{
    return *m_liquids.at(index);
}

const LiquidData& Project::GetLiquid(std::size_t index) const
{
    return *m_liquids.at(index);
}

LiquidData& Project::AddLiquid(const std::string& name)
{
    return *m_liquids.emplace_back(std::make_unique<LiquidData>(name));
}

void Project::RemoveLiquid(std::size_t index)
{
    m_liquids.erase(m_liquids.begin() + static_cast<std::ptrdiff_t>(index));
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
    if (groups && !groups->empty())
        m_groups[kind] = groups;
    else
        m_groups.erase(kind);
}

FeedMedium::Data Project::LoadFeedMediumFromDetails() const
{
    return {m_details.At(kMediumId).GetLongValue(),
            {m_details.At(kMediumTemperature).GetDoubleValue(), TemperatureUnit::Celsius},
            m_details.At(kMediumDensity).GetDoubleValue()};
}

void Project::SaveFeedMediumToDetails(const FeedMedium::Data& medium)
{
    m_details.At(kMediumId).SetValue(medium.id);
    m_details.At(kMediumTemperature).SetValue(medium.temperature.In(TemperatureUnit::Celsius));
    m_details.At(kMediumDensity).SetValue(medium.density);
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
    return water::CalculateAlkalization(*GetLiquid(liquid).GetDetails());
}

void Project::CalculateDesign()
{
    for (std::size_t i = 0; i < m_liquids.size(); ++i)
        CalculateLiquid(i);
}

void Project::CalculateLiquid(std::size_t liquid)
{
    UpdateBlend(liquid);
    NormalizeLiquid(liquid);
    CalculateAlkalization(liquid);
}

bool Project::UpdateBlend(std::size_t liquid)
{
    DetailList& details = *GetLiquid(liquid).GetDetails();
    if (!water::IsBlend(details))
        return false;
    // A blend is made of waters before it, which are calculated first.
    const auto find = [&](const char* key) -> const LiquidData* {
        const std::string name = details.At(key).GetStdStringValue();
        const auto end = m_liquids.begin() + static_cast<std::ptrdiff_t>(liquid);
        const auto found = std::find_if(m_liquids.begin(), end,
                                        [&name](const auto& water) { return water->GetName() == name; });
        return found == end ? nullptr : found->get();
    };
    const LiquidData* first = find("liquid/blend.first");
    const LiquidData* second = find("liquid/blend.second");
    if (first == nullptr || second == nullptr)
        return false;
    water::Blend(*first->GetDetails(), *second->GetDetails(),
                 details.At("liquid/blend.share").GetDoubleValue() / 100.0, details);
    return true;
}
