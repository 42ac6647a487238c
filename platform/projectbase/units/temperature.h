// SPDX-License-Identifier: MIT
#pragma once

/// A temperature together with the unit in which it was given.

#include "projectbase/projectbase_export.h"

#include <array>
#include <optional>
#include <string>

enum class TemperatureUnit : int
{
    Kelvin = 0,
    Celsius = 1,
    Fahrenheit = 2
};

/// In the order in which they are offered.
inline constexpr std::array kTemperatureUnits{TemperatureUnit::Celsius, TemperatureUnit::Fahrenheit,
                                              TemperatureUnit::Kelvin};

class PROJECTBASE_EXPORT Temperature
{
public:
    /// 0 °C, which is also what a missing value reads as.
    Temperature() = default;
    Temperature(double value, TemperatureUnit unit) : m_value(value), m_unit(unit) {}

    double GetValue() const { return m_value; }
    TemperatureUnit GetUnit() const { return m_unit; }
    void SetValue(double value) { m_value = value; }
    /// Address of the number, through which it is bound to a detail that holds it in the same unit.
    double* GetValueAddress() { return &m_value; }
    void SetUnit(TemperatureUnit unit) { m_unit = unit; }

    /// The same temperature expressed in `unit`.
    double In(TemperatureUnit unit) const;
    Temperature ConvertedTo(TemperatureUnit unit) const { return {In(unit), unit}; }

    /// "K", "°C" or "°F" as UTF-8.
    static const std::string& UnitText(TemperatureUnit unit);
    /// Unit of a text as above, with or without the degree sign; nothing for any other text.
    static std::optional<TemperatureUnit> UnitFromText(const std::string& utf8);

private:
    double m_value = 0.0;
    TemperatureUnit m_unit = TemperatureUnit::Celsius;
};
