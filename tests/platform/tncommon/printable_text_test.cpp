// SPDX-License-Identifier: MIT
#include "tncommon/printable_text.h"

#include <gtest/gtest.h>

namespace {

TEST(PrintableText, EscapesWhatIsNoCharacterOrWhatATerminalObeys)
{
    struct Case
    {
        std::string bytes, shown;
    };
    const Case cases[] = {
        {"", ""},
        {"Gr\u00f6\u00dfe \u6c34 \U0001F4A7", "Gr\u00f6\u00dfe \u6c34 \U0001F4A7"},
        {"a\x1b[31mb", "a\\x1b[31mb"},
        {"a\x7f\tb\n", "a\\x7f\\x09b\\x0a"},
        {std::string("a\0b", 3), "a\\x00b"},
        {"a\xc2\x9b"
         "31mb",
         "a\\x9b31mb"},
        {"\xff\xfe", "\\xff\\xfe"},
        {"gr\xfcn", "gr\\xfcn"},
        // Cut short, longer than needed, half of a pair, beyond the last character.
        {"\xe6\xb0", "\\xe6\\xb0"},
        {"\xc0\xaf", "\\xc0\\xaf"},
        {"\xed\xa0\x80", "\\xed\\xa0\\x80"},
        {"\xf4\x90\x80\x80", "\\xf4\\x90\\x80\\x80"},
    };
    for (const Case& tried : cases)
        EXPECT_EQ(tncommon::PrintableText(tried.bytes), tried.shown);
    EXPECT_EQ(tncommon::PrintableLines("a\tb\r\n\x1b"), "a\tb\\x0d\n\\x1b");
}

}  // namespace
