// SPDX-License-Identifier: MIT
#include "projectbase/project/project_changes.h"

#include <algorithm>

namespace {

bool IsStructure(const StackElement& element)
{
    return std::holds_alternative<StructureChange>(element) || std::holds_alternative<TypeChange>(element);
}

DetailAddress AddressOf(const StackElement& element)
{
    if (const auto* value = std::get_if<ValueChange>(&element))
        return value->address;
    if (const auto* groups = std::get_if<GroupsChange>(&element))
        return {{}, groups->kind};
    if (const auto* structure = std::get_if<StructureChange>(&element))
        return {structure->node->GetOwner(), {}};
    return {};
}

}  // namespace

ProjectChanges::ProjectChanges(EditKind kind, std::string name, bool isNamed,
                               std::vector<StackElement> elements)
    : m_kind(kind), m_name(std::move(name)), m_isNamed(isNamed), m_elements(std::move(elements))
{
    for (const StackElement& element : m_elements) {
        const DetailOwner owner = AddressOf(element).owner;
        if (m_owners.empty() || m_owners.back() != owner)
            m_owners.push_back(owner);
        m_hasStructure = m_hasStructure || IsStructure(element);
    }
    std::ranges::sort(m_owners);
}

bool ProjectChanges::Touches(DetailOwner owner) const
{
    return std::ranges::binary_search(m_owners, owner);
}

bool ProjectChanges::Any(const std::function<bool(const DetailAddress&)>& is) const
{
    return std::ranges::any_of(m_elements, [&is](const StackElement& element) {
        return !IsStructure(element) && is(AddressOf(element));
    });
}
