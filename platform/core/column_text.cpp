// SPDX-License-Identifier: MIT
#include "core/column_text.h"

#include "core/delimited_text.h"
#include "core/detection_limit.h"
#include "core/number_text.h"

#include <algorithm>

namespace columntext {
namespace {

struct Evidence
{
    int point = 0;
    int comma = 0;
};

/// What one cell tells about the decimal sign.
void Weigh(const std::string& cell, Evidence& evidence)
{
    const auto lastPoint = cell.rfind('.');
    const auto lastComma = cell.rfind(',');
    const bool hasPoint = lastPoint != std::string::npos;
    const bool hasComma = lastComma != std::string::npos;
    if (hasPoint && hasComma) {
        ++(lastPoint > lastComma ? evidence.point : evidence.comma);
        return;
    }
    if (!hasPoint && !hasComma)
        return;
    const auto last = hasPoint ? lastPoint : lastComma;
    const char sign = cell[last];
    if (std::count(cell.begin(), cell.end(), sign) > 1) {
        // Groups: the other sign is the decimal one.
        ++(hasPoint ? evidence.comma : evidence.point);
        return;
    }
    const auto digits = cell.find_first_not_of("0123456789", last + 1);
    const auto decimals = (digits == std::string::npos ? cell.size() : digits) - last - 1;
    const bool couldGroup = decimals == 3 && last >= 1 && last <= 3 && cell.front() != '0';
    if (!couldGroup)
        ++(hasPoint ? evidence.point : evidence.comma);
}

std::vector<std::string> CellsOf(const std::vector<delimited::Row>& rows, std::size_t column)
{
    std::vector<std::string> cells;
    for (const auto& row : rows)
        cells.push_back(column < row.size() ? numbertext::Trim(row[column]) : std::string());
    return cells;
}

numbertext::Separators SeparatorsFor(char decimalSign)
{
    return decimalSign == ',' ? numbertext::Separators{",", "."} : numbertext::Separators{".", ","};
}

Column ReadColumn(const std::vector<std::string>& cells, char preferred)
{
    Evidence evidence;
    for (const std::string& cell : cells)
        Weigh(cell, evidence);
    Column column;
    column.decimalSign = evidence.point == evidence.comma  ? preferred
                         : evidence.point > evidence.comma ? '.'
                                                           : ',';
    for (const std::string& cell : cells)
        column.cells.push_back({cell, detection_limit::Parse(cell, SeparatorsFor(column.decimalSign))});
    return column;
}

std::ptrdiff_t CountNumbers(const Column& column)
{
    return std::count_if(column.cells.begin(), column.cells.end(),
                         [](const Cell& c) { return c.value.has_value(); });
}

}  // namespace

Column Parse(std::string_view text, char preferred)
{
    const auto rows = delimited::Parse(text, '\t');
    std::size_t columns = 0;
    for (const auto& row : rows)
        columns = std::max(columns, row.size());
    Column best;
    std::ptrdiff_t most = -1;
    for (std::size_t i = 0; i < columns; ++i) {
        Column column = ReadColumn(CellsOf(rows, i), preferred);
        const auto numbers = CountNumbers(column);
        if (numbers > most) {
            most = numbers;
            best = std::move(column);
        }
    }
    return best;
}

}  // namespace columntext
