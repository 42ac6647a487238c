// SPDX-License-Identifier: MIT
#pragma once

#include "core/work_watch.h"
#include "projectbase/projectbase_export.h"

#include <filesystem>
#include <string>

/// The SHA-256 of a file in lower-case hexadecimal digits, whatever its size. Throws std::system_error when
/// it cannot be read, and WorkCancelled when `watch` says so.
PROJECTBASE_EXPORT std::string Sha256OfFile(const std::filesystem::path& path, const WorkWatch& watch = {});
