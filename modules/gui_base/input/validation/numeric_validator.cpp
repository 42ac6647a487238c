// SPDX-License-Identifier: MIT
#include "gui_base/input/validation/numeric_validator.h"

#include "core/detection_limit.h"
#include "gui_base/input/validation/number_room.h"
#include "gui_base/support/events.h"
#include "gui_base/support/translation.h"

#include <wx/intl.h>
#include <wx/toplevel.h>
#include <wx/utils.h>

#include <clocale>

namespace {

/// Codes of control characters end here; those of navigation and numeric-pad keys begin there.
constexpr int kFirstPrintable = 32;
constexpr int kDelete = 127;
constexpr int kLastCharacter = 300;

enum StatusField
{
    kMinField = 0,
    kMaxField = 1,
    kValueField = 2
};

constexpr int kPreciseDigits = 2;

wxString NoNumberText(const wxString& name, const wxString& text, std::optional<double> becomes)
{
    if (becomes)
        return wxString::Format(i18n::Translated("%s: \"%s\" is no number; the value becomes %g"), name, text,
                                *becomes);
    // A number that is refused all the same is an amount below nothing.
    const char* const stays = NumericValidator::ParseNumber(text)
                                  ? wxTRANSLATE("%s: \"%s\" is below 0; the value stays as it was")
                                  : wxTRANSLATE("%s: \"%s\" is no number; the value stays as it was");
    return wxString::Format(i18n::Translated(stays), name, text);
}

/// To the message area of the frame around `window`: what `field` has to tell of its entry, or something that
/// is no single field's.
void Tell(wxWindow& window, wxWindow* field, std::vector<std::string> messages)
{
    if (!messages.empty() && !wxValidator::IsSilent())
        wxBell();
    wxWindow* const top = wxGetTopLevelParent(&window);
    if (top == nullptr)
        return;
    auto* const event =
        new MessageEvent(tv_MESSAGE, window.GetId(), std::string(), std::string(), std::move(messages));
    event->SetEventObject(field);
    wxQueueEvent(top, event);
}

}  // namespace

NumericValidator::NumericValidator(TvTextCtrlFormat format, int flags) : Validator(flags), m_format(format) {}

NumericValidator::NumericValidator(const NumericValidator& other) = default;

NumericValidator& NumericValidator::operator=(const NumericValidator& other)
{
    Validator::operator=(other);
    m_format = other.m_format;
    m_unit = other.m_unit;
    m_reported = other.m_reported;
    m_isRefused = other.m_isRefused;
    m_rangeFlag = other.m_rangeFlag;
    m_belowMinColour = other.m_belowMinColour;
    m_aboveMaxColour = other.m_aboveMaxColour;
    return *this;
}

numbertext::Separators NumericValidator::LocaleSeparators()
{
    // A panel formats a hundred numbers at a time: the toolkit is asked only after the C library's locale
    // changed.
    struct Cache
    {
        std::string decimal;
        std::string thousands;
        numbertext::Separators separators;
    };
    static Cache cache;
    const std::lconv* current = std::localeconv();
    if (cache.decimal == current->decimal_point && cache.thousands == current->thousands_sep)
        return cache.separators;
    cache.decimal = current->decimal_point;
    cache.thousands = current->thousands_sep;
    cache.separators.decimal = wxLocale::GetInfo(wxLOCALE_DECIMAL_POINT, wxLOCALE_CAT_NUMBER).utf8_string();
    cache.separators.thousands = wxLocale::GetInfo(wxLOCALE_THOUSANDS_SEP, wxLOCALE_CAT_NUMBER).utf8_string();
    if (cache.separators.decimal.empty())
        cache.separators.decimal.assign(1, '.');
    return cache.separators;
}

wxString NumericValidator::FormatValueAsString(int extraDigits)
{
    if (HasFlag(ZeroAsEmpty) && IsValueZero())
        return {};
    return DoFormatValueAsString(extraDigits);
}

void NumericValidator::DoTransferFromWindow()
{
    const bool isTyped = GetControlValue() != m_fitted;
    const bool wasRefused = m_isRefused;
    m_isRefused = false;
    if (IsControlEmpty())
        SetValueToUndef();
    else
        ConvertStringToValue();
    CheckLimits();
    ColourByRange();
    // A page reads all its fields at each edit: only another entry settles a refused one.
    if (wasRefused && !m_isRefused && isTyped)
        Tell(*m_validatorWindow, m_validatorWindow, {});
    else
        m_isRefused = m_isRefused || wasRefused;
}

void NumericValidator::DoTransferToWindow()
{
    m_reported.clear();
    if (!IsValueNumeric()) {
        // An unknown value violates nothing.
        m_rangeFlag = 0;
        ColourByRange();
        SetControlValue(wxString());
        m_fitted.clear();
        return;
    }
    CheckLimits();
    ColourByRange();
    const wxString text = FormatValueAsString(0);
    SetControlValue(text);
    // Measuring costs more than comparing.
    if (text != m_fitted)
        FitField();
    m_fitted = text;
}

