// SPDX-License-Identifier: MIT
#include "projectbase/project/project_edit.h"

#include "projectbase/project/project.h"

ProjectEdit::ProjectEdit(Project& project, std::string name, EditKind kind) : m_project(project)
{
    m_project.BeginEdit(kind, std::move(name));
}

ProjectEdit::~ProjectEdit()
{
    m_project.EndEdit();
}
