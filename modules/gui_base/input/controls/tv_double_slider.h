// SPDX-License-Identifier: MIT
#pragma once

/// A slider for decimal values with a fixed number of decimals.
///
/// The slider inside works on scaled integers: value × 10^decimals. Its own labels could only show those, so
/// the panel draws minimum, value and maximum itself where the style asks for labels; they are written with
/// the decimal sign of the current locale. The value label follows the user's moves as well as `SetValue`.
///
/// The control sends no events of its own. The slider's events climb: bind wxEVT_SLIDER (or wxEVT_SCROLL_...)
/// on this control; the slider inside has the same identifier. The wheel over a slider without the focus
/// scrolls the panel around it. GUI thread only.

#include "gui_base/gui_base_export.h"

#include <wx/panel.h>
#include <wx/slider.h>

class wxBoxSizer;
class wxStaticText;

class GUI_BASE_EXPORT TvDoubleSlider : public wxPanel
{
public:
    /// `value`, `minValue` and `maxValue` are scaled. A negative count of decimals scales by a factor below 1
    /// while the labels show no decimals. `style`, `validator` (of the scaled integer) and `name` belong to
    /// the slider; wxSL_MIN_MAX_LABELS or wxSL_VALUE_LABEL in the style ask for the row of labels. Throws
    /// std::invalid_argument when the minimum exceeds the maximum.
    TvDoubleSlider(wxWindow* parent, int id, int decimalPlaces, int value, int minValue, int maxValue,
                   const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                   long style = wxSL_HORIZONTAL, const wxValidator& validator = wxDefaultValidator,
                   const wxString& name = wxASCII_STR(wxSliderNameStr));

    /// Moves the slider; a value outside the range ends at the nearer limit.
    void SetValue(int value);
    int GetValue() const;
    /// The value in its decimal form; 0 when the scale is not positive.
    double GetDoubleValue() const;
    /// The scaled integer of a decimal value, truncated toward zero. The product of doubles is truncated as
    /// it is: 0.29 with two decimals gives 28. No number gives 0; what no int can hold gives the nearest int.
    int FromDoubleValue(double value) const;
    /// Both limits, scaled; a present value outside them moves to the nearer one. Throws
    /// std::invalid_argument when `min` exceeds `max`.
    void SetRange(int min, int max);
    /// How far Page Up, Page Down and a click beside the thumb move, scaled.
    void SetPageSize(int pageSize);
    /// Shows what the slider's validator is bound to, in the value label too.
    bool TransferDataToWindow() override;

private:
    static bool StyleHasLabels(long style);
    static long GetStyleWithoutLabels(long style);

    void LimitDecimalPlacesToPositiveValue(int decimalPlaces);
    void ConvertDecimalPlacesToConversionFactor(int decimalPlaces);
    void CreateControls(int id, int value, int minValue, int maxValue, long style,
                        const wxValidator& validator, const wxString& name);
    void CreateSizers();
    void CreateSlider(int id, int value, int minValue, int maxValue, long style, const wxValidator& validator,
                      const wxString& name);
    void CreateSliderWithLabels(int id, int value, int minValue, int maxValue, long style,
                                const wxValidator& validator, const wxString& name);
    void CreateLabels();
    void CreateMinLabel();
    void CreateValueLabel();
    void CreateMaxLabel();

    wxString ToFormattedDoubleString(int value) const;
    void SetMinLabel(int min);
    void SetMaxLabel(int max);
    void SetMinMaxLabels(int min, int max);
    void SetValueLabel(int value);
    void ShowText(wxStaticText* label, int value);

    int m_decimalPlaces = 0;
    double m_conversionFactor = 1.0;
    wxSlider* m_slider = nullptr;
    // Null without labels.
    wxStaticText* m_minLabel = nullptr;
    wxStaticText* m_maxLabel = nullptr;
    wxStaticText* m_valueLabel = nullptr;
    wxBoxSizer* m_mainSizer = nullptr;
    wxBoxSizer* m_labelSizer = nullptr;
};
