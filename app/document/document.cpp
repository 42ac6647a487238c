// SPDX-License-Identifier: MIT
#include "app/document/document.h"

namespace app {

namespace {

/// Of the edits that are not saved: who restores them reads no more.
constexpr std::size_t kMostEdits = 50;

/// As the working folder of the program may not be that of the next one.
std::filesystem::path Absolute(const std::filesystem::path& path)
{
    return path.empty() ? path : std::filesystem::absolute(path);
}

}  // namespace

Document::Document(std::unique_ptr<Project> project) : Document(std::move(project), {}, UnsavedWork{}) {}

Document::Document(ProjectFile::Opened opened, const std::filesystem::path& path)
    : Document(std::move(opened.project), path, {.base = std::move(opened.stamp), .edits = {}})
{}

Document::Document(std::unique_ptr<Project> project, const RecoverableFile& recovered)
    : Document(std::move(project), recovered.project, recovered.work)
{
    m_unsaved = true;
}

Document::Document(std::unique_ptr<Project> project, const std::filesystem::path& path, UnsavedWork work)
    : m_project(std::move(project)), m_path(Absolute(path)), m_undo(*m_project), m_work(std::move(work))
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
    std::vector<std::string>& edits = m_work.edits;
    const std::string& name = changes.GetName();
    if (!name.empty() && (edits.empty() || edits.back() != name)) {
        if (edits.size() == kMostEdits)
            edits.erase(edits.begin());
        edits.push_back(name);
    }
    if (changes.GetKind() != EditKind::History)
        m_undo.Push(changes);
}

std::string Document::GetName() const
{
    return m_path.stem().string();
}

bool Document::HasChangedOnDisk() const
{
    const auto present = m_path.empty() ? std::nullopt : FileStamp::OfFile(m_path);
    return present && present != m_work.base;
}

void Document::Save(const std::filesystem::path& path)
{
    m_work = {.base = ProjectFile::Save(*m_project, path), .edits = {}};
    m_path = Absolute(path);
    m_unsaved = false;
    DiscardRecovery();
}

void Document::Autosave()
{
    if (!m_unsaved)
        return;
    if (!m_recovery)
        m_recovery = std::make_unique<RecoveryFile>(m_path);
    m_recovery->Save(*m_project, m_work);
}

void Document::DiscardRecovery()
{
    if (m_recovery)
        m_recovery->Discard();
    m_recovery.reset();
}

}  // namespace app
