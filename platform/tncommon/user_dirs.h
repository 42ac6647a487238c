// SPDX-License-Identifier: MIT
#pragma once

/// Folders of the user, by the XDG base directory rules, and how what lies in them is kept from others.

#include "tncommon/tncommon_export.h"

#include <filesystem>

namespace tncommon {

/// Data worth keeping (the user database): $TARNVIK_USER_DATA, else $XDG_DATA_HOME/tarnvik, else
/// ~/.local/share/tarnvik.
TNCOMMON_EXPORT std::filesystem::path UserDataDir();

/// State that outlives a session but is no document (recovery files): $TARNVIK_USER_DATA/state, else
/// $XDG_STATE_HOME/tarnvik, else ~/.local/state/tarnvik.
TNCOMMON_EXPORT std::filesystem::path UserStateDir();

/// What can be fetched again (data sheets): $TARNVIK_USER_DATA/cache, else $XDG_CACHE_HOME/tarnvik, else
/// ~/.cache/tarnvik.
TNCOMMON_EXPORT std::filesystem::path UserCacheDir();

/// Creates a folder and what lies above it; what is created is open to its owner only. Throws
/// std::filesystem::filesystem_error.
TNCOMMON_EXPORT void CreatePrivateFolder(const std::filesystem::path& folder);

/// Takes all permissions on a file or folder from everybody but its owner. One that belongs to somebody else,
/// or that many share by its sticky bit, stays as it is, and so does one whose permissions cannot be changed.
TNCOMMON_EXPORT void MakePrivate(const std::filesystem::path& path);

/// Creates an empty file that only its owner can open, or makes the one that is there such a file. It opens
/// no file that was there: closing it would drop the locks that this process holds on it. A file that cannot
/// be created is left to whoever wants to write it.
TNCOMMON_EXPORT void EnsurePrivateFile(const std::filesystem::path& file);

}  // namespace tncommon
