// SPDX-License-Identifier: MIT
#include "core/amount_text.h"

#include <gtest/gtest.h>

namespace {

TEST(AmountText, KeepsUnitsBesideTheirNumbersOnly)
{
    const struct
    {
        const char* number;
        const char* unit;
        const char* text;
        const char* usual;
    } cases[] = {{"8.85", "meq/l", "8.85\u00a0meq/l", "8.85 meq/l"},
                 {"7.2", "", "7.2", "7.2"},
                 {"", "mg/l", "", ""},
                 {"1\u00a0000,5", "\u00b0C", "1\u00a0000,5\u00a0\u00b0C", "1 000,5 \u00b0C"}};
    for (const auto& [number, unit, text, usual] : cases) {
        EXPECT_EQ(numbertext::WithUnit(number, unit), text);
        EXPECT_EQ(numbertext::WithUsualBlanks(text), usual);
    }
}

}  // namespace
