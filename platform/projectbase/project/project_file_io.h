// SPDX-License-Identifier: MIT
#pragma once

/// What saving a project and keeping its recovery file have in common. Internal to them.

#include "projectbase/project/file_stamp.h"
#include "projectbase/project/project_image.h"
#include "tncommon/atomic_file.h"

#include <filesystem>

/// Both throw ProjectFileError under the name of `method`, and tell the stamp of the file.
FileStamp WriteProject(const char* method, const Project& project, const ImageNotes& notes,
                       const std::filesystem::path& path, tncommon::FileSystem& fileSystem,
                       tncommon::Audience audience = tncommon::Audience::AsBefore);
struct ReadImage
{
    LoadedImage image;
    FileStamp stamp;
};
ReadImage ReadProject(const char* method, const std::filesystem::path& path,
                      tncommon::FileSystem& fileSystem);
