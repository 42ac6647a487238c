// SPDX-License-Identifier: MIT
#pragma once

/// Tables as boxes. Internal to the writer.

#include "report/pages.h"
#include "report/text.h"

#include <span>
#include <vector>

namespace report {

/// Widths of columns whose contents would like `natural` widths, in `available`: those that want more than
/// their share are narrowed, what is left over goes to the columns by their `stretch`. No column is narrower
/// than its `least` width, unless these have no room together.
REPORT_EXPORT std::vector<double> ColumnWidths(std::span<const double> natural,
                                               std::span<const double> stretch, double available,
                                               std::span<const double> least = {});

/// Where a table stands.
struct TablePlace
{
    double left;
    double width;
    double pageHeight;  ///< a row that is higher is cut between its lines
};

/// Adds a box for the titles and one for each row.
void AddTable(const TextContext& context, const Table& table, const TablePlace& place,
              const std::string& decimalSign, std::vector<Box>& boxes);

}  // namespace report
