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

class Document
{
public:
    /// A project without a file yet.
    explicit Document(std::unique_ptr<Project> project);
    Document(std::unique_ptr<Project> project, std::filesystem::path path);
    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    Project& GetProject() { return *m_project; }
    /// Empty until the project was saved.
    const std::filesystem::path& GetPath() const { return m_path; }
    /// File name without its ending, or an empty text.
    std::string GetName() const;

    /// Saves to `path`, which becomes the document's file, and drops the recovery copy. Throws
    /// ProjectFileError.
    void Save(const std::filesystem::path& path);
    /// Writes the recovery copy of a project with unsaved changes; never touches its file. Throws
    /// ProjectFileError.
    void Autosave();
    void DiscardRecovery();

    /// Makes one undo step of every input that changed since the last one.
    void RecordEdit();
    /// Starts the history anew, after waters came or went: its steps name them by number.
    void ForgetEdits();
    bool CanUndo() const { return m_undo.CanUndo(); }
    bool CanRedo() const { return m_undo.CanRedo(); }
    /// Takes the last edit back and recalculates. Returns the keys of the details that changed.
    std::vector<DetailAddress> Undo();
    std::vector<DetailAddress> Redo();

private:
    std::vector<DetailAddress> Applied(const UndoStep* step);

    std::unique_ptr<Project> m_project;
    std::filesystem::path m_path;
    DetailSnapshot m_snapshot;
    UndoRedoDetailStack m_undo;
    /// Made by the first autosave.
    std::unique_ptr<RecoveryFile> m_recovery;
};

}  // namespace app
