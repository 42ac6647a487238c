// SPDX-License-Identifier: MIT
#pragma once

/// Saving and loading a project. A project file (".tarnvik") is one SQLite database.
///
/// Saving replaces the file as a whole or leaves it byte by byte as it was. Loading reads the file without
/// touching it and gives a new project, or throws ProjectFileError and gives nothing.

#include "projectbase/project/file_stamp.h"
#include "projectbase/project/project_file_error.h"
#include "projectbase/projectbase_export.h"
#include "tncommon/file_system.h"

#include <cstddef>
#include <filesystem>
#include <memory>

class Project;

class PROJECTBASE_EXPORT ProjectFile
{
public:
    ProjectFile() = delete;

    /// Largest file that is read, in bytes.
    static constexpr std::size_t kMaxSize = std::size_t{64} << 20;

    struct Opened
    {
        std::unique_ptr<Project> project;
        FileStamp stamp;  ///< of what was read
    };

    /// Does not change the project's changed flag. Returns the stamp of what was written.
    static FileStamp Save(const Project& project, const std::filesystem::path& path,
                          tncommon::FileSystem& fileSystem = tncommon::FileSystem::Native());

    /// A project that has no unsaved changes. Details that this version does not know are kept with it.
    static Opened Open(const std::filesystem::path& path,
                       tncommon::FileSystem& fileSystem = tncommon::FileSystem::Native());
    static std::unique_ptr<Project> Load(const std::filesystem::path& path,
                                         tncommon::FileSystem& fileSystem = tncommon::FileSystem::Native());
};
