// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/input/validation/numeric_validator.h"
#include "projectbase/units/temperature.h"

/// Validator of a `Temperature` variable. The text is read in the unit that the variable has; limits are
/// compared in that unit and converted into it when the value is put at a limit.
class GUI_BASE_EXPORT TemperatureValidator : public NumericValidator
{
public:
    /// `value` is not owned; a missing one reads as 0 °C. `undef` is stored for an empty field.
    TemperatureValidator(Temperature* value, TvTextCtrlFormat format, int precision, int flags,
                         Temperature min, Temperature max, Temperature undef);
    TemperatureValidator(const TemperatureValidator& other) = default;
    TemperatureValidator& operator=(const TemperatureValidator& other);

    Temperature GetMinValue() const { return m_minValue; }
    Temperature GetMaxValue() const { return m_maxValue; }
    Temperature GetValue() const { return m_value != nullptr ? *m_value : Temperature(); }
    void SetLimits(Temperature min, Temperature max);
    double GetRoundedValue() const;

protected:
    TemperatureValidator* DoClone() const override { return new TemperatureValidator(*this); }
    void ConvertStringToValue() override;
    wxString DoFormatValueAsString(int extraDigits) override;
    void SetValueToUndef() override { Store(m_undefValue); }
    bool IsValueNumeric() const override;
    bool IsValueLesserMininum() const override { return GetRoundedValue() < InValueUnit(m_minValue); }
    bool IsValueLesserOrEqualMininum() const override { return GetRoundedValue() <= InValueUnit(m_minValue); }
    void SetValueToMinimum() override { Store(m_minValue); }
    bool IsValueGreaterMaximum() const override { return GetRoundedValue() > InValueUnit(m_maxValue); }
    bool IsValueGreaterOrEqualMaximum() const override
    {
        return GetRoundedValue() >= InValueUnit(m_maxValue);
    }
    void SetValueToMaximum() override { Store(m_maxValue); }
    bool IsValueZero() const override;
    wxString FormatMinValueAsString() override { return FormatNumber(InValueUnit(m_minValue), m_precision); }
    wxString FormatMaxValueAsString() override { return FormatNumber(InValueUnit(m_maxValue), m_precision); }

private:
    double InValueUnit(const Temperature& temperature) const { return temperature.In(GetValue().GetUnit()); }
    /// Stores `temperature` expressed in the unit that the value has.
    void Store(const Temperature& temperature);

    Temperature* m_value;
    int m_precision;
    Temperature m_minValue;
    Temperature m_maxValue;
    Temperature m_undefValue;
};
