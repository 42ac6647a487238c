// SPDX-License-Identifier: MIT
#pragma once

/// An SQLite database in memory that comes from, or becomes, the bytes of a file. Internal to the project
/// file.
///
/// Reading from bytes means that no lock, journal or other side file ever touches the document. Bytes of
/// unknown origin are opened defensively: no views, no triggers, no calculated columns, bounded work, and no
/// page that is read twice. Failures throw SqliteFailure.

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

class SqliteFailure : public std::runtime_error
{
public:
    explicit SqliteFailure(sqlite3* database)
        : std::runtime_error(sqlite3_errmsg(database)), m_code(sqlite3_errcode(database))
    {}
    /// For what SQLite is not asked.
    explicit SqliteFailure(const std::string& text) : std::runtime_error(text), m_code(SQLITE_CORRUPT) {}
    /// Primary result code of SQLite.
    int Code() const { return m_code & 0xff; }

private:
    int m_code;
};

/// Longest text that is read from the bytes of a file, or written to them.
inline constexpr std::size_t kMostValueBytes = std::size_t{1} << 20;

class SqliteStatement
{
public:
    SqliteStatement(sqlite3* database, const std::string& sql);

    void Bind(int index, double value);
    void Bind(int index, std::int64_t value);
    void Bind(int index, std::string_view text);
    void BindNull(int index);
    /// Whether there is a row.
    bool Step();
    /// Ready for the next values.
    void Reset();

    /// SQLITE_INTEGER, SQLITE_FLOAT, SQLITE_TEXT, SQLITE_BLOB or SQLITE_NULL.
    int Type(int column) const { return sqlite3_column_type(m_statement.get(), column); }
    double Double(int column) const { return sqlite3_column_double(m_statement.get(), column); }
    std::int64_t Integer(int column) const { return sqlite3_column_int64(m_statement.get(), column); }
    /// Bytes as stored, valid until the next Step.
    std::string_view Text(int column) const;

private:
    void Check(int result) const;

    struct Finalizer
    {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    sqlite3* m_database;
    std::unique_ptr<sqlite3_stmt, Finalizer> m_statement;
};

class SqliteImage
{
public:
    /// An empty database.
    SqliteImage();
    /// A read-only one of the bytes of a file, which must outlive it.
    explicit SqliteImage(const std::string& bytes);
    SqliteImage(const SqliteImage&) = delete;
    SqliteImage& operator=(const SqliteImage&) = delete;

    void Execute(const std::string& sql);
    SqliteStatement Prepare(const std::string& sql) { return {m_database.get(), sql}; }
    std::int64_t Pragma(const std::string& name);
    std::string Bytes();

private:
    void Open();

    struct Closer
    {
        void operator()(sqlite3* database) const { sqlite3_close(database); }
    };
    int m_looks = 0;  ///< outlives the connection that counts in it
    std::unique_ptr<sqlite3, Closer> m_database;
};
