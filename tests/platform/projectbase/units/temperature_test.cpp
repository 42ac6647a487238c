// SPDX-License-Identifier: MIT
#include "projectbase/units/temperature.h"

#include <gtest/gtest.h>

namespace {

TEST(Temperature, ConvertsBetweenAllUnits)
{
    using enum TemperatureUnit;
    const struct
    {
        double kelvin;
        double celsius;
        double fahrenheit;
    } fixedPoints[] = {
        {273.15, 0.0, 32.0}, {373.15, 100.0, 212.0}, {233.15, -40.0, -40.0}, {0.0, -273.15, -459.67}};
    for (const auto& point : fixedPoints) {
        const Temperature given[] = {
            {point.kelvin, Kelvin}, {point.celsius, Celsius}, {point.fahrenheit, Fahrenheit}};
        for (const Temperature& temperature : given) {
            SCOPED_TRACE(Temperature::UnitText(temperature.GetUnit()));
            EXPECT_NEAR(temperature.In(Kelvin), point.kelvin, 1e-10);
            EXPECT_NEAR(temperature.In(Celsius), point.celsius, 1e-10);
            EXPECT_NEAR(temperature.In(Fahrenheit), point.fahrenheit, 1e-10);
        }
    }
    // The unit it was given in is not converted at all.
    EXPECT_EQ(Temperature(61.7, Fahrenheit).In(Fahrenheit), 61.7);
}

TEST(Temperature, ReadsUnitTexts)
{
    EXPECT_EQ(Temperature::UnitFromText("°C"), TemperatureUnit::Celsius);
    EXPECT_EQ(Temperature::UnitFromText("F"), TemperatureUnit::Fahrenheit);
    EXPECT_EQ(Temperature::UnitFromText("K"), TemperatureUnit::Kelvin);
    for (const char* text : {"", "°", "°K", "c", "°d", "°C "})
        EXPECT_EQ(Temperature::UnitFromText(text), std::nullopt) << text;
}

}  // namespace
