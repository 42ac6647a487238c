// SPDX-License-Identifier: MIT
#pragma once

/// Tables of the project's resources, read as they lie in the source tree.

#include <fstream>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace testing_support {

using CsvRow = std::map<std::string, std::string>;

inline std::vector<std::string> SplitCsvLine(const std::string& line)
{
    std::vector<std::string> cells(1);
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (c == '"' && quoted && i + 1 < line.size() && line[i + 1] == '"')
            cells.back() += line[++i];
        else if (c == '"')
            quoted = !quoted;
        else if (c == ',' && !quoted)
            cells.emplace_back();
        else
            cells.back() += c;
    }
    return cells;
}

/// Every row with its cells by column name. Throws when the file cannot be read or a row has another number
/// of cells than the head.
inline std::vector<CsvRow> ReadCsv(const std::string& path)
{
    std::ifstream file(path);
    std::string line;
    if (!std::getline(file, line))
        throw std::runtime_error("ReadCsv: cannot read " + path);
    const auto head = SplitCsvLine(line);
    std::vector<CsvRow> rows;
    while (std::getline(file, line)) {
        const auto cells = SplitCsvLine(line);
        if (cells.size() != head.size())
            throw std::runtime_error("ReadCsv: " + path + ": bad row: " + line);
        CsvRow row;
        for (std::size_t i = 0; i < head.size(); ++i)
            row[head[i]] = cells[i];
        rows.push_back(std::move(row));
    }
    return rows;
}

}  // namespace testing_support
