// SPDX-License-Identifier: MIT
#pragma once

/// Where the program's installed data (master database, catalogues, images, help) lie.

#include "tncommon/tncommon_export.h"

#include <filesystem>

namespace tncommon {

/// The folder "share/tarnvik" beside the folder of the running executable; the environment variable
/// TARNVIK_DATA overrides it. The same layout holds in the build tree and in an installation.
TNCOMMON_EXPORT std::filesystem::path DataDir();

}  // namespace tncommon
