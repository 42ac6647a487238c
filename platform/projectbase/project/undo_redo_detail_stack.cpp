// SPDX-License-Identifier: MIT
#include "projectbase/project/undo_redo_detail_stack.h"

#include "projectbase/project/project.h"

#include <algorithm>

namespace {

DetailList* FindList(Project& project, int liquid)
{
    if (liquid < 0)
        return &project.GetDetails();
    const auto index = static_cast<std::size_t>(liquid);
    return index < project.GetLiquidCount() ? project.GetLiquid(index).GetDetails() : nullptr;
}

void Apply(Project& project, const DetailAddress& address, const DetailData::Value& value,
           const std::string& unit)
{
    DetailList* list = FindList(project, address.liquid);
    DetailData* detail = list == nullptr ? nullptr : list->GetDetail(address.name);
    if (detail == nullptr)
        return;
    detail->RestoreValue(value);
    detail->SetUnit(unit);
}

}  // namespace

DetailSnapshot::DetailSnapshot(const Project& project)
    : m_project(Capture(project.GetDetails())), m_groups(project.GetAllDetailGroups())
{
    for (std::size_t i = 0; i < project.GetLiquidCount(); ++i)
        m_liquids.push_back(Capture(*project.GetLiquid(i).GetDetails()));
}

DetailSnapshot::Entries DetailSnapshot::Capture(const DetailList& details)
{
    Entries entries;
    entries.reserve(details.Size());
    for (const auto& [name, detail] : details) {
        if (!detail.IsDerived())
            entries.push_back({name, detail.GetStoredValue(), detail.GetUnit()});
    }
    return entries;
}

void DetailSnapshot::AddChanges(const Entries& before, const DetailList& now, int liquid, UndoStep& step)
{
    // Both are sorted by name.
    auto entry = before.begin();
    for (const auto& [name, detail] : now) {
        while (entry != before.end() && entry->name < name)
            ++entry;
        if (entry == before.end())
            return;
        if (entry->name != name || entry->value.index() != detail.GetStoredValue().index())
            continue;
        if (!SameDetailValue(entry->value, detail.GetStoredValue()) || entry->unit != detail.GetUnit()) {
            step.push_back({.address = {liquid, name},
                            .before = entry->value,
                            .after = detail.GetStoredValue(),
                            .unitBefore = entry->unit,
                            .unitAfter = detail.GetUnit()});
        }
    }
}

void DetailSnapshot::AddGroupChanges(const Project& project, UndoStep& step) const
{
    // Equal groups are the same ones; see ShareGroups.
    std::map<std::string, DetailGroupsPtr> kinds = m_groups;
    kinds.insert(project.GetAllDetailGroups().begin(), project.GetAllDetailGroups().end());
    for (const auto& [kind, unused] : kinds) {
        const auto found = m_groups.find(kind);
        const DetailGroupsPtr before = found == m_groups.end() ? nullptr : found->second;
        const DetailGroupsPtr after = project.GetDetailGroups(kind);
        if (before != after)
            step.push_back({.address = {-1, kind},
                            .before = {},
                            .after = {},
                            .unitBefore = {},
                            .unitAfter = {},
                            .isGroups = true,
                            .groupsBefore = before,
                            .groupsAfter = after});
    }
}

UndoStep DetailSnapshot::ChangesSince(const Project& project) const
{
    UndoStep step;
    AddChanges(m_project, project.GetDetails(), -1, step);
    AddGroupChanges(project, step);
    const std::size_t liquids = std::min(m_liquids.size(), project.GetLiquidCount());
    for (std::size_t i = 0; i < liquids; ++i)
        AddChanges(m_liquids[i], *project.GetLiquid(i).GetDetails(), static_cast<int>(i), step);
    return step;
}

UndoRedoDetailStack::UndoRedoDetailStack(Project& project, std::size_t depth)
    : m_project(project), m_depth(std::max<std::size_t>(depth, 1))
{}

void UndoRedoDetailStack::Push(UndoStep step)
{
    if (step.empty())
        return;
    m_steps.resize(m_done);
    if (m_steps.size() == m_depth)
        m_steps.erase(m_steps.begin());
    m_steps.push_back(std::move(step));
    m_done = m_steps.size();
}

const UndoStep* UndoRedoDetailStack::Undo()
{
    if (!CanUndo())
        return nullptr;
    const UndoStep& step = m_steps[--m_done];
    // Backwards, in case a detail occurs twice in a step.
    for (auto element = step.rbegin(); element != step.rend(); ++element) {
        if (element->isGroups)
            m_project.RestoreDetailGroups(element->address.name, element->groupsBefore);
        else
            Apply(m_project, element->address, element->before, element->unitBefore);
    }
    return &step;
}

const UndoStep* UndoRedoDetailStack::Redo()
{
    if (!CanRedo())
        return nullptr;
    const UndoStep& step = m_steps[m_done++];
    for (const StackElement& element : step)
        if (element.isGroups)
            m_project.RestoreDetailGroups(element.address.name, element.groupsAfter);
        else
            Apply(m_project, element.address, element.after, element.unitAfter);
    return &step;
}

void UndoRedoDetailStack::UndoAll()
{
    while (Undo() != nullptr) {
    }
}

void UndoRedoDetailStack::RedoAll()
{
    while (Redo() != nullptr) {
    }
}

void UndoRedoDetailStack::Clear()
{
    m_steps.clear();
    m_done = 0;
}
