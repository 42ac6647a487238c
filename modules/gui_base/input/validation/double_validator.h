// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/input/validation/numeric_validator.h"

/// Validator of a `double` variable. Comparisons with the limits use the value rounded up at `precision`
/// decimals, against the limit as it is. A text that is no number leaves the variable as it is and rings the
/// bell.
class GUI_BASE_EXPORT DoubleValidator : public NumericValidator
{
public:
    /// `value` is not owned and may be null (then the field stays empty); `undef` is stored for an empty
    /// field.
    DoubleValidator(double* value, TvTextCtrlFormat format, int precision, int flags, double min, double max,
                    double undef);
    explicit DoubleValidator(double* value, TvTextCtrlFormat format = TvTextCtrlFormat::General,
                             int precision = 6, int flags = 0)
        : DoubleValidator(value, format, precision, flags, 0.0, 0.0, 0.0)
    {}
    DoubleValidator(const DoubleValidator& other) = default;
    DoubleValidator& operator=(const DoubleValidator& other);

    double GetMinValue() const { return m_minValue; }
    double GetMaxValue() const { return m_maxValue; }
    void SetMinValue(double min) { m_minValue = min; }
    void SetMaxValue(double max) { m_maxValue = max; }
    int GetPrecision() const { return m_precision; }
    void SetPrecision(int precision) { m_precision = precision; }
    /// The value rounded up at the validator's decimals; NaN without a value.
    double GetRoundedValue() const;

protected:
    DoubleValidator* DoClone() const override { return new DoubleValidator(*this); }
    void ConvertStringToValue() override;
    wxString DoFormatValueAsString(int extraDigits) override;
    void SetValueToUndef() override;
    bool IsValueNumeric() const override;
    bool IsValueLesserMininum() const override { return GetJudgedValue() < m_minValue; }
    bool IsValueLesserOrEqualMininum() const override { return GetJudgedValue() <= m_minValue; }
    void SetValueToMinimum() override { Store(m_minValue); }
    bool IsValueGreaterMaximum() const override { return GetJudgedValue() > m_maxValue; }
    bool IsValueGreaterOrEqualMaximum() const override { return GetJudgedValue() >= m_maxValue; }
    void SetValueToMaximum() override { Store(m_maxValue); }
    bool IsValueZero() const override;
    wxString FormatMinValueAsString() override { return FormatLimit(m_minValue); }
    wxString FormatMaxValueAsString() override { return FormatLimit(m_maxValue); }

private:
    wxString FormatLimit(double limit) const;
    /// What is compared with minimum and maximum: a limit of detection by its amount.
    double GetJudgedValue() const;
    void Store(double value)
    {
        if (m_value != nullptr)
            *m_value = value;
    }

    double* m_value;
    int m_precision;
    double m_minValue;
    double m_maxValue;
    double m_undefValue;
};
