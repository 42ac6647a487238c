// SPDX-License-Identifier: MIT
#include "projectbase/whatif/input_copy.h"

#include "projectbase/project/project_edit.h"

namespace whatif {

namespace {

constexpr std::array kKinds{OwnerKind::Water, OwnerKind::Exchanger, OwnerKind::Compartment, OwnerKind::Resin,
                            OwnerKind::SequenceRow};

/// Calls `visit` with each input below the node and the one at the same address of another project, where
/// they differ.
template <typename Visit>
void ForEachDifference(const OwnerNode& node, const Project& other, const Visit& visit)
{
    if (const OwnerNode* counterpart = other.FindOwner(node.GetOwner())) {
        for (const auto& [name, detail] : *node.GetDetails()) {
            const DetailData* same = detail.IsDerived() ? nullptr : counterpart->FindDetail(name);
            if (same != nullptr && (!same->HasSameValue(detail) || same->GetUnit() != detail.GetUnit()))
                visit(detail, DetailAddress{node.GetOwner(), name});
        }
    }
    for (const OwnerKind kind : kKinds) {
        for (const auto& child : node.GetChildren(kind))
            ForEachDifference(*child, other, visit);
    }
}

}  // namespace

bool HasSameInputs(const Project& one, const Project& other)
{
    bool isSame = true;
    ForEachDifference(one.GetRoot(), other,
                      [&isSame](const DetailData&, const DetailAddress&) { isSame = false; });
    return isSame;
}

void CopyInputs(const Project& from, Project& to, const std::string& name)
{
    const ProjectEdit edit(to, name, EditKind::Copied);
    ForEachDifference(from.GetRoot(), to, [&to](const DetailData& detail, const DetailAddress& address) {
        to.FindDetail(address)->CopyValue(detail);
    });
}

}  // namespace whatif
