// SPDX-License-Identifier: MIT
#include "projectbase/details/detail_display.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

TEST(DetailDisplay, ConvertsBothWays)
{
    const struct
    {
        const char* unit;
        const char* system;
        double iso;
        double shown;
        const char* text;
        const char* label;
    } cases[] = {
        {"bar", "us", 2.0, 29.00754754, "29.0075", "psi"},
        {"°C", "us", 25.0, 77.0, "77", "°F"},
        {"m3/h", "iso", 1234567.0, 1234567.0, "1.23457e+06", "m³/h"},
        {"mg/l", "us", 0.125, 0.125, "0.125", "mg/l"},
        {"m3", "us", 1.0, 1.0, "1", "m³"},  // fixed below
    };
    const DisplayFromDetail display({"m3"});
    const SetDetailFromDisplay set({"m3"});
    for (const auto& row : cases) {
        SCOPED_TRACE(row.unit);
        DetailData detail("d", DetailType::Double, row.unit);
        set.SetValue(detail, row.shown, row.system);
        EXPECT_NEAR(detail.GetDoubleValue(), row.iso, 1e-8 * row.iso);
        EXPECT_NEAR(display.GetValue(detail, row.system), row.shown, 1e-12 * row.shown);
        EXPECT_EQ(display.GetValueAsString(detail, row.system).utf8_string(), row.text);
        EXPECT_EQ(display.GetUnitLabel(detail, row.system).utf8_string(), row.label);
    }
}

TEST(DetailDisplay, ReadsTexts)
{
    const SetDetailFromDisplay set;
    const DisplayFromDetail display;
    DetailData temperature("t", DetailType::Double, "°C");
    EXPECT_TRUE(set.SetValue(temperature, wxString("50"), "us"));
    EXPECT_DOUBLE_EQ(temperature.GetDoubleValue(), 10.0);
    EXPECT_FALSE(set.SetValue(temperature, wxString("hot"), "us"));
    EXPECT_DOUBLE_EQ(temperature.GetDoubleValue(), 10.0);
    EXPECT_TRUE(set.SetValue(temperature, wxString(), "us"));
    EXPECT_TRUE(std::isnan(temperature.GetDoubleValue()));
    EXPECT_EQ(display.GetValueAsString(temperature, "us"), wxString());

    DetailData name("n", DetailType::String);
    EXPECT_TRUE(set.SetValue(name, wxString::FromUTF8("Zürich"), "us"));
    EXPECT_EQ(display.GetValueAsString(name, "us").utf8_string(), "Zürich");
    DetailData flag("b", DetailType::Bool);
    EXPECT_FALSE(set.SetValue(flag, wxString("perhaps"), "us"));
}

}  // namespace
