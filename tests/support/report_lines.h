// SPDX-License-Identifier: MIT
#pragma once

#include "report/document.h"

#include <string>
#include <variant>
#include <vector>

namespace support {

/// All lines of a page: the cells of tables beside each other, headings and paragraphs.
inline std::vector<std::string> LinesOf(const report::Section& section)
{
    std::vector<std::string> lines;
    for (const report::Block& block : section.blocks) {
        if (const auto* heading = std::get_if<report::Heading>(&block))
            lines.push_back("# " + heading->text);
        if (const auto* paragraph = std::get_if<report::Paragraph>(&block))
            lines.push_back(paragraph->text);
        const auto* table = std::get_if<report::Table>(&block);
        if (table == nullptr)
            continue;
        for (const report::Row& row : table->rows) {
            std::string line;
            for (const report::Cell& cell : row.cells)
                line += (line.empty() ? "" : " ") + cell.text;
            lines.push_back(line);
        }
    }
    return lines;
}

}  // namespace support
