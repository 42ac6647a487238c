// SPDX-License-Identifier: MIT
#pragma once

/// What is left of unsaved work after a crash.
///
/// A project that is open owns one RecoveryFile and saves into it from time to time; the project's own file
/// is never touched. The recovery file stands in the user's state folder, which only the user can open, and
/// is locked while its program runs, so that the next start offers only what no running program owns. The
/// lock goes with the process, however it ends.

#include "projectbase/project/file_stamp.h"
#include "projectbase/project/project_file_error.h"
#include "projectbase/projectbase_export.h"
#include "tncommon/file_system.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class Project;

/// What a project holds that its file does not.
struct UnsavedWork
{
    /// The file as it was opened or saved last; nothing where there is none.
    std::optional<FileStamp> base;
    /// What the user would call the edits since then, as English source texts, the last one last.
    std::vector<std::string> edits;
};

/// A recovery file that no running program owns.
struct RecoverableFile
{
    std::filesystem::path recovery;
    /// The file it was opened from, an absolute path; empty for one that was never saved.
    std::filesystem::path project;
    std::chrono::system_clock::time_point savedAt;
    std::string title;  ///< title of the project; may be empty
    UnsavedWork work;
};

class PROJECTBASE_EXPORT RecoveryFile
{
public:
    /// For a project opened from `project`, or one that has no file yet. Creates and locks its place; throws
    /// ProjectFileError. An empty `folder` is the user's state folder.
    explicit RecoveryFile(const std::filesystem::path& project = {}, std::filesystem::path folder = {});
    /// Unlocks; unsaved work that was not discarded is offered at the next start.
    ~RecoveryFile();
    RecoveryFile(const RecoveryFile&) = delete;
    RecoveryFile& operator=(const RecoveryFile&) = delete;

    /// Replaces what was saved before; throws ProjectFileError, then that is still there.
    void Save(const Project& project, const UnsavedWork& work = {},
              tncommon::FileSystem& fileSystem = tncommon::FileSystem::Native());
    /// For a project that has been saved, or is closed on purpose.
    void Discard();

    /// Everything that can be recovered, the newest first. Files that cannot be read are left out and left
    /// alone.
    static std::vector<RecoverableFile> List(std::filesystem::path folder = {});
    /// A project with unsaved changes; throws ProjectFileError.
    static std::unique_ptr<Project> Load(const RecoverableFile& file);
    static void Discard(const RecoverableFile& file);

private:
    std::filesystem::path m_project;
    std::filesystem::path m_recovery;
    int m_lock = -1;
};
