// SPDX-License-Identifier: MIT
#pragma once

/// A project with an undo history that follows it, as the program's document does.

#include "projectbase/project/project.h"
#include "projectbase/project/undo_redo_detail_stack.h"

#include <memory>
#include <vector>

namespace support {

class History : private ProjectObserver
{
public:
    explicit History(Project& project, std::size_t depth = 200) : stack(project, depth), m_project(project)
    {
        m_project.AddObserver(*this);
    }
    ~History() { m_project.RemoveObserver(*this); }
    History(const History&) = delete;
    History& operator=(const History&) = delete;

    UndoRedoDetailStack stack;
    int told = 0;  ///< how often the project told of an edit
    std::unique_ptr<ProjectChanges> last;

private:
    void OnProjectChanged(const ProjectChanges& changes) override
    {
        ++told;
        last = std::make_unique<ProjectChanges>(changes);
        if (changes.GetKind() != EditKind::History)
            stack.Push(changes);
    }

    Project& m_project;
};

}  // namespace support
