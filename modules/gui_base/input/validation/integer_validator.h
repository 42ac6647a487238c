// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/input/validation/numeric_validator.h"

/// Validator of a `long` variable. A decimal number is cut off at its point; numbers beyond 32 bits become
/// the nearest 32-bit one.
class GUI_BASE_EXPORT IntegerValidator : public NumericValidator
{
public:
    /// `value` is not owned and may be null; `undef` is stored for an empty field.
    IntegerValidator(long* value, TvTextCtrlFormat format, int flags, long min, long max, long undef);
    IntegerValidator(const IntegerValidator& other) = default;
    IntegerValidator& operator=(const IntegerValidator& other);

    long GetMinValue() const { return m_minValue; }
    long GetMaxValue() const { return m_maxValue; }

protected:
    IntegerValidator* DoClone() const override { return new IntegerValidator(*this); }
    void ConvertStringToValue() override;
    wxString DoFormatValueAsString(int extraDigits) override;
    void SetValueToUndef() override { Store(m_undefValue); }
    bool IsValueNumeric() const override { return true; }
    bool IsValueLesserMininum() const override { return Value() < m_minValue; }
    bool IsValueLesserOrEqualMininum() const override { return Value() <= m_minValue; }
    void SetValueToMinimum() override { Store(m_minValue); }
    bool IsValueGreaterMaximum() const override { return Value() > m_maxValue; }
    bool IsValueGreaterOrEqualMaximum() const override { return Value() >= m_maxValue; }
    void SetValueToMaximum() override { Store(m_maxValue); }
    bool IsValueZero() const override { return Value() == 0; }
    wxString FormatMinValueAsString() override { return FormatLong(m_minValue); }
    wxString FormatMaxValueAsString() override { return FormatLong(m_maxValue); }

private:
    static wxString FormatLong(long value) { return wxString::Format("%ld", value); }
    long Value() const { return m_value != nullptr ? *m_value : 0; }
    void Store(long value)
    {
        if (m_value != nullptr)
            *m_value = value;
    }

    long* m_value;
    long m_minValue;
    long m_maxValue;
    long m_undefValue;
};
