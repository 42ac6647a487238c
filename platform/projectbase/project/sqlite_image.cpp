// SPDX-License-Identifier: MIT
#include "projectbase/project/sqlite_image.h"

#include "projectbase/project/sqlite_pages.h"

#include <fmt/format.h>

#include <cctype>
#include <new>

namespace {

constexpr const char* kMain = "main";
/// Steps of SQLite's machine between two looks at the budget, and how many looks it may last. A project of
/// the largest size allowed needs a small part of it; a file made to keep us busy is stopped within a second.
constexpr int kStepsPerLook = 1'000'000;
constexpr int kLooks = 100;

bool IsOfWord(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '$' || (c & 0x80) != 0;
}

/// Whether a definition of a table has the keyword of a calculated column. Tables of ours have it nowhere,
/// not even in a name; to ask SQLite about each column takes a fifth of the time of loading a project.
bool HoldsWordAs(std::string_view definition)
{
    for (std::size_t i = 0; i + 1 < definition.size(); ++i) {
        const bool as = (definition[i] | 0x20) == 'a' && (definition[i + 1] | 0x20) == 's';
        if (as && (i == 0 || !IsOfWord(definition[i - 1])) &&
            (i + 2 == definition.size() || !IsOfWord(definition[i + 2])))
            return true;
    }
    return false;
}

}  // namespace

SqliteStatement::SqliteStatement(sqlite3* database, const std::string& sql) : m_database(database)
{
    sqlite3_stmt* statement = nullptr;
    Check(sqlite3_prepare_v2(database, sql.c_str(), static_cast<int>(sql.size()), &statement, nullptr));
    m_statement.reset(statement);
}

void SqliteStatement::Check(int result) const
{
    if (result != SQLITE_OK)
        throw SqliteFailure(m_database);
}

void SqliteStatement::Bind(int index, double value)
{
    Check(sqlite3_bind_double(m_statement.get(), index, value));
}

void SqliteStatement::Bind(int index, std::int64_t value)
{
    Check(sqlite3_bind_int64(m_statement.get(), index, value));
}

void SqliteStatement::Bind(int index, std::string_view text)
{
    if (text.size() > kMostValueBytes)
        throw SqliteFailure(fmt::format("a text is longer than {} bytes", kMostValueBytes));
    Check(sqlite3_bind_text64(m_statement.get(), index, text.data(), text.size(), SQLITE_TRANSIENT,
                              SQLITE_UTF8));
}

void SqliteStatement::BindNull(int index)
{
    Check(sqlite3_bind_null(m_statement.get(), index));
}

bool SqliteStatement::Step()
{
    const int result = sqlite3_step(m_statement.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE)
        throw SqliteFailure(m_database);
    return result == SQLITE_ROW;
}

void SqliteStatement::Reset()
{
    Check(sqlite3_reset(m_statement.get()));
}

std::string_view SqliteStatement::Text(int column) const
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_statement.get(), column));
    const int size = sqlite3_column_bytes(m_statement.get(), column);
    return text == nullptr ? std::string_view() : std::string_view(text, static_cast<std::size_t>(size));
}

void SqliteImage::Open()
{
    sqlite3* database = nullptr;
    const int result = sqlite3_open_v2(
        ":memory:", &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
    m_database.reset(database);
    if (database == nullptr)
        throw std::bad_alloc();
    if (result != SQLITE_OK)
        throw SqliteFailure(database);
}

SqliteImage::SqliteImage()
{
    Open();
}

SqliteImage::SqliteImage(const std::string& bytes)
{
    if (const std::string problem = FindPageProblem(bytes); !problem.empty())
        throw SqliteFailure(problem);
    Open();
    sqlite3_limit(m_database.get(), SQLITE_LIMIT_LENGTH, static_cast<int>(kMostValueBytes));
    sqlite3_drop_modules(m_database.get(), nullptr);
    sqlite3_db_config(m_database.get(), SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(m_database.get(), SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(m_database.get(), SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(m_database.get(), SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    Execute("PRAGMA cell_size_check = ON");
    sqlite3_progress_handler(
        m_database.get(), kStepsPerLook,
        [](void* looks) { return ++*static_cast<int*>(looks) > kLooks ? 1 : 0; }, &m_looks);

    // Read-only, so that SQLite does not write there either.
    auto* pages = reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.data()));
    const auto size = static_cast<sqlite3_int64>(bytes.size());
    if (sqlite3_deserialize(m_database.get(), kMain, pages, size, size, SQLITE_DESERIALIZE_READONLY) !=
        SQLITE_OK)
        throw SqliteFailure(m_database.get());
    // What a column calculates may be as much work as its author likes.
    SqliteStatement tables = Prepare("SELECT sql FROM sqlite_master WHERE type = 'table'");
    while (tables.Step()) {
        if (HoldsWordAs(tables.Text(0)))
            throw SqliteFailure("it has calculated columns");
    }
}

void SqliteImage::Execute(const std::string& sql)
{
    if (sqlite3_exec(m_database.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw SqliteFailure(m_database.get());
}

std::int64_t SqliteImage::Pragma(const std::string& name)
{
    SqliteStatement statement = Prepare("PRAGMA " + name);
    return statement.Step() ? statement.Integer(0) : 0;
}

std::string SqliteImage::Bytes()
{
    sqlite3_int64 size = 0;
    unsigned char* bytes = sqlite3_serialize(m_database.get(), kMain, &size, 0);
    if (bytes == nullptr)
        throw std::bad_alloc();
    std::string result(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size));
    sqlite3_free(bytes);
    return result;
}
