// SPDX-License-Identifier: MIT
#include "dbinterfaces/sqlite_connection.h"

#include "dbinterfaces/database_error.h"

#include <fmt/format.h>
#include <soci/sqlite3/soci-sqlite3.h>

std::unique_ptr<soci::session> OpenSqlite(const std::filesystem::path& path, SqliteMode mode, int busySeconds)
{
    const std::string file = path.string();
    // The connection text of the database layer quotes with double quotes and knows no escape.
    if (file.find('"') != std::string::npos) {
        throw DatabaseError(DatabaseError::Kind::BadConnection,
                            fmt::format("the path '{}' contains a double quote", file));
    }
    std::string text = fmt::format("dbname=\"{}\" timeout={}", file, busySeconds);
    if (mode == SqliteMode::ReadOnly)
        text += " readonly=1";
    try {
        return std::make_unique<soci::session>(*soci::factory_sqlite3(), text);
    } catch (const std::exception& error) {
        throw DatabaseError(DatabaseError::Kind::Failed, fmt::format("'{}': {}", file, error.what()));
    }
}
