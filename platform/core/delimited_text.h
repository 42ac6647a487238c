// SPDX-License-Identifier: MIT
#pragma once

/// Tables as text: comma-separated files and what spreadsheets put on the clipboard. UTF-8; pure functions.
///
/// Reading and writing share one rule: a cell is quoted where it holds any of the separators that a table may
/// have, so that what stands outside of quotes tells which one the table has.

#include "core/core_export.h"
#include "core/work_watch.h"

#include <cstddef>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace delimited {

using Row = std::vector<std::string>;

/// Those that FindSeparator tells apart.
inline constexpr std::string_view kSeparators = ";\t,|";

/// The most that a table may hold.
struct Bounds
{
    std::size_t bytes = std::numeric_limits<std::size_t>::max();
    std::size_t rows = std::numeric_limits<std::size_t>::max();
    std::size_t columns = std::numeric_limits<std::size_t>::max();
    std::size_t cells = std::numeric_limits<std::size_t>::max();
};

/// A table with more bytes, rows, columns or cells than it may have.
class CORE_EXPORT TooLarge : public std::runtime_error
{
public:
    enum class Kind
    {
        Bytes,
        Rows,
        Columns,
        Cells
    };
    TooLarge(Kind kind, std::size_t limit, std::size_t row, std::size_t column);
    TooLarge(const TooLarge&) = default;
    ~TooLarge() override;

    Kind GetKind() const { return m_kind; }
    std::size_t GetLimit() const { return m_limit; }
    /// Of the first cell that is one too many, counted from 1; of a text with too many bytes the first one.
    std::size_t GetRow() const { return m_row; }
    std::size_t GetColumn() const { return m_column; }

private:
    Kind m_kind;
    std::size_t m_limit;
    std::size_t m_row;
    std::size_t m_column;
};

/// Rows and cells of `text` (RFC 4180): a cell in double quotes may hold the separator, line breaks and
/// doubled quotes; CR, LF and CR LF end a row. A quote that is never closed takes the rest of the text. Blank
/// rows between others are kept as rows of one empty cell, one line break at the end makes no row. Throws
/// TooLarge for a text beyond the bounds, before or at the first cell too many, WorkCancelled.
CORE_EXPORT std::vector<Row> Parse(std::string_view text, char separator, const Bounds& bounds = {},
                                   const WorkWatch& watch = {});

/// The one of kSeparators that splits the first rows into the same number of cells, two or more; otherwise
/// the one that makes the most of them. A comma where there is none.
CORE_EXPORT char FindSeparator(std::string_view text);

/// The rows as a text from which FindSeparator finds that separator and Parse the same rows, if some row has
/// two cells. Rows end with CR LF.
CORE_EXPORT std::string Write(const std::vector<Row>& rows, char separator);

}  // namespace delimited
