// SPDX-License-Identifier: MIT
#include "app/document/document.h"

#include "projectbase/project/project_file.h"

namespace app {

Document::Document(std::unique_ptr<Project> project) : Document(std::move(project), {}) {}

Document::Document(std::unique_ptr<Project> project, std::filesystem::path path)
    : m_project(std::move(project)), m_path(std::move(path)), m_undo(*m_project)
{
    m_project->SetChanged(false);
    m_project->AddObserver(*this);
}

Document::~Document()
{
    m_project->RemoveObserver(*this);
}

void Document::OnProjectChanged(const ProjectChanges& changes)
{
    m_unsaved = true;
    if (changes.GetKind() != EditKind::History)
        m_undo.Push(changes);
}

std::string Document::GetName() const
{
    return m_path.stem().string();
}

void Document::Save(const std::filesystem::path& path)
{
    ProjectFile::Save(*m_project, path);
    m_path = path;
    m_unsaved = false;
    DiscardRecovery();
}

void Document::Autosave()
{
    if (!m_unsaved)
        return;
    if (!m_recovery)
        m_recovery = std::make_unique<RecoveryFile>(m_path);
    m_recovery->Save(*m_project);
}

void Document::DiscardRecovery()
{
    if (m_recovery)
        m_recovery->Discard();
    m_recovery.reset();
}

}  // namespace app
