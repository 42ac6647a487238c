// SPDX-License-Identifier: MIT
#pragma once

/// Whole files at once: read with a limit, replaced completely or not at all.

#include "tncommon/file_system.h"
#include "tncommon/tncommon_export.h"

#include <cstddef>
#include <filesystem>
#include <string>

namespace tncommon {

enum class Audience
{
    AsBefore,   ///< a new file is for whom the process's mask says, one that is there keeps its permissions
    OwnerOnly,  ///< mode 0600, whatever it was
};

/// Replaces the contents of `path` by `bytes`, or creates it. The bytes are written beside it, synced and
/// renamed: after an error or a crash the old file is there unchanged. Permissions stay, and a link stays a
/// link to the same file (a further hard link keeps the old contents). Throws std::system_error, then nothing
/// is left behind; what a crash left behind goes with the next call.
TNCOMMON_EXPORT void ReplaceFile(const std::filesystem::path& path, const std::string& bytes,
                                 FileSystem& fileSystem = FileSystem::Native(),
                                 Audience audience = Audience::AsBefore);

/// The contents of a regular file. Throws std::system_error: EISDIR for a folder, EINVAL for anything else
/// that is no file, EFBIG when it is larger than `limit`.
TNCOMMON_EXPORT std::string ReadWholeFile(const std::filesystem::path& path, std::size_t limit,
                                          FileSystem& fileSystem = FileSystem::Native());

}  // namespace tncommon
