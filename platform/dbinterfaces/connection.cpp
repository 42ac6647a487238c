// SPDX-License-Identifier: MIT
#include "dbinterfaces/connection.h"

#include "dbinterfaces/bounded_postgres.h"
#include "dbinterfaces/connection_text.h"
#include "dbinterfaces/sqlite_connection.h"
#include "tncommon/user_dirs.h"

#include <fmt/format.h>
#include <soci/postgresql/soci-postgresql.h>
#include <soci/sqlite3/soci-sqlite3.h>
#include <sqlite3.h>

#include <filesystem>
#include <thread>

namespace {

constexpr std::string_view kSqlite = "sqlite3://";
constexpr std::string_view kPostgreSql = "postgresql://";

ConnectionTarget SqliteTarget(const std::string& path)
{
    return {.backend = Backend::Sqlite, .path = path, .parameters = {}, .shown = fmt::format("'{}'", path)};
}

/// Changing to write-ahead logging needs the file alone for a moment and does not wait by itself.
void UseWriteAheadLog(soci::session& session, std::chrono::milliseconds wait)
{
    const auto deadline = std::chrono::steady_clock::now() + wait;
    for (;;) {
        try {
            std::string mode;
            session << "PRAGMA journal_mode = WAL", soci::into(mode);
            return;
        } catch (const soci::sqlite3_soci_error& error) {
            if (error.result() != SQLITE_BUSY || std::chrono::steady_clock::now() >= deadline)
                throw;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

std::unique_ptr<soci::session> ConnectSqlite(const ConnectionTarget& target, std::chrono::milliseconds wait)
{
    const std::filesystem::path folder = std::filesystem::path(target.path).parent_path();
    tncommon::CreatePrivateFolder(folder);
    if (folder == tncommon::UserDataDir())
        tncommon::MakePrivate(folder);
    tncommon::EnsurePrivateFile(target.path);
    for (const char* side : {"-wal", "-shm"})
        tncommon::MakePrivate(target.path + side);
    auto session = OpenSqlite(target.path, SqliteMode::ReadWriteCreate);
    *session << fmt::format("PRAGMA busy_timeout = {}", wait.count());
    UseWriteAheadLog(*session, wait);
    *session << "PRAGMA synchronous = NORMAL";
    return session;
}

std::unique_ptr<soci::session> ConnectPostgreSql(const ConnectionTarget& target,
                                                 std::chrono::milliseconds wait)
{
    auto session = bounded_postgres::Open(target.parameters, target.answer);
    *session << "SET client_encoding = 'UTF8'";
    *session << "SET client_min_messages = warning";
    *session << fmt::format("SET lock_timeout = {}", wait.count());
    // A server that is only slow says so before it counts as silent.
    *session << fmt::format("SET statement_timeout = {}", target.answer.count() * 9 / 10);
    return session;
}

}  // namespace

ConnectionTarget ParseConnectionText(const std::string& text)
{
    if (text.empty())
        return SqliteTarget((tncommon::UserDataDir() / "user.db").string());
    if (text.starts_with(kSqlite) && text.size() > kSqlite.size())
        return SqliteTarget(text.substr(kSqlite.size()));
    if (text.starts_with('/'))
        return SqliteTarget(text);
    if (text.starts_with(kPostgreSql) && text.size() > kPostgreSql.size()) {
        connection_text::Parameters parameters = connection_text::Read(text);
        return {.backend = Backend::PostgreSql,
                .path = {},
                .parameters = std::move(parameters.text),
                .shown = "PostgreSQL",
                .secrets = std::move(parameters.secrets),
                .answer = parameters.answer};
    }
    // The text may hold a password, so it is not repeated.
    throw DatabaseError(DatabaseError::Kind::BadConnection,
                        "the connection text begins neither with 'sqlite3://' nor with 'postgresql://'");
}

std::unique_ptr<soci::session> Connect(const ConnectionTarget& target, std::chrono::milliseconds wait)
{
    return target.backend == Backend::Sqlite ? ConnectSqlite(target, wait) : ConnectPostgreSql(target, wait);
}

DatabaseError Classify(const std::exception& error, const std::string& where)
{
    using Kind = DatabaseError::Kind;
    // What the database layer says beyond its own message are the values of the statement.
    const auto* layer = dynamic_cast<const soci::soci_error*>(&error);
    const std::string text = where + ": " + (layer != nullptr ? layer->get_error_message() : error.what());
    if (const auto* ours = dynamic_cast<const DatabaseError*>(&error))
        return {ours->GetKind(), text, ours->GetPlace()};
    if (const auto* sqlite = dynamic_cast<const soci::sqlite3_soci_error*>(&error)) {
        const int code = sqlite->result() & 0xff;
        if (code == SQLITE_BUSY || code == SQLITE_LOCKED)
            return {Kind::Locked, text};
        return {code == SQLITE_NOTADB || code == SQLITE_CORRUPT ? Kind::NotOurs : Kind::Failed, text};
    }
    if (const auto* server = dynamic_cast<const soci::postgresql_soci_error*>(&error)) {
        const std::string state = server->sqlstate();
        if (state == "55P03")  // lock_not_available
            return {Kind::Locked, text};
        return {state == "57014" ? Kind::TimedOut : Kind::Failed, text};  // query_canceled
    }
    return {Kind::Failed, text};
}

DatabaseError Classify(const std::exception& error, const ConnectionTarget& target)
{
    const DatabaseError classified = Classify(error, target.shown);
    return {classified.GetKind(), connection_text::Mask(classified.what(), target.secrets), target.shown};
}
