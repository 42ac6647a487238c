// SPDX-License-Identifier: MIT
#pragma once

/// Tells the windows that have a project open of each other, on this machine and over a share.
///
/// A small file beside the project names who has it open, and is locked by the system as long as that program
/// runs. The lock goes with the process, however it ends: what a crash leaves behind is an unlocked file,
/// which the next one takes over. Where no such file can be made, as in a folder that is only to be read,
/// nobody is told.

#include "projectbase/projectbase_export.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

class PROJECTBASE_EXPORT ProjectLock
{
public:
    /// Who has the project open; empty texts where that is not known.
    struct Holder
    {
        std::string user;
        std::string host;
        std::chrono::system_clock::time_point since;
    };
    /// Either the lock, or who holds it; neither where no lock can be had.
    struct Attempt
    {
        std::unique_ptr<ProjectLock> lock;
        std::optional<Holder> holder;
    };

    /// Links are followed: a project has one lock, whatever name it is opened by.
    static Attempt TryTake(const std::filesystem::path& project);
    ~ProjectLock();
    ProjectLock(const ProjectLock&) = delete;
    ProjectLock& operator=(const ProjectLock&) = delete;

    /// Whether this is the lock of that project.
    bool IsOf(const std::filesystem::path& project) const;

private:
    ProjectLock(std::filesystem::path file, int descriptor);

    std::filesystem::path m_file;
    int m_descriptor;
};
