// SPDX-License-Identifier: MIT
#include "projectbase/graphics/graphic_info.h"

#include "tncommon/data_dir.h"

namespace {

constexpr const char* kArchiveName = "graphics.zrc";
/// The owner of a placeholder that shows the water of the plant, whichever it is.
constexpr const char* kPlantWater = "water";

}  // namespace

DetailReplaceMapping::DetailReplaceMapping(const Project& project, DBObjects::GraphicPlaceholder placeholder,
                                           FormatGraphicValue format)
    : m_project(project), m_placeholder(std::move(placeholder)), m_format(std::move(format))
{}

DetailReplaceMapping::~DetailReplaceMapping() = default;

wxString DetailReplaceMapping::GetId() const
{
    return wxString::FromUTF8(m_placeholder.id);
}

const OwnerNode* DetailReplaceMapping::FindOwner() const
{
    std::string path = m_placeholder.owner;
    if (path == kPlantWater)
        path += "." + std::to_string(m_project.GetDetails().At("project/water").GetLongValue());
    // Looking for an owner changes nothing; what is found is only read.
    return const_cast<Project&>(m_project).FindOwner(path);
}

const DetailData* DetailReplaceMapping::FindDetail() const
{
    const OwnerNode* const owner = FindOwner();
    return owner != nullptr ? owner->FindDetail(m_placeholder.key) : nullptr;
}

std::optional<DetailAddress> DetailReplaceMapping::GetAddress() const
{
    const OwnerNode* const owner = FindOwner();
    if (owner == nullptr)
        return std::nullopt;
    return DetailAddress{owner->GetOwner(), m_placeholder.key};
}

wxString DetailReplaceMapping::GetText(const wxString& unitsystem) const
{
    const DetailData* const detail = FindDetail();
    return detail != nullptr ? m_format(*detail, m_placeholder, unitsystem.utf8_string()) : wxString();
}

SvgGraphicInfo<ArchiveLoadPolicy> FromDbGraphicInfo(const DBObjects::GraphicInfo& info,
                                                    const Project& project, const wxString& unitSystem,
                                                    const FormatGraphicValue& format)
{
    std::vector<std::shared_ptr<TextReplaceMapping>> mappings;
    for (const DBObjects::GraphicPlaceholder& placeholder : info.placeholders)
        mappings.push_back(std::make_shared<DetailReplaceMapping>(project, placeholder, format));
    return SvgGraphicInfo<ArchiveLoadPolicy>::Load(
        {ArchiveLoadPolicy::Open(tncommon::DataDir() / kArchiveName), info.entry}, unitSystem,
        std::move(mappings));
}
