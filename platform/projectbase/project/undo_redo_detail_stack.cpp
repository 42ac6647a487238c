// SPDX-License-Identifier: MIT
#include "projectbase/project/undo_redo_detail_stack.h"

#include "projectbase/project/project.h"
#include "projectbase/project/project_edit.h"

#include <algorithm>

namespace {

enum class Direction
{
    Back,
    Forth
};

/// Applies one element of a step to a project.
class Applier
{
public:
    Applier(Project& project, Direction direction) : m_project(project), m_back(direction == Direction::Back)
    {}

    void operator()(const ValueChange& change) const
    {
        DetailData* detail = m_project.FindDetail(change.address);
        if (detail == nullptr)
            return;
        detail->RestoreValue(m_back ? change.before : change.after);
        detail->SetUnit(m_back ? change.unitBefore : change.unitAfter);
    }

    void operator()(const GroupsChange& change) const
    {
        m_project.RestoreDetailGroups(change.kind, m_back ? change.before : change.after);
    }

    void operator()(const StructureChange& change) const
    {
        switch (change.what) {
            case StructureChange::What::Added:
                m_back ? m_project.RemoveOwner(*change.node) : Add(change, change.after);
                break;
            case StructureChange::What::Removed:
                m_back ? Add(change, change.before) : m_project.RemoveOwner(*change.node);
                break;
            case StructureChange::What::Moved:
                m_project.MoveOwner(*change.node, m_back ? change.before : change.after);
                break;
            case StructureChange::What::Renamed:
                m_project.RenameOwner(*change.node, m_back ? change.nameBefore : change.nameAfter);
                break;
        }
    }

    void operator()(const TypeChange& change) const
    {
        m_project.SetModuleType(m_back ? change.before : change.after);
    }

private:
    void Add(const StructureChange& change, std::size_t place) const
    {
        if (OwnerNode* parent = m_project.FindOwner(change.parent))
            m_project.AddOwner(*parent, change.node, place);
    }

    Project& m_project;
    bool m_back;
};

void Apply(Project& project, const UndoStep& step, Direction direction)
{
    const ProjectEdit edit(project, step.name, EditKind::History);
    const Applier apply(project, direction);
    if (direction == Direction::Forth) {
        for (const StackElement& element : step.elements)
            std::visit(apply, element);
    } else {
        for (auto element = step.elements.rbegin(); element != step.elements.rend(); ++element)
            std::visit(apply, *element);
    }
}

bool IsInput(const StackElement& element)
{
    const auto* value = std::get_if<ValueChange>(&element);
    return value == nullptr || !value->derived;
}

}  // namespace

UndoRedoDetailStack::UndoRedoDetailStack(Project& project, std::size_t depth)
    : m_project(project), m_depth(std::max<std::size_t>(depth, 1))
{}

void UndoRedoDetailStack::Push(const ProjectChanges& changes)
{
    UndoStep step{changes.GetName(), changes.IsNamed(), {}};
    std::ranges::copy_if(changes.GetElements(), std::back_inserter(step.elements), IsInput);
    if (step.elements.empty())
        return;
    m_steps.resize(m_done);
    if (m_steps.size() == m_depth)
        m_steps.erase(m_steps.begin());
    m_steps.push_back(std::move(step));
    m_done = m_steps.size();
}

bool UndoRedoDetailStack::Undo()
{
    if (!CanUndo())
        return false;
    Apply(m_project, m_steps[--m_done], Direction::Back);
    return true;
}

bool UndoRedoDetailStack::Redo()
{
    if (!CanRedo())
        return false;
    Apply(m_project, m_steps[m_done++], Direction::Forth);
    return true;
}

void UndoRedoDetailStack::UndoAll()
{
    const ProjectEdit edit(m_project, {}, EditKind::History);
    while (Undo()) {
    }
}

void UndoRedoDetailStack::RedoAll()
{
    const ProjectEdit edit(m_project, {}, EditKind::History);
    while (Redo()) {
    }
}

void UndoRedoDetailStack::Clear()
{
    m_steps.clear();
    m_done = 0;
}
