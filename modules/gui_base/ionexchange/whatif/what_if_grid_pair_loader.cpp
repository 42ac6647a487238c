// SPDX-License-Identifier: MIT
#include "gui_base/ionexchange/whatif/what_if_grid_pair_loader.h"

#include "gui_base/support/translation.h"
#include "projectbase/details/detail_display.h"
#include "projectbase/whatif/what_if_rows.h"

#include <wx/translation.h>

namespace {

/// "exchanger 2, compartment 1": what tells the owner from its like.
wxString PlaceName(const OwnerNode& node)
{
    const OwnerNode* parent = node.GetParent();
    if (parent == nullptr)
        return {};
    wxString name = PlaceName(*parent);
    const char* word = nullptr;
    if (node.GetKind() == OwnerKind::Exchanger)
        word = wxTRANSLATE("exchanger %d");
    else if (node.GetKind() == OwnerKind::Compartment)
        word = wxTRANSLATE("compartment %d");
    else if (node.GetKind() == OwnerKind::Resin)
        word = wxTRANSLATE("resin %d");
    if (word == nullptr || parent->GetChildren(node.GetKind()).size() < 2)
        return name;
    if (!name.empty())
        name += ", ";
    return name + wxString::Format(i18n::Translated(word), static_cast<int>(node.GetPosition()) + 1);
}

wxString NameOf(const std::string& label, const OwnerNode& node)
{
    wxString name = i18n::Translated(wxString::FromUTF8(label));
    if (node.GetKind() == OwnerKind::SequenceRow)
        name += wxString::Format(" (%d)", static_cast<int>(node.GetPosition()) + 1);
    const wxString place = PlaceName(node);
    return place.empty() ? name : name + ", " + place;
}

WifDataPoint PointOf(const whatif::Place& place, const std::string& label, const std::string& unitSystem)
{
    return {.name = NameOf(label, *place.node),
            .unit = DisplayFromDetail().GetUnitLabel(*place.detail, unitSystem),
            .detail = place.detail,
            .type = place.detail->GetTypeName()};
}

std::vector<WifPair> PairsOf(const std::vector<whatif::Row>& rows, const Project& project)
{
    const std::string& system = project.GetUnitSystemDisplay();
    std::vector<WifPair> pairs;
    for (const whatif::Row& row : rows) {
        pairs.emplace_back(PointOf(row.first, row.pair.firstLabel, system),
                           PointOf(row.second, row.pair.secondLabel, system));
    }
    return pairs;
}

bool IsAnionExchanger(const OwnerNode& node)
{
    const DetailData* kind = node.FindDetail("step/kind");
    return kind != nullptr && (kind->GetStdStringValue() == "WBA" || kind->GetStdStringValue() == "SBA");
}

}  // namespace

std::vector<WifPair> WhatIfGridPairLoader::GetTable(Project& project)
{
    return PairsOf(whatif::PlantRows(project), project);
}

std::vector<WifPair> WhatIfGridPairLoader::GetTableForSteps(Project& project)
{
    std::vector<WifPair> pairs;
    for (const auto& exchanger : project.GetRoot().GetChildren(OwnerKind::Exchanger)) {
        for (const auto& step : exchanger->GetChildren(OwnerKind::SequenceRow)) {
            for (WifPair& pair : GetTableForStep(project, *step))
                pairs.push_back(std::move(pair));
        }
    }
    return pairs;
}

std::vector<WifPair> WhatIfGridPairLoader::GetTableForStep(Project& project, OwnerNode& step)
{
    return PairsOf(whatif::SequenceRows(project, step), project);
}

std::vector<WifPair> WhatIfGridPairLoader::GetTableForAnionerOnlyStep(Project& project, OwnerNode& step)
{
    const OwnerNode* exchanger = step.GetParent();
    return exchanger != nullptr && IsAnionExchanger(*exchanger) ? GetTableForStep(project, step)
                                                                : std::vector<WifPair>();
}
