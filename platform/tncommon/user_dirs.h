// SPDX-License-Identifier: MIT
#pragma once

/// Folders of the user, by the XDG base directory rules. None of these functions creates a folder.

#include "tncommon/tncommon_export.h"

#include <filesystem>

namespace tncommon {

/// Data worth keeping (the user database): $TARNVIK_USER_DATA, else $XDG_DATA_HOME/tarnvik, else
/// ~/.local/share/tarnvik.
TNCOMMON_EXPORT std::filesystem::path UserDataDir();

/// State that outlives a session but is no document (recovery files): $TARNVIK_USER_DATA/state, else
/// $XDG_STATE_HOME/tarnvik, else ~/.local/state/tarnvik.
TNCOMMON_EXPORT std::filesystem::path UserStateDir();

/// Creates a folder and what lies above it; what is created is open to its owner only. Throws
/// std::filesystem::filesystem_error.
TNCOMMON_EXPORT void CreatePrivateFolder(const std::filesystem::path& folder);

}  // namespace tncommon
