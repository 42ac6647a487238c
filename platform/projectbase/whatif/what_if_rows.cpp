// SPDX-License-Identifier: MIT
#include "projectbase/whatif/what_if_rows.h"

#include "dbinterfaces/database_error.h"
#include "dbinterfaces/master_database.h"

#include <map>
#include <mutex>

namespace whatif {

namespace {

constexpr std::string_view kRegenerant = "REGSEQ_REG";
constexpr std::string_view kFirstRegenerant = "REGSEQ_REG_FIRST";

/// The pairs of a type of plant, read once. Any thread.
const std::vector<DBObjects::WhatIfPair>& PairsOf(const std::string& type)
{
    static std::mutex mutex;
    static std::map<std::string, std::vector<DBObjects::WhatIfPair>> known;
    const std::lock_guard lock(mutex);
    const auto found = known.find(type);
    return found != known.end() ? found->second
                                : known.emplace(type, MasterDatabase::GetWhatIfTable(type)).first->second;
}

/// A vessel without resin has no bed that anything could be sought for.
bool HasBed(const OwnerNode& node)
{
    return node.GetKind() != OwnerKind::Exchanger || !node.GetChildren(OwnerKind::Compartment).empty();
}

/// The node and what belongs to it, rows of sequences apart, as far as it has the value.
void CollectPlaces(OwnerNode& node, const std::string& key, std::vector<Place>& places)
{
    if (!HasBed(node))
        return;
    if (DetailData* detail = node.FindDetail(key))
        places.push_back({&node, detail});
    for (const OwnerKind kind : {OwnerKind::Exchanger, OwnerKind::Compartment, OwnerKind::Resin}) {
        for (const auto& child : node.GetChildren(kind))
            CollectPlaces(*child, key, places);
    }
}

bool BelongsTo(const OwnerNode* node, const OwnerNode* other)
{
    while (node != nullptr && node != other)
        node = node->GetParent();
    return node != nullptr;
}

/// The value of that key that is nearest above a row of a sequence.
Place PlaceAbove(OwnerNode& sequenceRow, const std::string& key)
{
    for (OwnerNode* node = &sequenceRow; node != nullptr; node = node->GetParent()) {
        if (DetailData* detail = node->FindDetail(key))
            return {node, detail};
    }
    return {};
}

/// Calls `visit` with each row of the plant until it says that it has seen enough; returns whether it did.
template <typename Visit>
bool VisitPlantRows(Project& project, Visit visit)
{
    for (const DBObjects::WhatIfPair& pair : PairsOf(project.GetModuleType())) {
        if (!pair.step.empty())
            continue;
        std::vector<Place> firsts;
        std::vector<Place> seconds;
        CollectPlaces(project.GetRoot(), pair.first, firsts);
        CollectPlaces(project.GetRoot(), pair.second, seconds);
        for (const Place& first : firsts) {
            for (const Place& second : seconds) {
                const bool isJoined =
                    BelongsTo(first.node, second.node) || BelongsTo(second.node, first.node);
                if (isJoined && visit(Row{pair, first, second}))
                    return true;
            }
        }
    }
    return false;
}

}  // namespace

std::vector<Row> PlantRows(Project& project)
{
    std::vector<Row> rows;
    VisitPlantRows(project, [&rows](Row row) {
        rows.push_back(std::move(row));
        return false;
    });
    return rows;
}

std::vector<Row> SequenceRows(const Project& project, OwnerNode& sequenceRow)
{
    const DetailData* kind = sequenceRow.FindDetail("regseqstep/type");
    if (kind == nullptr)
        return {};
    std::vector<Row> rows;
    for (const DBObjects::WhatIfPair& pair : PairsOf(project.GetModuleType())) {
        if (pair.step.empty() || !IsSameKindOfRow(pair.step, kind->GetStdStringValue()))
            continue;
        const Place first = PlaceAbove(sequenceRow, pair.first);
        const Place second = PlaceAbove(sequenceRow, pair.second);
        if (first.detail != nullptr && second.detail != nullptr)
            rows.push_back({pair, first, second});
    }
    return rows;
}

bool IsSameKindOfRow(std::string_view one, std::string_view other)
{
    return one == other || (one == kRegenerant && other == kFirstRegenerant) ||
           (one == kFirstRegenerant && other == kRegenerant);
}

namespace {

bool HasAnyRow(Project& project)
{
    if (VisitPlantRows(project, [](const Row&) { return true; }))
        return true;
    for (const auto& exchanger : project.GetRoot().GetChildren(OwnerKind::Exchanger)) {
        for (const auto& row : exchanger->GetChildren(OwnerKind::SequenceRow)) {
            if (!SequenceRows(project, *row).empty())
                return true;
        }
    }
    return false;
}

}  // namespace

bool HasRows(Project& project)
{
    try {
        return HasAnyRow(project);
    } catch (const DatabaseError&) {
        return false;
    }
}

}  // namespace whatif
