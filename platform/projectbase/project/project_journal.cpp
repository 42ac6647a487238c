// SPDX-License-Identifier: MIT
#include "projectbase/project/project_journal.h"

#include "projectbase/details/detail_display.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace {

/// Serial numbers of edits are never used twice in a process, so that a mark on a detail that moved to
/// another project means nothing there.
std::uint64_t NextSerial()
{
    static std::atomic<std::uint64_t> last{0};
    return ++last;
}

bool IsUnchanged(const StructureChange& change)
{
    using enum StructureChange::What;
    return (change.what == Moved && change.before == change.after) ||
           (change.what == Renamed && change.nameBefore == change.nameAfter);
}

}  // namespace

bool ProjectJournal::NotedValue::HasChanged() const
{
    return unitBefore != detail->GetUnit() || !SameDetailValue(before, detail->GetStoredValue());
}

void ProjectJournal::Begin(EditKind kind, std::string name)
{
    if (m_depth++ > 0) {
        if (m_name.empty())
            m_name = std::move(name);
        return;
    }
    m_serial = NextSerial();
    m_kind = kind;
    m_name = std::move(name);
}

void ProjectJournal::NoteValue(OwnerNode& node, DetailData& detail)
{
    if (detail.NoteUnder(m_serial))
        m_elements.emplace_back(
            NotedValue{&node, &detail, detail.GetStoredValue(), detail.GetUnit(), detail.GetStoredValue()});
}

void ProjectJournal::NoteGroups(const std::string& kind, const DetailGroupsPtr& before)
{
    const bool known = std::ranges::any_of(m_elements, [&kind](const Element& element) {
        const auto* groups = std::get_if<GroupsChange>(&element);
        return groups != nullptr && groups->kind == kind;
    });
    if (!known)
        m_elements.emplace_back(GroupsChange{kind, before, nullptr});
}

std::vector<TypedInput> ProjectJournal::TakeTyped()
{
    std::vector<TypedInput> typed;
    for (Element& element : m_elements) {
        auto* value = std::get_if<NotedValue>(&element);
        // An owner that was removed meanwhile stays as it was: nothing notes what is written to it.
        if (value == nullptr || value->detail->IsDerived() || value->node->m_project == nullptr ||
            SameDetailValue(value->seen, value->detail->GetStoredValue()))
            continue;
        typed.push_back({*value->node, *value->detail, value->seen});
        value->seen = value->detail->GetStoredValue();
    }
    for (const auto& [node, detail] : std::exchange(m_marked, {})) {
        const bool isTaken = std::ranges::any_of(
            typed, [detail = detail](const TypedInput& input) { return &input.detail == detail; });
        if (!isTaken && !detail->IsDerived() && node->m_project != nullptr)
            typed.push_back({*node, *detail, detail->GetStoredValue()});
    }
    return typed;
}

ProjectChanges ProjectJournal::Close(const std::map<std::string, DetailGroupsPtr>& groups)
{
    std::vector<StackElement> elements;
    elements.reserve(m_elements.size());
    std::string name = std::move(m_name);
    const bool isNamed = !name.empty();
    for (Element& element : m_elements) {
        if (auto* value = std::get_if<NotedValue>(&element)) {
            if (!value->HasChanged())
                continue;
            const DetailData& detail = *value->detail;
            if (name.empty() && !detail.IsDerived())
                name = CalledName(*value->node->GetDetails(), detail);
            elements.emplace_back(ValueChange{{value->node->GetOwner(), detail.GetName()},
                                              std::move(value->before),
                                              detail.GetStoredValue(),
                                              std::move(value->unitBefore),
                                              detail.GetUnit(),
                                              detail.IsDerived()});
        } else if (auto* change = std::get_if<GroupsChange>(&element)) {
            const auto found = groups.find(change->kind);
            change->after = found == groups.end() ? nullptr : found->second;
            if (change->after != change->before)
                elements.emplace_back(std::move(*change));
        } else if (auto* type = std::get_if<TypeChange>(&element)) {
            elements.emplace_back(std::move(*type));
        } else if (auto& structure = std::get<StructureChange>(element); !IsUnchanged(structure)) {
            elements.emplace_back(std::move(structure));
        }
    }
    m_elements.clear();
    m_marked.clear();
    m_serial = 0;
    return {m_kind, std::move(name), isNamed, std::move(elements)};
}
