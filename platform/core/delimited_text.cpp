// SPDX-License-Identifier: MIT
#include "core/delimited_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>

const char* WorkCancelled::what() const noexcept
{
    return "cancelled";
}

namespace delimited {
namespace {

constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";

const char* NameOf(TooLarge::Kind kind)
{
    switch (kind) {
        case TooLarge::Kind::Bytes:
            return "bytes";
        case TooLarge::Kind::Rows:
            return "rows";
        case TooLarge::Kind::Columns:
            return "columns";
        case TooLarge::Kind::Cells:
            break;
    }
    return "cells";
}

/// The one walk over a table's text, whoever asks: tells the handler of each character of a cell, of the
/// separator that ends one, and of the end of a row, until it has enough.
template <typename Handler>
void Walk(std::string_view text, std::string_view separators, Handler& handler)
{
    bool isCellEmpty = true;
    const auto append = [&](char c) {
        handler.Append(c);
        isCellEmpty = false;
    };
    for (std::size_t at = 0; at < text.size() && !handler.HasEnough();) {
        const char c = text[at++];
        if (c == '"' && isCellEmpty) {
            for (; at < text.size(); ++at) {
                const bool isQuote = text[at] == '"';
                if (isQuote && (++at >= text.size() || text[at] != '"'))
                    break;
                append(text[at]);
            }
        } else if (separators.find(c) != std::string_view::npos) {
            handler.EndCell(c);
            isCellEmpty = true;
        } else if (c == '\n' || c == '\r') {
            if (c == '\r' && at < text.size() && text[at] == '\n')
                ++at;
            handler.EndRow(at);
            isCellEmpty = true;
        } else {
            append(c);
        }
    }
    handler.EndText(isCellEmpty);
}

/// Keeps the rows, as long as there are not too many.
class RowReader
{
public:
    RowReader(const Bounds& bounds, const WorkWatch& watch, std::size_t length)
        : m_bounds(bounds), m_watch(watch), m_length(length)
    {}

    bool HasEnough() const { return false; }
    void Append(char c) { m_cell += c; }
    void EndCell(char /*separator*/)
    {
        if (m_rows.size() == m_bounds.rows)
            Refuse(TooLarge::Kind::Rows, m_bounds.rows);
        if (m_row.size() == m_bounds.columns)
            Refuse(TooLarge::Kind::Columns, m_bounds.columns);
        if (m_cells == m_bounds.cells)
            Refuse(TooLarge::Kind::Cells, m_bounds.cells);
        ++m_cells;
        m_row.push_back(std::exchange(m_cell, {}));
    }
    void EndRow(std::size_t at)
    {
        EndCell('\n');
        m_rows.push_back(std::exchange(m_row, {}));
        m_watch.Tell(static_cast<double>(at) / static_cast<double>(m_length));
    }
    void EndText(bool isCellEmpty)
    {
        if (!isCellEmpty || !m_row.empty())
            EndRow(m_length);
    }
    std::vector<Row> Take() { return std::move(m_rows); }

private:
    [[noreturn]] void Refuse(TooLarge::Kind kind, std::size_t limit) const
    {
        throw TooLarge(kind, limit, m_rows.size() + 1, m_row.size() + 1);
    }

    const Bounds& m_bounds;
    const WorkWatch& m_watch;
    std::size_t m_length;
    std::vector<Row> m_rows;
    Row m_row;
    std::string m_cell;
    std::size_t m_cells = 0;
};

/// Counts how many columns each separator would make of the first rows.
class ColumnCounter
{
public:
    bool HasEnough() const { return m_columns.front().size() == kLooked; }
    void Append(char /*c*/) {}
    void EndCell(char separator) { ++m_found[kSeparators.find(separator)]; }
    void EndRow(std::size_t /*at*/)
    {
        for (std::size_t i = 0; i < m_found.size(); ++i)
            m_columns[i].push_back(std::exchange(m_found[i], 0) + 1);
    }
    void EndText(bool isCellEmpty)
    {
        if (!isCellEmpty || std::ranges::any_of(m_found, [](std::size_t found) { return found > 0; }))
            EndRow(0);
    }

    char FindBest() const
    {
        char best = ',';
        std::pair<bool, std::size_t> most;
        for (std::size_t i = 0; i < kSeparators.size(); ++i) {
            if (m_columns[i].empty())
                continue;
            const std::size_t columns = std::ranges::max(m_columns[i]);
            const auto agreeing = static_cast<std::size_t>(std::ranges::count(m_columns[i], columns));
            const std::pair found(columns > 1 && agreeing == m_columns[i].size(),
                                  columns > 1 ? columns * agreeing : 0);
            if (found > most) {
                most = found;
                best = kSeparators[i];
            }
        }
        return best;
    }

private:
    static constexpr std::size_t kLooked = 20;
    std::array<std::vector<std::size_t>, kSeparators.size()> m_columns;
    std::array<std::size_t, kSeparators.size()> m_found{};
};

void AppendCell(std::string& text, const std::string& cell)
{
    static const std::string kQuoted = std::string(kSeparators) + "\"\r\n";
    if (cell.find_first_of(kQuoted) == std::string::npos && !cell.starts_with(kByteOrderMark)) {
        text += cell;
        return;
    }
    text += '"';
    for (const char c : cell) {
        if (c == '"')
            text += '"';
        text += c;
    }
    text += '"';
}

}  // namespace

TooLarge::TooLarge(Kind kind, std::size_t limit, std::size_t row, std::size_t column)
    : std::runtime_error(
          fmt::format("more than {} {} (row {}, column {})", limit, NameOf(kind), row, column)),
      m_kind(kind),
      m_limit(limit),
      m_row(row),
      m_column(column)
{}

TooLarge::~TooLarge() = default;

std::vector<Row> Parse(std::string_view text, char separator, const Bounds& bounds, const WorkWatch& watch)
{
    if (text.size() > bounds.bytes)
        throw TooLarge(TooLarge::Kind::Bytes, bounds.bytes, 1, 1);
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    RowReader reader(bounds, watch, text.size());
    Walk(text, std::string_view(&separator, 1), reader);
    return reader.Take();
}

char FindSeparator(std::string_view text)
{
    ColumnCounter counter;
    Walk(text, kSeparators, counter);
    return counter.FindBest();
}

std::string Write(const std::vector<Row>& rows, char separator)
{
    std::string text;
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (i > 0)
                text += separator;
            AppendCell(text, row[i]);
        }
        text += "\r\n";
    }
    return text;
}

}  // namespace delimited
