// SPDX-License-Identifier: MIT
#pragma once

/// Tables as text: comma-separated files and what spreadsheets put on the clipboard. UTF-8; pure functions.

#include "core/core_export.h"

#include <string>
#include <string_view>
#include <vector>

namespace delimited {

using Row = std::vector<std::string>;

/// Rows and cells of `text` (RFC 4180): a cell in double quotes may hold the separator, line breaks and
/// doubled quotes; CR, LF and CR LF end a row. A quote that is never closed takes the rest of the text. Blank
/// rows between others are kept as rows of one empty cell, one line break at the end makes no row.
CORE_EXPORT std::vector<Row> Parse(std::string_view text, char separator);

}  // namespace delimited
