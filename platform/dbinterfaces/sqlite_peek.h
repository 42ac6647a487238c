// SPDX-License-Identifier: MIT
#pragma once

/// A look at an SQLite file that may be anybody's. Internal to this library.
///
/// Opening a file as a database may already change it: a journal is rolled back, a log is taken over, side
/// files appear. What is looked at here stays as it is.

#include "dbinterfaces/database_error.h"

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

/// The file is a SQLite database, but damaged, or in pieces while its log is taken over (NotOurs).
class FileInPieces : public DatabaseError
{
    using DatabaseError::DatabaseError;
};

class SqlitePeek
{
public:
    enum class View
    {
        FileAlone,   ///< as if no side files were there: touches nothing at all
        WithItsLog,  ///< with what other programs wrote into its log; for databases that may be ours
    };

    /// Throws DatabaseError: Failed for what is no regular file or cannot be opened.
    SqlitePeek(const std::filesystem::path& path, View view);

    /// The number in the first column of the first row, 0 where there is none. Throws DatabaseError: NotOurs
    /// for a file that is no SQLite database, FileInPieces for a damaged one.
    std::int64_t Number(const std::string& query);

    /// Whether a log beside the file holds what the file itself does not.
    static bool HasLog(const std::filesystem::path& path);

private:
    struct Closer
    {
        void operator()(sqlite3* database) const { sqlite3_close(database); }
    };
    [[noreturn]] void Fail();

    int m_looks = 0;  ///< outlives the connection that counts in it
    std::unique_ptr<sqlite3, Closer> m_database;
};
