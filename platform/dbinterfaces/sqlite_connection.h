// SPDX-License-Identifier: MIT
#pragma once

/// How the facades open an SQLite file through SOCI. Internal to this library.

#include <soci/soci.h>

#include <filesystem>
#include <memory>
#include <string>

enum class SqliteMode
{
    ReadOnly,        ///< the file must exist
    ReadWriteCreate  ///< created when it is missing
};

/// Opens the file; throws std::exception with the cause. `busySeconds` is how long a locked database is
/// waited for.
std::unique_ptr<soci::session> OpenSqlite(const std::filesystem::path& path, SqliteMode mode,
                                          int busySeconds = 5);
