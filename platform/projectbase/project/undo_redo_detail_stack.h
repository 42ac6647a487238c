// SPDX-License-Identifier: MIT
#pragma once

/// Undo and redo of edits. A step holds what one edit made of the inputs: values as they are stored, without
/// any text in between, lists that occur many times, and owners that came, went, moved or were renamed. It
/// touches nothing but what it names; what follows from the inputs the project calculates.

#include "projectbase/project/project_changes.h"
#include "projectbase/projectbase_export.h"

#include <cstddef>
#include <string>
#include <vector>

class Project;

struct UndoStep
{
    std::string name;      ///< see ProjectChanges::GetName
    bool isNamed = false;  ///< the name is that of the edit, not of a value
    std::vector<StackElement> elements;
};

class PROJECTBASE_EXPORT UndoRedoDetailStack
{
public:
    /// The project is not owned. The oldest step is forgotten when there are more than `depth`.
    explicit UndoRedoDetailStack(Project& project, std::size_t depth = 200);

    /// Makes a step of what an edit changed and forgets those that were undone. An edit that changed no input
    /// is ignored.
    void Push(const ProjectChanges& changes);
    /// Takes the last step back in an edit of its own; false when there is none.
    bool Undo();
    /// Does the step again that was undone last.
    bool Redo();
    /// In one edit.
    void UndoAll();
    void RedoAll();
    bool CanUndo() const { return m_done > 0; }
    bool CanRedo() const { return m_done < m_steps.size(); }
    /// How many steps are in effect.
    std::size_t GetDoneCount() const { return m_done; }
    /// The steps that Undo and Redo would take; null where there is none.
    const UndoStep* GetUndoStep() const { return CanUndo() ? &m_steps[m_done - 1] : nullptr; }
    const UndoStep* GetRedoStep() const { return CanRedo() ? &m_steps[m_done] : nullptr; }
    void Clear();

private:
    Project& m_project;
    std::size_t m_depth;
    std::vector<UndoStep> m_steps;
    std::size_t m_done = 0;  ///< how many of them are in effect
};
