// SPDX-License-Identifier: MIT
#pragma once

/// Undo and redo of what a user has entered. A step names its details by place, not by address, so that it
/// stays valid when lists are rebuilt; values are kept as they are stored, without any text in between.
///
/// Computed details are no part of a step: whoever undoes recalculates the project afterwards. When waters
/// are removed or inserted, the stack must be cleared.

#include "projectbase/details/detail_data.h"
#include "projectbase/details/detail_groups.h"
#include "projectbase/projectbase_export.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

class DetailList;
class Project;

/// Where a detail lives: a water of the project, or -1 for the details of the project itself. All groups of a
/// kind are addressed as one, by -1 and the kind.
struct DetailAddress
{
    int liquid = -1;
    std::string name;
};

/// One detail of a step, or all groups of a kind.
struct StackElement
{
    DetailAddress address;
    DetailData::Value before;
    DetailData::Value after;
    std::string unitBefore;
    std::string unitAfter;
    bool isGroups = false;  ///< then what follows counts, else what stands before
    DetailGroupsPtr groupsBefore = nullptr;
    DetailGroupsPtr groupsAfter = nullptr;
};

using UndoStep = std::vector<StackElement>;

/// The inputs of a project at one moment. Taken before an edit, it tells afterwards what the edit changed.
class PROJECTBASE_EXPORT DetailSnapshot
{
public:
    explicit DetailSnapshot(const Project& project);

    /// Every input that differs now, in the order of waters and names; empty when nothing does. Details and
    /// waters that came or went in between are left out.
    UndoStep ChangesSince(const Project& project) const;

private:
    struct Entry
    {
        std::string name;
        DetailData::Value value;
        std::string unit;
    };
    using Entries = std::vector<Entry>;

    static Entries Capture(const DetailList& details);
    void AddGroupChanges(const Project& project, UndoStep& step) const;
    static void AddChanges(const Entries& before, const DetailList& now, int liquid, UndoStep& step);

    Entries m_project;
    std::vector<Entries> m_liquids;
    std::map<std::string, DetailGroupsPtr> m_groups;
};

class PROJECTBASE_EXPORT UndoRedoDetailStack
{
public:
    /// The project is not owned. The oldest step is forgotten when there are more than `depth`.
    explicit UndoRedoDetailStack(Project& project, std::size_t depth = 200);

    /// Adds a step and forgets those that were undone; an empty step is ignored.
    void Push(UndoStep step);
    /// Sets the details of the last step back; null when there is none. The result lives until the next Push
    /// or Clear.
    const UndoStep* Undo();
    /// Does the step again that was undone last.
    const UndoStep* Redo();
    void UndoAll();
    void RedoAll();
    bool CanUndo() const { return m_done > 0; }
    bool CanRedo() const { return m_done < m_steps.size(); }
    void Clear();

private:
    Project& m_project;
    std::size_t m_depth;
    std::vector<UndoStep> m_steps;
    std::size_t m_done = 0;  ///< how many of them are in effect
};
