// SPDX-License-Identifier: MIT
#include "dbinterfaces/sqlite_peek.h"

#include <fmt/format.h>

#include <cctype>

namespace {

/// Looking at a schema takes far fewer steps of SQLite's machine.
constexpr int kStepsPerLook = 100'000;
constexpr int kLooks = 100;
constexpr int kWaitForWriters = 2000;  // ms

/// The path as part of a URI.
std::string Escaped(const std::string& path)
{
    std::string escaped;
    for (const char c : path) {
        const bool plain =
            std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '/' || c == '.' || c == '-';
        escaped += plain ? std::string(1, c) : fmt::format("%{:02x}", static_cast<unsigned char>(c));
    }
    return escaped;
}

}  // namespace

SqlitePeek::SqlitePeek(const std::filesystem::path& path, View view)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        throw DatabaseError(DatabaseError::Kind::Failed, error ? error.message() : "it is no regular file");
    const std::string absolute = std::filesystem::absolute(path).string();
    const std::string uri =
        fmt::format("file:{}?{}", Escaped(absolute), view == View::FileAlone ? "immutable=1" : "mode=ro");
    sqlite3* database = nullptr;
    const int result =
        sqlite3_open_v2(uri.c_str(), &database, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr);
    m_database.reset(database);
    if (result != SQLITE_OK)
        throw DatabaseError(DatabaseError::Kind::Failed, sqlite3_errstr(result));
    sqlite3_busy_timeout(database, kWaitForWriters);
    // Nothing that a stranger put into the file is run.
    sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    sqlite3_progress_handler(
        database, kStepsPerLook, [](void* looks) { return ++*static_cast<int*>(looks) > kLooks ? 1 : 0; },
        &m_looks);
}

std::int64_t SqlitePeek::Number(const std::string& query)
{
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(m_database.get(), query.c_str(), -1, &prepared, nullptr) != SQLITE_OK)
        Fail();
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(prepared, &sqlite3_finalize);
    switch (sqlite3_step(prepared)) {
        case SQLITE_ROW:
            return sqlite3_column_int64(prepared, 0);
        case SQLITE_DONE:
            return 0;
        default:
            Fail();
    }
}

bool SqlitePeek::HasLog(const std::filesystem::path& path)
{
    std::error_code ignored;
    const auto size = std::filesystem::file_size(path.string() + "-wal", ignored);
    return !ignored && size > 0;
}

void SqlitePeek::Fail()
{
    const int code = sqlite3_errcode(m_database.get()) & 0xff;
    if (code == SQLITE_CORRUPT)
        throw FileInPieces(DatabaseError::Kind::NotOurs, sqlite3_errmsg(m_database.get()));
    const bool isBusy = code == SQLITE_BUSY || code == SQLITE_LOCKED;
    throw DatabaseError(isBusy ? DatabaseError::Kind::Locked : DatabaseError::Kind::NotOurs,
                        sqlite3_errmsg(m_database.get()));
}
