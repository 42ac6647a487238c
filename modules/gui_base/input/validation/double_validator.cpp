// SPDX-License-Identifier: MIT
#include "gui_base/input/validation/double_validator.h"

#include "core/detection_limit.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kZeroTolerance = 1e-99;
constexpr int kLeastLimitDigits = 6;

}  // namespace

DoubleValidator::DoubleValidator(double* value, TvTextCtrlFormat format, int precision, int flags, double min,
                                 double max, double undef)
    : NumericValidator(format, flags),
      m_value(value),
      m_precision(precision),
      m_minValue(min),
      m_maxValue(max),
      m_undefValue(undef)
{}

DoubleValidator& DoubleValidator::operator=(const DoubleValidator& other)
{
    NumericValidator::operator=(other);
    m_value = other.m_value;
    m_precision = other.m_precision;
    m_minValue = other.m_minValue;
    m_maxValue = other.m_maxValue;
    m_undefValue = other.m_undefValue;
    return *this;
}

double DoubleValidator::GetRoundedValue() const
{
    return m_value != nullptr ? numbertext::RoundUp(*m_value, m_precision)
                              : std::numeric_limits<double>::quiet_NaN();
}

double DoubleValidator::GetJudgedValue() const
{
    if (HasFlag(DetectionLimits) && m_value != nullptr && detection_limit::Is(*m_value))
        return numbertext::RoundUp(-*m_value, m_precision);
    return GetRoundedValue();
}

void DoubleValidator::ConvertStringToValue()
{
    if (const auto value = ParseControlValue())
        Store(*value);
}

wxString DoubleValidator::DoFormatValueAsString(int extraDigits)
{
    if (m_value == nullptr)
        return {};
    return FormatNumber(*m_value, m_precision + extraDigits);
}

void DoubleValidator::SetValueToUndef()
{
    Store(m_undefValue);
}

bool DoubleValidator::IsValueNumeric() const
{
    return m_value != nullptr && std::isfinite(*m_value);
}

bool DoubleValidator::IsValueZero() const
{
    return m_value == nullptr || std::fabs(*m_value) <= kZeroTolerance;
}

wxString DoubleValidator::FormatLimit(double limit) const
{
    return NumericValidator::FormatNumber(limit, {.format = TvTextCtrlFormat::General,
                                                  .precision = std::max(m_precision, kLeastLimitDigits) + 1,
                                                  .shortExponent = HasFlag(ShortExponents)});
}
