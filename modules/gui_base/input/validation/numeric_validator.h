// SPDX-License-Identifier: MIT
#pragma once

/// Validator of a field that shows a number: parses and formats by the user's locale, checks limits, and
/// either colours the field or puts the value at the limit. The range flag lasts until the next check;
/// bindings hand it on to the project.

#include "core/number_text.h"
#include "gui_base/input/validation/validator.h"

class GUI_BASE_EXPORT NumericValidator : public Validator
{
public:
    NumericValidator(TvTextCtrlFormat format, int flags);
    NumericValidator(const NumericValidator& other);
    NumericValidator& operator=(const NumericValidator& other);

    /// -1 below minimum, 0 in range, +1 above maximum.
    int GetRangeFlag() const { return m_rangeFlag; }
    TvTextCtrlFormat GetFormat() const { return m_format; }
    /// The unit of the value as its field shows it, which stands behind the hints in the status bar; empty
    /// for none.
    void SetUnit(const wxString& unit) { m_unit = unit; }
    /// The value as text with `extraDigits` more digits; empty for a zero that is shown as an empty field.
    wxString FormatValueAsString(int extraDigits);
    /// The minimum or the maximum as the status bar shows it.
    wxString GetLimitText(bool minimum)
    {
        return minimum ? FormatMinValueAsString() : FormatMaxValueAsString();
    }
    const wxColour& GetBelowMinColour() const { return m_belowMinColour; }
    const wxColour& GetAboveMaxColour() const { return m_aboveMaxColour; }

    /// Separators of the current locale.
    static numbertext::Separators LocaleSeparators();
    /// The number that a typed text states in the current locale. A point stands for the decimal sign where
    /// the locale knows no other use of it.
    static std::optional<double> ParseNumber(const wxString& text);
    /// An amount, or a limit of detection ("<0.05") as core/detection_limit.h has it; nothing for a negative
    /// number.
    static std::optional<double> ParseAmount(const wxString& text);
    /// Rings the bell and tells the message area of the frame around `window` that a value's text is no
    /// number, and that the value stays as it was.
    static void TellNoNumber(wxWindow& window, const wxString& name, const wxString& text);

protected:
    void DoTransferFromWindow() override;
    void DoTransferToWindow() override;
    void UpdateStatusbar() override;
    bool IsAllowedKey(int key) const override;

    virtual void ConvertStringToValue() = 0;
    virtual wxString DoFormatValueAsString(int extraDigits) = 0;
    virtual void SetValueToUndef() = 0;
    virtual bool IsValueNumeric() const = 0;
    virtual bool IsValueLesserMininum() const = 0;
    virtual bool IsValueLesserOrEqualMininum() const = 0;
    virtual void SetValueToMinimum() = 0;
    virtual bool IsValueGreaterMaximum() const = 0;
    virtual bool IsValueGreaterOrEqualMaximum() const = 0;
    virtual void SetValueToMaximum() = 0;
    virtual bool IsValueZero() const = 0;
    virtual wxString FormatMinValueAsString() = 0;
    virtual wxString FormatMaxValueAsString() = 0;

    /// Sets the range flag or the value by the limits; the maximum is checked last and wins.
    void CheckLimits();
    /// Formats a number in this validator's notation.
    wxString FormatNumber(double value, int precision) const;
    static wxString FormatNumber(double value, const numbertext::Style& style);
    /// The number that the control's text states in the current locale. A text that states none rings the
    /// bell and is reported to the frame's message area by a MessageEvent, once as long as it stands there:
    /// `becomes` is the number taken instead; without it the value stays as it was, and the report is
    /// withdrawn by the next number that the user enters.
    std::optional<double> ParseControlValue(std::optional<double> becomes = std::nullopt);

private:
    void ColourByRange();
    /// A number that is longer than usual ones shows its exponent, too.
    void FitField();
    void ReportNoNumber(const wxString& text, std::optional<double> becomes);
    /// A number of this field with its unit.
    wxString WithUnit(const wxString& number) const;

    TvTextCtrlFormat m_format;
    int m_rangeFlag = 0;
    wxString m_unit;
    wxString m_reported;  ///< the text that was reported last as no number
    bool m_isRefused = false;
    wxString m_fitted;      ///< the text of the value, for which the field has room
    int m_usualWidth = -1;  ///< of the field without a long number in it
    bool m_isWider = false;
    wxColour m_belowMinColour{128, 192, 255};
    wxColour m_aboveMaxColour{255, 160, 144};
};
