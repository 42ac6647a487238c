// SPDX-License-Identifier: MIT
#include "projectbase/units/temperature.h"

#include <array>

namespace {

constexpr double kZeroCelsius = 273.15;

double ToCelsius(double value, TemperatureUnit unit)
{
    switch (unit) {
        case TemperatureUnit::Kelvin:
            return value - kZeroCelsius;
        case TemperatureUnit::Fahrenheit:
            return (value - 32.0) / 1.8;
        case TemperatureUnit::Celsius:
            break;
    }
    return value;
}

const std::array<std::string, 3> kUnitTexts{"K", "\u00b0C", "\u00b0F"};

}  // namespace

double Temperature::In(TemperatureUnit unit) const
{
    if (unit == m_unit)
        return m_value;
    const double celsius = ToCelsius(m_value, m_unit);
    switch (unit) {
        case TemperatureUnit::Kelvin:
            return celsius + kZeroCelsius;
        case TemperatureUnit::Fahrenheit:
            return celsius * 1.8 + 32.0;
        case TemperatureUnit::Celsius:
            break;
    }
    return celsius;
}

const std::string& Temperature::UnitText(TemperatureUnit unit)
{
    return kUnitTexts[static_cast<std::size_t>(unit)];
}

std::optional<TemperatureUnit> Temperature::UnitFromText(const std::string& utf8)
{
    for (std::size_t i = 0; i < kUnitTexts.size(); ++i) {
        const std::string& text = kUnitTexts[i];
        if (utf8 == text || (i > 0 && utf8 == text.substr(text.size() - 1)))
            return static_cast<TemperatureUnit>(i);
    }
    return std::nullopt;
}
