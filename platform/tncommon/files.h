// SPDX-License-Identifier: MIT
#pragma once

#include "tncommon/tncommon_export.h"

#include <filesystem>
#include <string>

namespace tncommon {

/// Files that nobody has named.
struct TNCOMMON_EXPORT Files
{
    /// Makes an empty file of a new name in the folder of temporary files, or in that which the prefix names,
    /// for this user alone. It stays until somebody removes it. Throws std::system_error.
    static std::filesystem::path CreateTempFile(const std::string& prefix);
};

}  // namespace tncommon
