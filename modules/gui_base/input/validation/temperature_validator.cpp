// SPDX-License-Identifier: MIT
#include "gui_base/input/validation/temperature_validator.h"

#include <cmath>

TemperatureValidator::TemperatureValidator(Temperature* value, TvTextCtrlFormat format, int precision,
                                           int flags, Temperature min, Temperature max, Temperature undef)
    : NumericValidator(format, flags),
      m_value(value),
      m_precision(precision),
      m_minValue(min),
      m_maxValue(max),
      m_undefValue(undef)
{}

TemperatureValidator& TemperatureValidator::operator=(const TemperatureValidator& other)
{
    NumericValidator::operator=(other);
    m_value = other.m_value;
    m_precision = other.m_precision;
    m_minValue = other.m_minValue;
    m_maxValue = other.m_maxValue;
    m_undefValue = other.m_undefValue;
    return *this;
}

void TemperatureValidator::SetLimits(Temperature min, Temperature max)
{
    m_minValue = min;
    m_maxValue = max;
}

double TemperatureValidator::GetRoundedValue() const
{
    return numbertext::RoundUp(GetValue().GetValue(), m_precision);
}

void TemperatureValidator::ConvertStringToValue()
{
    if (const auto value = ParseControlValue(); value && m_value != nullptr)
        m_value->SetValue(*value);
}

wxString TemperatureValidator::DoFormatValueAsString(int extraDigits)
{
    return m_value != nullptr ? FormatNumber(m_value->GetValue(), m_precision + extraDigits) : wxString();
}

bool TemperatureValidator::IsValueNumeric() const
{
    return m_value != nullptr && std::isfinite(m_value->GetValue());
}

bool TemperatureValidator::IsValueZero() const
{
    return GetValue().GetValue() == 0.0;
}

void TemperatureValidator::Store(const Temperature& temperature)
{
    if (m_value != nullptr)
        m_value->SetValue(InValueUnit(temperature));
}
