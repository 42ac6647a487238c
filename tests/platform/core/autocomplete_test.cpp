// SPDX-License-Identifier: MIT
#include "core/autocomplete.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace autocomplete;

TEST(Autocomplete, FindsTheFirstEntryOfTheLongestPrefix)
{
    const std::vector<std::string> entries{"Niger",     "Nigeria", "Österreich", "Ελλάδα",
                                           "Беларусь",  "niger",   "Guinea",     "Guinea-Bissau",
                                           "O'Higgins", "",        "İzmir",      "日本"};
    struct Case
    {
        const char* typed;
        Match expected;
    };
    const std::vector<Case> cases{
        {"", {}},           {"x", {}},          {"n", {0, 1}},        {"NIGER", {0, 5}},
        {"nigeri", {1, 6}}, {"nigerx", {0, 5}}, {"nixgeria", {0, 2}}, {"guinea-", {7, 7}},
        {"ö", {2, 1}},      {"öSTERR", {2, 6}}, {"östo", {2, 3}},     {"Ost", {8, 1}},
        {"ελλΆ", {3, 4}},   {"БЕЛ", {4, 3}},    {"беx", {4, 2}},      {"日", {11, 1}},
        {"本", {}},         {"o'", {8, 2}},     {"\xc3", {}},         {"Niger\xff", {0, 5}},
    };
    const Matcher matcher(entries);
    for (const auto& c : cases)
        EXPECT_EQ(matcher.Find(c.typed), c.expected) << c.typed << " " << matcher.Find(c.typed).index;
    EXPECT_EQ(Matcher().Find("a"), Match());
}

TEST(Autocomplete, EqualsTryingEverShorterPrefixes)
{
    std::mt19937 random(5);
    const auto word = [&random] {
        std::string text;
        for (std::size_t length = random() % 7; length > 0; --length)
            text += "abAB"[random() % 4];
        return text;
    };
    for (int run = 0; run < 2000; ++run) {
        std::vector<std::string> entries(random() % 6);
        for (std::string& entry : entries)
            entry = word();
        const std::string typed = word();
        Match expected;
        for (std::size_t length = typed.size(); length > 0 && expected.index < 0; --length)
            for (std::size_t i = 0; i < entries.size() && expected.index < 0; ++i)
                if (IsPartialMatchNoCase(entries[i], std::string_view(typed).substr(0, length)))
                    expected = {static_cast<int>(i), length};
        EXPECT_EQ(Matcher(entries).Find(typed), expected) << typed;
    }
}

TEST(Autocomplete, FoldsTheCaseOfLettersOnly)
{
    const std::vector<std::pair<const char*, const char*>> same{
        {"ÀÖØÞ", "àöøþ"}, {"ĀĲĹŊŸŽ", "āĳĺŋÿž"}, {"ΆΈΌΏΑΡΣΫ", "άέόώαρσϋ"},
        {"ς", "σ"},       {"ЀЏАЯҐ", "ѐџаяґ"},   {"ԱՖ", "աֆ"},
        {"ẠỸẞ", "ạỹß"},   {"ȘȚ", "șț"},         {"Z[`{×÷", "z[`{×÷"},
    };
    for (const auto& [upper, lower] : same)
        EXPECT_EQ(FoldText(upper), FoldText(lower)) << upper;
    // What is folded is not folded again, and nothing but letters is touched.
    for (char32_t c = 0; c < 0x2100; ++c)
        EXPECT_EQ(FoldCase(FoldCase(c)), FoldCase(c)) << static_cast<unsigned>(c);
    for (const char32_t c : {U'@', U'[', U'`', U'{', U'×', U'÷', U'ĸ', U'ı', U'€', char32_t{0x10FFFF}})
        EXPECT_EQ(FoldCase(c), c) << static_cast<unsigned>(c);
    EXPECT_EQ(FoldText("\xc3(\xe2\x82\xf9"), U"\uFFFD(\uFFFD\uFFFD");
    EXPECT_FALSE(IsPartialMatchNoCase("a", ""));
    EXPECT_FALSE(IsPartialMatchNoCase("a", "ab"));
}

}  // namespace