void NumericValidator::FitField()
{
    auto* field = dynamic_cast<wxTextCtrl*>(m_validatorWindow);
    if (field == nullptr || field->IsMultiLine())
        return;
    // Whoever sets another width while the field is not wider than usual, sets the usual one.
    if (!m_isWider)
        m_usualWidth = field->GetMinSize().x;
    if (m_usualWidth <= 0)
        return;
    number_room::Fit(*field, m_usualWidth);
    m_isWider = field->GetMinSize().x > m_usualWidth;
}

void NumericValidator::CheckLimits()
{
    m_rangeFlag = 0;
    const bool clamp = HasFlag(ClampToLimits);
    if ((HasFlag(CheckMin) && IsValueLesserMininum()) ||
        (HasFlag(CheckMinExclusive) && IsValueLesserOrEqualMininum())) {
        if (clamp)
            SetValueToMinimum();
        else
            m_rangeFlag = -1;
    }
    if ((HasFlag(CheckMax) && IsValueGreaterMaximum()) ||
        (HasFlag(CheckMaxExclusive) && IsValueGreaterOrEqualMaximum())) {
        if (clamp)
            SetValueToMaximum();
        else
            m_rangeFlag = 1;
    }
}

void NumericValidator::ColourByRange()
{
    if (m_rangeFlag < 0)
        SetControlBackgroundColor(m_belowMinColour);
    else if (m_rangeFlag > 0)
        SetControlBackgroundColor(m_aboveMaxColour);
    else
        SetControlBackgroundColor(GetDefaultColor());
}

void NumericValidator::UpdateStatusbar()
{
    if (HasFlag(CheckMin) || HasFlag(CheckMinExclusive))
        SetStatusbarText("Min" + i18n::Colon() + " " + WithUnit(FormatMinValueAsString()), kMinField);
    if (HasFlag(CheckMax) || HasFlag(CheckMaxExclusive))
        SetStatusbarText("Max" + i18n::Colon() + " " + WithUnit(FormatMaxValueAsString()), kMaxField);
    if (HasFlag(ShowPreciseValue))
        SetStatusbarText(
            i18n::Translated("Value") + i18n::Colon() + " " + WithUnit(FormatValueAsString(kPreciseDigits)),
            kValueField);
}

wxString NumericValidator::WithUnit(const wxString& number) const
{
    return number.empty() || m_unit.empty() ? number : number + " " + m_unit;
}

bool NumericValidator::IsAllowedKey(int key) const
{
    if (key < kFirstPrintable || key == kDelete || key > kLastCharacter)
        return true;
    if (key == '<')
        return HasFlag(DetectionLimits);
    return (key >= '0' && key <= '9') || key == '.' || key == ',' || key == '+' || key == '-' || key == 'e' ||
           key == 'E';
}

wxString NumericValidator::FormatNumber(double value, const numbertext::Style& style)
{
    return wxString::FromUTF8(numbertext::Format(value, style, LocaleSeparators()));
}

wxString NumericValidator::FormatNumber(double value, int precision) const
{
    const numbertext::Style style{.format = m_format,
                                  .precision = precision,
                                  .trimZeros = HasFlag(TrimZeros),
                                  .groupThousands = HasFlag(GroupThousands),
                                  .plain = HasFlag(PlainNumbers),
                                  .shortExponent = HasFlag(ShortExponents)};
    return HasFlag(DetectionLimits)
               ? wxString::FromUTF8(detection_limit::Format(value, style, LocaleSeparators()))
               : FormatNumber(value, style);
}

namespace {

/// A point or a comma that neither groups nor is the locale's own sign can only be meant as the decimal one.
std::string WithLocaleSign(wxString text, const numbertext::Separators& separators)
{
    for (const char* const sign : {".", ","}) {
        if (separators.decimal != sign && separators.thousands != sign)
            text.Replace(sign, wxString::FromUTF8(separators.decimal));
    }
    return text.utf8_string();
}

}  // namespace

std::optional<double> NumericValidator::ParseNumber(const wxString& text)
{
    const numbertext::Separators separators = LocaleSeparators();
    return numbertext::Parse(WithLocaleSign(text, separators), separators);
}

std::optional<double> NumericValidator::ParseAmount(const wxString& text)
{
    const numbertext::Separators separators = LocaleSeparators();
    return detection_limit::Parse(WithLocaleSign(text, separators), separators);
}

std::optional<double> NumericValidator::ParseControlValue(std::optional<double> becomes)
{
    const wxString text = GetControlValue();
    const auto value = HasFlag(DetectionLimits) ? ParseAmount(text) : ParseNumber(text);
    if (!value && text != m_reported)
        ReportNoNumber(text, becomes);
    m_reported = value ? wxString() : text;
    m_isRefused = !value && !becomes;
    return value ? value : becomes;
}

void NumericValidator::ReportNoNumber(const wxString& text, std::optional<double> becomes)
{
    Tell(*m_validatorWindow, m_validatorWindow,
         {NoNumberText(m_validatorWindow->GetName(), text, becomes).utf8_string()});
}

void NumericValidator::TellNoNumber(wxWindow& window, const wxString& name, const wxString& text)
{
    Tell(window, nullptr, {NoNumberText(name, text, std::nullopt).utf8_string()});
}
