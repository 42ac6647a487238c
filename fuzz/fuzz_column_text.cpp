// SPDX-License-Identifier: MIT
// What comes from the clipboard: a column of numbers.
#include "core/column_text.h"
#include "core/delimited_text.h"
#include "core/number_text.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (char preferred : {'.', ','}) {
        columntext::Column column;
        try {
            column = columntext::Parse(text, preferred);
        } catch (const delimited::TooLarge&) {
            continue;
        }
        for (const auto& cell : column.cells) {
            // A cell is a finite number or none, and a number reads back from its own text.
            if (cell.value && !std::isfinite(*cell.value))
                std::abort();
            if (cell.value && !numbertext::Parse(numbertext::Format(*cell.value, {.precision = 15}, {}), {}))
                std::abort();
        }
    }
    delimited::Parse(text, ';');
    return 0;
}
