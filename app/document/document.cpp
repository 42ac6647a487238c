// SPDX-License-Identifier: MIT
#include "app/document/document.h"

#include "projectbase/project/project_file.h"

namespace app {

Document::Document(std::unique_ptr<Project> project) : Document(std::move(project), {}) {}

Document::Document(std::unique_ptr<Project> project, std::filesystem::path path)
    : m_project(std::move(project)), m_path(std::move(path)), m_snapshot(*m_project), m_undo(*m_project)
{}

Document::~Document() = default;

std::string Document::GetName() const
{
    return m_path.stem().string();
}

void Document::Save(const std::filesystem::path& path)
{
    ProjectFile::Save(*m_project, path);
    m_path = path;
    m_project->SetChanged(false);
    DiscardRecovery();
}

void Document::Autosave()
{
    if (!m_project->IsChanged())
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

void Document::RecordEdit()
{
    m_undo.Push(m_snapshot.ChangesSince(*m_project));
    m_snapshot = DetailSnapshot(*m_project);
}

void Document::ForgetEdits()
{
    m_undo.Clear();
    m_snapshot = DetailSnapshot(*m_project);
}

std::vector<DetailAddress> Document::Undo()
{
    return Applied(m_undo.Undo());
}

std::vector<DetailAddress> Document::Redo()
{
    return Applied(m_undo.Redo());
}

std::vector<DetailAddress> Document::Applied(const UndoStep* step)
{
    std::vector<DetailAddress> changed;
    if (step == nullptr)
        return changed;
    for (const StackElement& element : *step)
        changed.push_back(element.address);
    m_project->CalculateDesign();
    m_project->SetChanged(true);
    m_snapshot = DetailSnapshot(*m_project);
    return changed;
}

}  // namespace app
