// SPDX-License-Identifier: MIT
#include "core/delimited_text.h"

#include <utility>

namespace delimited {
namespace {

/// Reads one quoted cell whose opening quote stands at `at`; leaves `at` behind its closing quote.
std::string QuotedCell(std::string_view text, std::size_t& at)
{
    std::string cell;
    for (++at; at < text.size(); ++at) {
        if (text[at] != '"') {
            cell += text[at];
            continue;
        }
        if (at + 1 >= text.size() || text[at + 1] != '"') {
            ++at;
            break;
        }
        cell += '"';
        ++at;
    }
    return cell;
}

}  // namespace

std::vector<Row> Parse(std::string_view text, char separator)
{
    constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    std::vector<Row> rows;
    Row row;
    std::string cell;
    std::size_t at = 0;
    const auto endRow = [&] {
        row.push_back(std::exchange(cell, {}));
        rows.push_back(std::exchange(row, {}));
    };
    while (at < text.size()) {
        const char c = text[at];
        if (c == '"' && cell.empty()) {
            cell = QuotedCell(text, at);
            continue;
        }
        ++at;
        if (c == separator)
            row.push_back(std::exchange(cell, {}));
        else if (c == '\n')
            endRow();
        else if (c == '\r') {
            if (at < text.size() && text[at] == '\n')
                ++at;
            endRow();
        } else
            cell += c;
    }
    if (!cell.empty() || !row.empty())
        endRow();
    return rows;
}

}  // namespace delimited
