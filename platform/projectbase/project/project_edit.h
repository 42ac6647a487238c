// SPDX-License-Identifier: MIT
#pragma once

/// The scope in which a project is written:
///
///     ProjectEdit edit(project, wxTRANSLATE("add water"));
///     ...
///
/// Scopes nest. The end of the outermost one applies the rules of the model to what was typed, recalculates
/// what depends on it, marks the project as changed and tells the observers once. An exception that leaves
/// the scope ends it in the same way: what was written until then is part of the project. A single write
/// outside of a scope is one of its own.

#include "projectbase/project/project_changes.h"
#include "projectbase/projectbase_export.h"

#include <string>

class FeedComposition;
class Project;

class PROJECTBASE_EXPORT ProjectEdit
{
public:
    /// `name` is what the history calls the edit, as English source text ("add water"); without one it is
    /// called after the value that changed. The outermost scope decides on name and kind.
    explicit ProjectEdit(Project& project, std::string name = {}, EditKind kind = EditKind::Typed);
    ~ProjectEdit();
    ProjectEdit(const ProjectEdit&) = delete;
    ProjectEdit& operator=(const ProjectEdit&) = delete;

private:
    Project& m_project;
};
