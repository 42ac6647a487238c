// SPDX-License-Identifier: MIT
#pragma once

/// What tests of the user database share: each runs on both kinds of database, each time on a fresh one.

#include "dbinterfaces/database_error.h"
#include "dbinterfaces/project_database.h"
#include "tests/support/postgres_server.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>
#include <soci/postgresql/soci-postgresql.h>
#include <soci/soci.h>
#include <soci/sqlite3/soci-sqlite3.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace support {

/// A user database of its own, "sqlite" or "postgresql", looked at past the facade.
class DatabaseUnderTest
{
public:
    explicit DatabaseUnderTest(const std::string& kind) : m_isSqlite(kind == "sqlite")
    {
        if (!m_isSqlite)
            Sql("SET client_min_messages = warning; DROP SCHEMA public CASCADE; CREATE SCHEMA public");
        ProjectDatabase::SetBusyTimeout(std::chrono::milliseconds(5000));
    }
    ~DatabaseUnderTest() { ProjectDatabase::Close(); }

    bool IsSqlite() const { return m_isSqlite; }
    std::string File() const { return (m_folder / "sub" / "user.db").string(); }
    std::string Text() const { return IsSqlite() ? "sqlite3://" + File() : PostgresConnectionText(); }

    /// A connection past the facade.
    std::unique_ptr<soci::session> Raw() const
    {
        if (!IsSqlite())
            return std::make_unique<soci::session>(*soci::factory_postgresql(), Text().substr(13));
        std::filesystem::create_directories(std::filesystem::path(File()).parent_path());
        return std::make_unique<soci::session>(*soci::factory_sqlite3(), "dbname=\"" + File() + "\"");
    }
    void Sql(const std::string& statement) const { *Raw() << statement; }
    int Number(const std::string& query) const
    {
        int value = -1;
        *Raw() << query, soci::into(value);
        return value;
    }
    std::string String(const std::string& query, std::string value = {}) const
    {
        *Raw() << query, soci::into(value);
        return value;
    }
    void MakeVersion1() const
    {
        Sql("CREATE TABLE tarnvik_schema (version INTEGER NOT NULL)");
        Sql("INSERT INTO tarnvik_schema (version) VALUES (1)");
        Sql("CREATE TABLE tarnvik_user_parameter (name TEXT PRIMARY KEY, value TEXT NOT NULL)");
        Sql("INSERT INTO tarnvik_user_parameter (name, value) VALUES ('proxy.use', 'true')");
        Sql("INSERT INTO tarnvik_user_parameter (name, value) VALUES ('language', 'de')");
    }

    /// Takes back what versions after that one, which is 3 at least, brought into a database of today.
    void ReturnToVersion(int version) const
    {
        Sql("DROP TABLE tarnvik_conversion_rate");
        if (version < 5)
            RemoveTextLimits();
        if (version < 4) {
            if (IsSqlite())
                Sql("DROP TABLE IF EXISTS tarnvik_compound_text");
            Sql("DROP TABLE tarnvik_compound");
            Sql("DELETE FROM tarnvik_counter WHERE name IN ('compound', 'compound.change')");
        }
        Sql("UPDATE tarnvik_schema SET version = " + std::to_string(version));
    }
    void MakeVersion2() const
    {
        Sql("CREATE TABLE tarnvik_schema (version INTEGER NOT NULL)");
        Sql("INSERT INTO tarnvik_schema (version) VALUES (2)");
        Sql("CREATE TABLE tarnvik_user_parameter (owner TEXT NOT NULL, name TEXT NOT NULL, "
            "value TEXT NOT NULL, PRIMARY KEY (owner, name))");
        Sql("INSERT INTO tarnvik_user_parameter (owner, name, value) VALUES ('', 'language', 'de')");
    }

private:
    void RemoveTextLimits() const
    {
        const auto session = Raw();
        std::vector<std::string> statements;
        std::string statement;
        soci::statement names =
            (session->prepare
                 << (IsSqlite() ? "SELECT 'DROP TRIGGER ' || name FROM sqlite_master WHERE name LIKE "
                                  "'%\\_limit\\_%' ESCAPE '\\'"
                                : "SELECT 'ALTER TABLE ' || conrelid::regclass || ' DROP CONSTRAINT ' || "
                                  "conname FROM pg_constraint WHERE conname LIKE 'tarnvik%limit'"),
             soci::into(statement));
        names.execute();
        while (names.fetch())
            statements.push_back(statement);
        ASSERT_EQ(statements.size(), IsSqlite() ? 22U : 11U);
        for (const std::string& drop : statements)
            *session << drop;
    }

    bool m_isSqlite;
    TempFolder m_folder;
};

/// The parameter is the kind of the database.
class UserDatabaseTest : public testing::TestWithParam<const char*>, public DatabaseUnderTest
{
protected:
    UserDatabaseTest() : DatabaseUnderTest(GetParam()) {}
};

/// Programs that write at the same time: `write` runs once in a process for each and returns how many of its
/// calls failed. No database may be open.
inline void RunWriters(int count, const std::function<int(int writer)>& write)
{
    for (int writer = 0; writer < count; ++writer) {
        if (fork() == 0)
            _exit(write(writer) == 0 ? 0 : 1);
    }
    for (int writer = 0; writer < count; ++writer) {
        int status = -1;
        wait(&status);
        EXPECT_EQ(status, 0);
    }
}

inline std::optional<DatabaseError> ErrorOf(const std::function<void()>& call)
{
    try {
        call();
        return std::nullopt;
    } catch (const DatabaseError& error) {
        return error;
    }
}

}  // namespace support
