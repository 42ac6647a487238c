// SPDX-License-Identifier: MIT
#pragma once

/// The checksums in a project file, each over one part of what a reader looks at. Internal to the project
/// file.

#include "projectbase/project/sqlite_image.h"

#include <string>

/// Name of the entry with the checksum of the entries and the waters, which it does not cover itself.
inline constexpr const char* kChecksum = "checksum";

std::string ComputeChecksum(SqliteImage& image);
std::string ComputeGroupChecksum(SqliteImage& image);
std::string ComputeOwnerChecksum(SqliteImage& image);
