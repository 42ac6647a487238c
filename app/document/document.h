// SPDX-License-Identifier: MIT
#pragma once

/// The open project with its file, its undo history and its recovery copy. No windows.

#include "projectbase/project/project.h"
#include "projectbase/project/project_file.h"
#include "projectbase/project/project_lock.h"
#include "projectbase/project/recovery_file.h"
#include "projectbase/project/undo_redo_detail_stack.h"

#include <filesystem>
#include <memory>
#include <string>

namespace app {

class Document : private ProjectObserver
{
public:
    /// A project without a file yet.
    explicit Document(std::unique_ptr<Project> project);
    /// A project that was read from a file.
    Document(ProjectFile::Opened opened, const std::filesystem::path& path);
    /// Unsaved work of a program that ended.
    Document(std::unique_ptr<Project> project, const RecoverableFile& recovered);
    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    Project& GetProject() { return *m_project; }
    const Project& GetProject() const { return *m_project; }
    /// An absolute path; empty until the project was saved.
    const std::filesystem::path& GetPath() const { return m_path; }
    /// File name without its ending, or an empty text.
    std::string GetName() const;

    /// Whether the project holds what its file does not.
    bool IsUnsaved() const { return m_unsaved; }
    void SetUnsaved(bool unsaved) { m_unsaved = unsaved; }

    /// Whether somebody else wrote the file since it was opened or saved. A file that is gone has not
    /// changed: saving brings it back.
    bool HasChangedOnDisk() const;

    /// The lock of the file, held as long as the document has it open.
    void HoldLock(std::unique_ptr<ProjectLock> lock) { m_lock = std::move(lock); }
    std::unique_ptr<ProjectLock> ReleaseLock() { return std::move(m_lock); }
    bool HoldsLockOf(const std::filesystem::path& path) const { return m_lock && m_lock->IsOf(path); }

    /// Saves to `path`, which becomes the document's file, and drops the recovery copy. Throws
    /// ProjectFileError.
    void Save(const std::filesystem::path& path);
    /// Writes the recovery copy of a project with unsaved changes; never touches its file. Throws
    /// ProjectFileError.
    void Autosave();
    void DiscardRecovery();

    /// Every edit of the project is a step of it.
    UndoRedoDetailStack& GetHistory() { return m_undo; }
    const UndoRedoDetailStack& GetHistory() const { return m_undo; }

private:
    Document(std::unique_ptr<Project> project, const std::filesystem::path& path, UnsavedWork work);
    void OnProjectChanged(const ProjectChanges& changes) override;

    std::unique_ptr<Project> m_project;
    std::filesystem::path m_path;
    UndoRedoDetailStack m_undo;
    bool m_unsaved = false;
    /// Made by the first autosave.
    std::unique_ptr<RecoveryFile> m_recovery;
    UnsavedWork m_work;
    std::unique_ptr<ProjectLock> m_lock;
};

}  // namespace app
