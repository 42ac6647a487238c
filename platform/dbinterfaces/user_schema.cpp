// SPDX-License-Identifier: MIT
#include "dbinterfaces/user_schema.h"

#include "dbinterfaces/compound_queries.h"
#include "dbinterfaces/sqlite_peek.h"
#include "dbinterfaces/user_limits.h"

#include <fmt/format.h>

#include <array>
#include <filesystem>
#include <functional>
#include <thread>

namespace {

/// Held while the schema is looked at and changed; any number does that all versions of the program share.
constexpr long kMigrationLock = 0x54565544;

using Statements = std::initializer_list<const char*>;

// One entry for each version: what leads to it from the one before.
const std::array<Statements, kUserSchemaVersion> kMigrations{
    Statements{
        "CREATE TABLE tarnvik_schema (version INTEGER NOT NULL)",
        "INSERT INTO tarnvik_schema (version) VALUES (1)",
        "CREATE TABLE tarnvik_user_parameter (name TEXT PRIMARY KEY, value TEXT NOT NULL)",
    },
    // SQLite cannot change a primary key, hence the new table.
    Statements{
        "CREATE TABLE tarnvik_user_parameter_2 (owner TEXT NOT NULL, name TEXT NOT NULL, value TEXT NOT "
        "NULL, "
        "PRIMARY KEY (owner, name))",
        "INSERT INTO tarnvik_user_parameter_2 (owner, name, value) "
        "SELECT '', name, value FROM tarnvik_user_parameter",
        "DROP TABLE tarnvik_user_parameter",
        "ALTER TABLE tarnvik_user_parameter_2 RENAME TO tarnvik_user_parameter",
    },
    // Categories and countries share one counter. Texts may be of any length, which an index of the server
    // may not: it holds the beginnings of places.
    Statements{
        "CREATE TABLE tarnvik_counter (name TEXT PRIMARY KEY, last_id INTEGER NOT NULL)",
        "INSERT INTO tarnvik_counter (name, last_id) VALUES ('water.node', 1), ('water', 0)",
        "CREATE TABLE tarnvik_water_category (id INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE, "
        "position INTEGER NOT NULL)",
        "INSERT INTO tarnvik_water_category (id, name, position) VALUES (1, 'User waters', 1)",
        "CREATE TABLE tarnvik_water_country (id INTEGER PRIMARY KEY, category_id INTEGER NOT NULL, "
        "name TEXT NOT NULL, UNIQUE (category_id, name))",
        "CREATE TABLE tarnvik_water (id INTEGER PRIMARY KEY, country_id INTEGER NOT NULL, "
        "place TEXT NOT NULL, source TEXT NOT NULL)",
        "CREATE INDEX tarnvik_water_of_country ON tarnvik_water (country_id, substr(place, 1, 64))",
        "CREATE TABLE tarnvik_water_value (water_id INTEGER NOT NULL, name TEXT NOT NULL, "
        "value TEXT NOT NULL, unit TEXT NOT NULL, label TEXT NOT NULL, grp TEXT NOT NULL, "
        "PRIMARY KEY (water_id, name))",
    },
    // Whoever changes a compound counts the change, by which others notice it.
    Statements{
        "INSERT INTO tarnvik_counter (name, last_id) VALUES ('compound', 0), ('compound.change', 0)",
        "CREATE TABLE tarnvik_compound (id INTEGER PRIMARY KEY, base_element TEXT NOT NULL, "
        "name TEXT NOT NULL, formula TEXT NOT NULL, pka DOUBLE PRECISION, valency INTEGER NOT NULL, "
        "oxidation_number INTEGER NOT NULL, conjugate INTEGER NOT NULL, ionic_charge INTEGER NOT NULL, "
        "category TEXT NOT NULL)",
    },
    Statements{},  // the limits of texts, which the kinds of databases have in different forms
    // The bounds are those of core/conversion_rate.h, for other programs that write here.
    Statements{
        "CREATE TABLE tarnvik_conversion_rate (currency TEXT NOT NULL PRIMARY KEY "
        "CHECK (length(currency) = 3), rate DOUBLE PRECISION NOT NULL CHECK (rate >= 1e-6 AND rate <= 1e9), "
        "typed INTEGER NOT NULL, day TEXT NOT NULL CHECK (length(day) <= 10), "
        "CHECK (currency <> 'EUR' OR rate = 1))",
        "INSERT INTO tarnvik_conversion_rate (currency, rate, typed, day) VALUES ('EUR', 1, 0, '')",
    },
};
constexpr int kCompoundsSince = 4;
constexpr int kLimitsSince = 5;

/// Answers a query with a number.
using Ask = std::function<std::int64_t(const std::string&)>;

Ask AskSession(soci::session& session)
{
    return [&session](const std::string& query) {
        long long number = 0;
        session << query, soci::into(number);
        return number;
    };
}

bool HasSchemaTable(const Ask& ask, Backend backend)
{
    if (backend == Backend::Sqlite)
        return ask("SELECT count(*) FROM sqlite_master WHERE name = 'tarnvik_schema' AND type = 'table'") > 0;
    return ask("SELECT count(*) FROM pg_tables WHERE tablename = 'tarnvik_schema' "
               "AND schemaname = ANY (current_schemas(false))") > 0;
}

/// 0 for a database that has no tables of ours yet.
std::int64_t ReadVersion(const Ask& ask, Backend backend)
{
    if (HasSchemaTable(ask, backend))
        return ask("SELECT version FROM tarnvik_schema");
    // A server's database is shared with others, a file is not.
    if (backend == Backend::Sqlite && ask("SELECT count(*) FROM sqlite_master") > 0)
        throw DatabaseError(DatabaseError::Kind::NotOurs, "the file is a database of another program");
    return 0;
}

void RefuseUnknownVersion(std::int64_t version)
{
    if (version > kUserSchemaVersion) {
        throw DatabaseError(
            DatabaseError::Kind::NewerSchema,
            fmt::format("the database has schema version {}, this program knows versions up to {}; "
                        "it was written by a newer version of the program",
                        version, kUserSchemaVersion));
    }
    if (version < 0)
        throw DatabaseError(DatabaseError::Kind::NotOurs,
                            fmt::format("schema version {} does not exist", version));
}

void Begin(soci::session& session, Backend backend)
{
    if (backend == Backend::Sqlite) {
        session << "BEGIN IMMEDIATE";
        return;
    }
    session << "BEGIN";
    session << fmt::format("SELECT pg_advisory_xact_lock({})", kMigrationLock);
}

void RollBack(soci::session& session)
{
    try {
        session << "ROLLBACK";
    } catch (const std::exception&) {
        // A lost connection has rolled back already; the first error is the one to report.
    }
}

void Migrate(soci::session& session, Backend backend, std::int64_t from)
{
    for (std::int64_t version = from; version < kUserSchemaVersion; ++version) {
        for (const char* statement : kMigrations.at(static_cast<std::size_t>(version)))
            session << statement;
        if (version + 1 == kCompoundsSince) {
            compound_queries::CreateIndexes(session, backend);
            compound_queries::FillWithSupplied(session);
        } else if (version + 1 == kLimitsSince) {
            user_limits::Install(session, backend);
        }
    }
    session << fmt::format("UPDATE tarnvik_schema SET version = {}", kUserSchemaVersion);
}

void EnsureUserSchema(soci::session& session, Backend backend)
{
    const Ask ask = AskSession(session);
    const std::int64_t seen = ReadVersion(ask, backend);
    RefuseUnknownVersion(seen);
    if (seen == kUserSchemaVersion)
        return;
    Begin(session, backend);
    try {
        // Somebody else may have been faster.
        const std::int64_t version = ReadVersion(ask, backend);
        RefuseUnknownVersion(version);
        Migrate(session, backend, version);
        session << "COMMIT";
    } catch (...) {
        RollBack(session);
        throw;
    }
}

void RefuseVersionOfFile(const std::filesystem::path& path, SqlitePeek::View view)
{
    SqlitePeek peek(path, view);
    RefuseUnknownVersion(
        ReadVersion([&peek](const std::string& query) { return peek.Number(query); }, Backend::Sqlite));
}

/// Looks at a file before it is opened for writing, which changes it.
void RefuseForeignFile(const std::filesystem::path& path)
{
    std::error_code error;
    const bool isNew = !std::filesystem::exists(path, error) && !error;
    if (isNew || (std::filesystem::is_regular_file(path) && std::filesystem::file_size(path) == 0))
        return;
    constexpr int kLooks = 5;
    for (int look = 1;; ++look) {
        try {
            RefuseVersionOfFile(path, SqlitePeek::View::FileAlone);
            break;
        } catch (const DatabaseError& problem) {
            // A program that takes its log over into the file leaves it in pieces for a moment, and for good
            // when it is killed meanwhile: then the log has what is missing.
            const bool inPieces = dynamic_cast<const FileInPieces*>(&problem) != nullptr;
            if (!SqlitePeek::HasLog(path) || (look == kLooks && !inPieces))
                throw;
            if (look == kLooks)
                break;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    if (SqlitePeek::HasLog(path))
        RefuseVersionOfFile(path, SqlitePeek::View::WithItsLog);
}

}  // namespace

std::unique_ptr<soci::session> OpenUserDatabase(const ConnectionTarget& target,
                                                std::chrono::milliseconds wait)
{
    if (target.backend == Backend::Sqlite)
        RefuseForeignFile(target.path);
    auto session = Connect(target, wait);
    EnsureUserSchema(*session, target.backend);
    return session;
}
