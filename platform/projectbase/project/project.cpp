// SPDX-License-Identifier: MIT
#include "projectbase/project/project.h"

#include "projectbase/water/normalization.h"

Project::Project(std::string moduleType) : m_moduleType(std::move(moduleType))
{
    m_details.LoadGroup("project", "BASE");
    m_details.LoadGroup("arrangement", "BASE");
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
    for (std::size_t i = 0; i < m_liquids.size(); ++i) {
        NormalizeLiquid(i);
        CalculateAlkalization(i);
    }
}
