// SPDX-License-Identifier: MIT
#include "projectbase/details/detail_data.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(DetailData, PrintsDoublesWithThreeExponentDigits)
{
    const struct
    {
        double value;
        const char* text;
    } cases[] = {
        {0.0, "0.00000000000000E+000"},    {-0.0, "-0.00000000000000E+000"},
        {1.0, "1.00000000000000E+000"},    {-12.5, "-1.25000000000000E+001"},
        {1e-7, "1.00000000000000E-007"},   {6.02e123, "6.02000000000000E+123"},
        {5e-324, "4.94065645841247E-324"}, {std::nan(""), ""},
    };
    for (const auto& row : cases) {
        DetailData detail("d");
        detail.SetValue(row.value);
        EXPECT_EQ(detail.GetValueAsString().utf8_string(), row.text);
    }
}

TEST(DetailData, KeepsItsTypeWhateverIsWritten)
{
    DetailData number("n");
    number.SetValue("1.5");
    EXPECT_EQ(number.GetDoubleValue(), 1.5);
    number.SetValue(true);
    EXPECT_EQ(number.GetDoubleValue(), 1.0);

    DetailData integer("i", DetailType::Long);
    integer.SetValue(1e300);
    EXPECT_EQ(integer.GetLongValue(), std::numeric_limits<long>::max());
    integer.SetValue(-kInfinity);
    EXPECT_EQ(integer.GetLongValue(), std::numeric_limits<long>::min());
    integer.SetValue(std::nan(""));
    EXPECT_EQ(integer.GetLongValue(), 0);
    integer.SetValue(std::numeric_limits<long>::max() - 1);  // beyond the 53 bits of a double
    EXPECT_EQ(integer.GetLongValue(), std::numeric_limits<long>::max() - 1);

    DetailData flag("b", DetailType::Bool);
    flag.SetValue(std::nan(""));
    EXPECT_FALSE(flag.GetBoolValue());
    flag.SetValue(2);
    EXPECT_TRUE(flag.GetBoolValue());

    DetailData text("s", DetailType::String);
    text.SetValue("Gr\u00f6\u00dfe");
    EXPECT_EQ(text.GetStdStringValue(), "Gr\u00f6\u00dfe");
    EXPECT_EQ(text.GetDoubleValue(), 0.0);
    text.SetValue("2.5");
    EXPECT_EQ(text.GetDoubleValue(), 2.5);

    DetailData date("t", DetailType::Date);
    date.SetValue(wxDateTime(29, wxDateTime::Feb, 2024));
    EXPECT_EQ(date.GetValueAsString().utf8_string(), "2024-02-29T00:00:00");
    date.SetValue(5.0);
    EXPECT_TRUE(date.GetDateValue().IsValid());
}

TEST(DetailData, RefusesTextsItsTypeCannotHold)
{
    const struct
    {
        DetailType type;
        const char* good;
        const char* bad;
    } cases[] = {
        {DetailType::Double, "1.50000000000000E+000", "1,5"},
        {DetailType::Double, " 2 ", "1e400"},
        {DetailType::Double, "-3", "nan"},
        {DetailType::Double, "4", "inf"},
        {DetailType::Long, "12", "twelve"},
        {DetailType::Bool, "TRUE", "yes"},
        {DetailType::Date, "2024-02-29", "2023-02-29"},
    };
    for (const auto& row : cases) {
        DetailData detail("d", row.type);
        EXPECT_TRUE(detail.SetValueFromString(row.good)) << row.good;
        const wxString before = detail.GetValueAsString();
        EXPECT_FALSE(detail.SetValueFromString(row.bad)) << row.bad;
        EXPECT_EQ(detail.GetValueAsString(), before) << row.bad;
    }
}

TEST(DetailData, ComparesBitByBit)
{
    DetailData a("a");
    DetailData b("b");
    a.SetValue(0.0);
    b.SetValue(-0.0);
    EXPECT_FALSE(a.HasSameValue(b));
    a.SetValue(std::nan(""));
    b.SetValue(-std::nan(""));
    EXPECT_TRUE(a.HasSameValue(b));
    a.SetValue(0.1 + 0.2);
    b.SetValue(0.3);
    EXPECT_FALSE(a.HasSameValue(b));
    b.CopyValue(a);
    EXPECT_TRUE(a.HasSameValue(b));
}

}  // namespace
