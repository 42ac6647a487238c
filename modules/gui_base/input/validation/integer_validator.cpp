// SPDX-License-Identifier: MIT
#include "gui_base/input/validation/integer_validator.h"

#include <algorithm>

namespace {

constexpr double kLeast = -2147483648.0;
constexpr double kGreatest = 2147483647.0;

}  // namespace

IntegerValidator::IntegerValidator(long* value, TvTextCtrlFormat format, int flags, long min, long max,
                                   long undef)
    : NumericValidator(format, flags), m_value(value), m_minValue(min), m_maxValue(max), m_undefValue(undef)
{}

IntegerValidator& IntegerValidator::operator=(const IntegerValidator& other)
{
    NumericValidator::operator=(other);
    m_value = other.m_value;
    m_minValue = other.m_minValue;
    m_maxValue = other.m_maxValue;
    m_undefValue = other.m_undefValue;
    return *this;
}

void IntegerValidator::ConvertStringToValue()
{
    long value = 0;
    if (GetControlValue().ToLong(&value, 10)) {
        Store(std::clamp(value, static_cast<long>(kLeast), static_cast<long>(kGreatest)));
        return;
    }
    const double parsed = *ParseControlValue(0.0);
    Store(static_cast<long>(std::clamp(parsed, kLeast, kGreatest)));
}

wxString IntegerValidator::DoFormatValueAsString(int)
{
    return m_value != nullptr ? FormatLong(*m_value) : wxString();
}
