// SPDX-License-Identifier: MIT
// Mutations of a project file that keep it a database: random bytes alone seldom come past the pages of the
// file to what stands in them. One value of one row is changed, or a row is removed or written twice.
#include <sqlite3.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t mostSize);

namespace {

using Random = std::minstd_rand;

struct Table
{
    const char* name;
    const char* key;  ///< by which one row is told from the others
    std::vector<const char*> columns;
};

const std::vector<Table>& Tables()
{
    static const std::vector<Table> tables{
        {"note", "name", {"name", "text"}},
        {"liquid", "id", {"id", "name"}},
        {"detail", "liquid, name", {"liquid", "name", "type", "unit", "value"}},
        {"detail_group", "kind, position, name", {"kind", "position", "name", "type", "unit", "value"}},
        {"owner", "id", {"id", "parent", "kind"}},
        {"owner_detail", "owner, name", {"owner", "name", "type", "unit", "value"}},
    };
    return tables;
}

class Database
{
public:
    Database(const std::uint8_t* data, std::size_t size)
    {
        sqlite3_open(":memory:", &m_database);
        // The database owns and frees the copy.
        auto* copy = static_cast<unsigned char*>(sqlite3_malloc64(size));
        std::memcpy(copy, data, size);
        sqlite3_deserialize(m_database, "main", copy, static_cast<sqlite3_int64>(size),
                            static_cast<sqlite3_int64>(size),
                            SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_RESIZEABLE);
    }
    ~Database() { sqlite3_close(m_database); }
    Database(const Database&) = delete;

    sqlite3_int64 Count(const Table& table)
    {
        sqlite3_int64 count = 0;
        sqlite3_stmt* rows = Prepare(std::string("SELECT count(*) FROM ") + table.name);
        if (rows != nullptr && sqlite3_step(rows) == SQLITE_ROW)
            count = sqlite3_column_int64(rows, 0);
        sqlite3_finalize(rows);
        return count;
    }
    sqlite3_stmt* Prepare(const std::string& sql)
    {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(m_database, sql.c_str(), -1, &statement, nullptr);
        return statement;
    }
    /// Whether something changed.
    bool Run(sqlite3_stmt* statement)
    {
        if (statement == nullptr)
            return false;
        const bool done = sqlite3_step(statement) == SQLITE_DONE;
        sqlite3_finalize(statement);
        return done && sqlite3_changes(m_database) > 0;
    }
    /// The number of bytes written; 0 when there is no room.
    std::size_t CopyTo(std::uint8_t* data, std::size_t mostSize)
    {
        sqlite3_int64 size = 0;
        unsigned char* bytes = sqlite3_serialize(m_database, "main", &size, 0);
        const bool fits = bytes != nullptr && size > 0 && static_cast<std::size_t>(size) <= mostSize;
        if (fits)
            std::memcpy(data, bytes, static_cast<std::size_t>(size));
        sqlite3_free(bytes);
        return fits ? static_cast<std::size_t>(size) : 0;
    }

private:
    sqlite3* m_database = nullptr;
};

std::string RowOf(const Table& table, sqlite3_int64 number)
{
    return std::string(" WHERE (") + table.key + ") IN (SELECT " + table.key + " FROM " + table.name +
           " LIMIT 1 OFFSET " + std::to_string(number) + ")";
}

std::string TextOf(Database& database, const Table& table, const char* column, const std::string& row)
{
    std::string text;
    sqlite3_stmt* rows = database.Prepare(std::string("SELECT ") + column + " FROM " + table.name + row);
    if (rows != nullptr && sqlite3_step(rows) == SQLITE_ROW) {
        const auto* bytes = static_cast<const char*>(sqlite3_column_blob(rows, 0));
        text.assign(bytes == nullptr ? "" : bytes, static_cast<std::size_t>(sqlite3_column_bytes(rows, 0)));
    }
    sqlite3_finalize(rows);
    return text;
}

void BindValue(sqlite3_stmt* statement, std::string text, Random& random)
{
    constexpr std::array kNumbers{0.0, -0.0, 1e308, -1e308, 5e-324, 1e15, -1.0, 1e300 * 1e300};
    constexpr std::array<sqlite3_int64, 6> kIntegers{0,
                                                     -1,
                                                     1,
                                                     1'000'000,
                                                     std::numeric_limits<sqlite3_int64>::max(),
                                                     std::numeric_limits<sqlite3_int64>::min()};
    constexpr std::size_t kRoom = 64;
    const std::size_t length = text.size();
    text.resize(length + kRoom);
    text.resize(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(text.data()), length, text.size()));
    switch (random() % 6) {
        case 0:
            sqlite3_bind_null(statement, 1);
            break;
        case 1:
            sqlite3_bind_double(statement, 1, kNumbers[random() % kNumbers.size()]);
            break;
        case 2:
            sqlite3_bind_int64(statement, 1, kIntegers[random() % kIntegers.size()]);
            break;
        case 3:
            sqlite3_bind_blob64(statement, 1, text.data(), text.size(), SQLITE_TRANSIENT);
            break;
        default:
            sqlite3_bind_text64(statement, 1, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    }
}

bool MutateRow(Database& database, Random& random)
{
    const Table& table = Tables()[random() % Tables().size()];
    const sqlite3_int64 rows = database.Count(table);
    if (rows <= 0)
        return false;
    const std::string row = RowOf(table, static_cast<sqlite3_int64>(random()) % rows);
    if (random() % 16 == 0)
        return database.Run(database.Prepare(std::string("DELETE FROM ") + table.name + row));
    const char* column = table.columns[random() % table.columns.size()];
    sqlite3_stmt* update =
        database.Prepare(std::string("UPDATE OR REPLACE ") + table.name + " SET " + column + " = ?1" + row);
    if (update == nullptr)
        return false;
    BindValue(update, TextOf(database, table, column, row), random);
    return database.Run(update);
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t mostSize,
                                               unsigned seed)
{
    Random random(seed);
    if (size > 0 && random() % 4 != 0) {
        Database database(data, size);
        bool changed = false;
        for (int i = 0; i < 3; ++i)
            changed = MutateRow(database, random) || changed;
        if (changed) {
            if (const std::size_t written = database.CopyTo(data, mostSize))
                return written;
        }
    }
    return LLVMFuzzerMutate(data, size, mostSize);
}
