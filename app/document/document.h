// SPDX-License-Identifier: MIT
#pragma once

/// The open project with its file, its undo history and its recovery copy. No windows.

#include "projectbase/project/project.h"
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
    Document(std::unique_ptr<Project> project, std::filesystem::path path);
    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    Project& GetProject() { return *m_project; }
    const Project& GetProject() const { return *m_project; }
    /// Empty until the project was saved.
    const std::filesystem::path& GetPath() const { return m_path; }
    /// File name without its ending, or an empty text.
    std::string GetName() const;

    /// Whether the project holds what its file does not.
    bool IsUnsaved() const { return m_unsaved; }
    void SetUnsaved(bool unsaved) { m_unsaved = unsaved; }

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
    void OnProjectChanged(const ProjectChanges& changes) override;

    std::unique_ptr<Project> m_project;
    std::filesystem::path m_path;
    UndoRedoDetailStack m_undo;
    bool m_unsaved = false;
    /// Made by the first autosave.
    std::unique_ptr<RecoveryFile> m_recovery;
};

}  // namespace app
