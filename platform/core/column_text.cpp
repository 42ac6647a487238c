// SPDX-License-Identifier: MIT
#include "core/column_text.h"

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

numbertext::Separators SeparatorsFor(char decimalSign)
{
    return decimalSign == ',' ? numbertext::Separators{",", "."} : numbertext::Separators{".", ","};
}

/// What is known of each column before the one to take is.
struct Candidate
{
    Evidence evidence;
    std::size_t numbers = 0;

    char DecimalSign(char preferred) const
    {
        if (evidence.point == evidence.comma)
            return preferred;
        return evidence.point > evidence.comma ? '.' : ',';
    }
};

/// Rows may be of any length: only the cells that are there are looked at, not every column of every row.
template <typename Visit>
void VisitCells(const std::vector<delimited::Row>& rows, std::vector<Candidate>& columns, const Visit& visit)
{
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            visit(columns[i], row[i]);
    }
}

}  // namespace

Column Parse(std::string_view text, char preferred)
{
    auto rows = delimited::Parse(text, '\t', kBounds);
    std::size_t width = 0;
    for (auto& row : rows) {
        width = std::max(width, row.size());
        for (std::string& cell : row)
            cell = numbertext::Trim(cell);
    }
    std::vector<Candidate> columns(width);
    VisitCells(rows, columns,
               [](Candidate& column, const std::string& cell) { Weigh(cell, column.evidence); });
    VisitCells(rows, columns, [&](Candidate& column, const std::string& cell) {
        if (detection_limit::Parse(cell, SeparatorsFor(column.DecimalSign(preferred))))
            ++column.numbers;
    });
    if (columns.empty())
        return {};
    const auto best = std::ranges::max_element(columns, {}, &Candidate::numbers);
    const auto at = static_cast<std::size_t>(best - columns.begin());
    Column column;
    column.decimalSign = best->DecimalSign(preferred);
    for (const auto& row : rows) {
        const std::string cell = at < row.size() ? row[at] : std::string();
        column.cells.push_back({cell, detection_limit::Parse(cell, SeparatorsFor(column.decimalSign))});
    }
    return column;
}

}  // namespace columntext
