// SPDX-License-Identifier: MIT
#include "core/number_text.h"

#include "core/column_text.h"
#include "core/delimited_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace {

using enum TvTextCtrlFormat;

const numbertext::Separators kPlain{".", ""};
const numbertext::Separators kEnglish{".", ","};
const numbertext::Separators kGerman{",", "."};
const numbertext::Separators kFrench{",", "\u202f"};

TEST(NumberText, FormatsEveryNotation)
{
    struct Case
    {
        double value;
        numbertext::Style style;
        numbertext::Separators separators;
        const char* expected;
    };
    const std::vector<Case> cases{
        {0.0, {General, 6}, kPlain, "0"},
        {0.5, {General, 6}, kPlain, "0.5"},
        {1234567.0, {General, 6}, kPlain, "1.234567e+06"},
        {123456.0, {General, 6}, kPlain, "123456"},
        {1234.5678, {General, 6}, kPlain, "1234.568"},
        {11520.4, {.precision = 4, .plain = true}, kPlain, "11520"},
        {1234567890.0, {.precision = 4, .plain = true}, kPlain, "1.2346e9"},
        {-999999999.4, {.precision = 4, .plain = true}, kPlain, "-999999999"},
        {0.00029720, {.precision = 4, .plain = true}, kPlain, "0.0002972"},
        {0.02885, {.precision = 4, .plain = true}, kPlain, "0.0289"},
        {0.00000123456, {.precision = 4, .plain = true}, kPlain, "0.000001235"},
        {0.000000123, {.precision = 4, .plain = true}, kPlain, "1.23e-7"},
        {1e-7, {.plain = true}, kGerman, "1e-7"},
        {-1.5e-100, {.plain = true}, kGerman, "-1,5e-100"},
        {1.0000001e-7, {.precision = 4, .shortExponent = true}, kPlain, "1e-7"},
        {1234567.0, {.shortExponent = true}, kPlain, "1.234567e6"},
        {1e12, {.plain = true}, kGerman, "1e12"},
        // A negative exponent counts one lower: 1e-5 has e = -6 and is still fixed with six digits.
        {0.00001, {General, 6}, kPlain, "0.00001"},
        {0.0000095, {General, 6}, kPlain, "9.500000e-06"},
        {1.5, {General, 0}, kPlain, "1.5"},
        {1.0 / 3, {General, 20}, kPlain, "0.333333333333333"},
        {-2.5, {General, 4}, kGerman, "-2,5"},
        {12345.678, {Fixed, 2}, kGerman, "12345,68"},
        {12.5, {Fixed, 4, true}, kPlain, "12.5"},
        {12.5, {Fixed, 4, false}, kPlain, "12.5000"},
        {12345678.9, {Fixed, 1, false, true}, kEnglish, "12,345,678.9"},
        {-123456.0, {Fixed, 0, false, true}, kGerman, "-123.456"},
        {-123.0, {Fixed, 0, false, true}, kGerman, "-123"},
        {1234567.5, {Fixed, 1, false, true}, kFrench, "1\u202f234\u202f567,5"},
        {1234567.0, {Scientific, 3, false, true}, kGerman, "1,235e+06"},
        {-0.0001, {Fixed, 2}, kPlain, "0.00"},
        {std::numeric_limits<double>::quiet_NaN(), {}, kPlain, ""},
        {std::numeric_limits<double>::infinity(), {}, kPlain, ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(numbertext::Format(c.value, c.style, c.separators), c.expected) << c.value;
}

TEST(NumberText, ReadsWhatALocaleWrites)
{
    const double kMax = std::numeric_limits<double>::max();
    struct Case
    {
        const char* text;
        numbertext::Separators separators;
        std::optional<double> expected;
    };
    const std::vector<Case> cases{
        {" 12.5 ", kPlain, 12.5},          {"+3", kPlain, 3.0},
        {"-.5e2", kPlain, -50.0},          {"1,5", kGerman, 1.5},
        {"1.234,5", kGerman, 1234.5},      {"1,234.5", kEnglish, 1234.5},
        {"1\u202f234,5", kFrench, 1234.5}, {"1\u00a0234,5", kFrench, 1234.5},
        {"1 234,5", kFrench, 1234.5},      {"1,5", kEnglish, 15.0},
        {"1,5", kPlain, std::nullopt},     {"1.5", kFrench, std::nullopt},
        {"1.2.3", kPlain, std::nullopt},   {"1e400", kPlain, kMax},
        {"-1e400", kPlain, -kMax},         {"1e-400", kPlain, 0.0},
        {"1e", kPlain, std::nullopt},      {"+-1", kPlain, std::nullopt},
        {"", kPlain, std::nullopt},        {"  ", kPlain, std::nullopt},
        {"nan", kPlain, std::nullopt},     {"inf", kPlain, std::nullopt},
        {"12abc", kPlain, std::nullopt},
    };
    for (const auto& c : cases)
        EXPECT_EQ(numbertext::Parse(c.text, c.separators), c.expected) << c.text;
}

TEST(NumberText, RoundsAlwaysUpward)
{
    const std::vector<std::tuple<double, int, double>> cases{{100.001, 2, 100.01},
                                                             {100.0000001, 2, 100.01},
                                                             {100.0, 2, 100.0},
                                                             {-1.239, 2, -1.23},
                                                             {1e300, 15, 1e300}};
    for (const auto& [value, decimals, expected] : cases)
        EXPECT_DOUBLE_EQ(numbertext::RoundUp(value, decimals), expected) << value;
    EXPECT_TRUE(std::isnan(numbertext::RoundUp(std::nan(""), 2)));
}

TEST(DelimitedText, ReadsQuotesAndLineEnds)
{
    using Rows = std::vector<delimited::Row>;
    const std::vector<std::pair<std::string, Rows>> cases{
        {"", {}},
        {"a,b\r\nc,d\n", {{"a", "b"}, {"c", "d"}}},
        {"a\rb", {{"a"}, {"b"}}},
        {"\"x, \"\"y\"\"\nz\",2", {{"x, \"y\"\nz", "2"}}},
        {"a,,\n\nb", {{"a", "", ""}, {""}, {"b"}}},
        {"\"never closed, 1\n2", {{"never closed, 1\n2"}}},
        {"\xef\xbb\xbfid,x", {{"id", "x"}}},
    };
    for (const auto& [text, rows] : cases)
        EXPECT_EQ(delimited::Parse(text, ','), rows) << text;
}

TEST(NumberText, AlignsDecimalSigns)
{
    const std::string digit = "\u2007";
    const std::string sign = "\u2008";
    std::vector<std::string> texts{"1,25", "-0,5", "1.000", "", "1,5e+20", "< 0,125", "12"};
    numbertext::AlignDecimals(texts, {",", "."});
    EXPECT_EQ(texts, (std::vector<std::string>{"1,25", "-0,5" + digit, "1.000" + sign + digit + digit, "",
                                               "1,5e+20", "< 0,125", "12" + sign + digit + digit}));
    std::vector<std::string> whole{"1", "20"};
    numbertext::AlignDecimals(whole, {});
    EXPECT_EQ(whole, (std::vector<std::string>{"1", "20"}));
}

TEST(ColumnText, FindsTheDecimalSignFromAllCells)
{
    struct Case
    {
        const char* text;
        char preferred;
        char sign;
        std::vector<std::optional<double>> values;
    };
    const std::vector<Case> cases{
        {"1,5\n2,25\n", '.', ',', {1.5, 2.25}},
        {"1.5\n2.25\n", ',', '.', {1.5, 2.25}},
        {"1.234,5\n7\n", '.', ',', {1234.5, 7.0}},
        {"1,234\n5,678\n", '.', '.', {1234.0, 5678.0}},
        {"1,234\n5,678\n", ',', ',', {1.234, 5.678}},
        {"1,234\n5,67\n", '.', ',', {1.234, 5.67}},
        {"0,125\n", '.', ',', {0.125}},
        {"1.234.567\n2\n", '.', ',', {1234567.0, 2.0}},
        // Limits of detection are amounts, and negative numbers are none.
        {"12\n\n<0.1\n-3\n", ',', '.', {12.0, std::nullopt, -0.1, std::nullopt}},
        // The column with the numbers is taken, whatever stands beside it.
        {"Na\t6,3\tmg/l\nCa\t15\tmg/l\n", '.', ',', {6.3, 15.0}},
    };
    for (const auto& c : cases) {
        const auto column = columntext::Parse(c.text, c.preferred);
        EXPECT_EQ(column.decimalSign, c.sign) << c.text;
        ASSERT_EQ(column.cells.size(), c.values.size()) << c.text;
        for (std::size_t i = 0; i < c.values.size(); ++i)
            EXPECT_EQ(column.cells[i].value, c.values[i]) << c.text << " cell " << i;
    }
    EXPECT_TRUE(columntext::Parse("", '.').cells.empty());
}

TEST(ColumnText, RefusesASheetAtOnce)
{
    using Kind = delimited::TooLarge::Kind;
    struct Case
    {
        std::string text;
        Kind kind;
        std::size_t limit;
    };
    const auto repeat = [](const std::string& text, std::size_t times) {
        std::string all;
        for (std::size_t i = 0; i < times; ++i)
            all += text;
        return all;
    };
    const std::vector<Case> cases{
        // Every column of the first row times every row would be 225 million cells.
        {std::string(15'000, '\t') + std::string(15'000, '\n'), Kind::Columns, 1'000},
        {"1\n" + std::string(15'000, '\n'), Kind::Rows, 1'000},
        {repeat(std::string(500, '\t') + "1\n", 500), Kind::Cells, 100'000},
        {'"' + std::string(2'000'000, '1'), Kind::Bytes, 1'048'576},
    };
    for (const auto& [text, kind, limit] : cases) {
        try {
            columntext::Parse(text, '.');
            ADD_FAILURE() << "not refused, limit " << limit;
        } catch (const delimited::TooLarge& error) {
            EXPECT_EQ(error.GetKind(), kind);
            EXPECT_EQ(error.GetLimit(), limit);
        }
    }
    // As much as may be: a wide row and many short ones, of which the last has the number.
    const auto column = columntext::Parse(std::string(999, '\t') + std::string(999, '\n') + "\t7", '.');
    ASSERT_EQ(column.cells.size(), 1'000u);
    EXPECT_EQ(column.cells.back().value, 7.0);
}

}  // namespace
