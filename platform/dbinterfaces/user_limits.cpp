// SPDX-License-Identifier: MIT
#include "dbinterfaces/user_limits.h"

#include <fmt/format.h>

#include <array>
#include <string>

namespace user_limits {

namespace {

using text_limits::kFormula;
using text_limits::kName;
using text_limits::kText;

struct Column
{
    const char* table;
    const char* name;
    std::size_t most;
    /// What a text that is too long becomes, {0} being its column and {1} the limit: it must stay unique
    /// where it is.
    const char* cut = "substr({0}, 1, {1})";
};

const std::array kColumns{
    Column{"tarnvik_compound", "base_element", kName},
    Column{"tarnvik_compound", "name", kName},
    Column{"tarnvik_compound", "formula", kFormula},
    Column{"tarnvik_compound", "category", kName},
    Column{"tarnvik_water_country", "name", kName, "substr({0}, 1, {1} - 20) || ' #' || id"},
    Column{"tarnvik_water", "place", kName},
    Column{"tarnvik_water", "source", kName},
    Column{"tarnvik_water_value", "value", kText},
    Column{"tarnvik_water_value", "unit", kName},
    Column{"tarnvik_water_value", "label", kName},
    Column{"tarnvik_water_value", "grp", kName},
};

/// SQLite adds no conditions to a table that is there. It counts letters up to a zero only, hence the bytes.
void AddTriggers(soci::session& session, const Column& column)
{
    for (const char* event : {"INSERT", "UPDATE"}) {
        session << fmt::format(
            "CREATE TRIGGER {0}_{1}_limit_{2} BEFORE {2} ON {0} "
            "WHEN length(new.{1}) > {3} OR length(CAST(new.{1} AS BLOB)) > 4 * {3} "
            "BEGIN SELECT RAISE(ABORT, '{0}.{1} may have {3} letters'); END",
            column.table, column.name, event, column.most);
    }
}

}  // namespace

void Require(std::string_view what, std::string_view text, std::size_t most)
{
    // Bytes need not be counted one by one where there are few.
    const std::size_t letters = text.size() <= most ? 0 : text_limits::CountLetters(text);
    if (letters <= most)
        return;
    constexpr std::size_t kShown = 40;
    throw DatabaseError(DatabaseError::Kind::TooLong,
                        fmt::format("{} '{}...' has {} letters, {} is the most", what,
                                    text_limits::Cut(text, kShown), letters, most));
}

void Install(soci::session& session, Backend backend)
{
    for (const Column& column : kColumns) {
        const std::string cut = fmt::format(fmt::runtime(column.cut), column.name, column.most);
        session << fmt::format("UPDATE {} SET {} = {} WHERE length({}) > {}", column.table, column.name, cut,
                               column.name, column.most);
        if (backend == Backend::Sqlite)
            AddTriggers(session, column);
        else
            session << fmt::format("ALTER TABLE {0} ADD CONSTRAINT {0}_{1}_limit CHECK (length({1}) <= {2})",
                                   column.table, column.name, column.most);
    }
}

}  // namespace user_limits
