// SPDX-License-Identifier: MIT
#include "gui_base/input/controls/tv_double_slider.h"

#include "gui_base/input/controls/wheel.h"

#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>

namespace {

constexpr long kLabelStyles = wxSL_MIN_MAX_LABELS | wxSL_VALUE_LABEL;

void RequireOrdered(int min, int max, const char* method)
{
    if (min > max)
        throw std::invalid_argument(std::string("TvDoubleSlider::") + method +
                                    ": the minimum exceeds the maximum");
}

}  // namespace

TvDoubleSlider::TvDoubleSlider(wxWindow* parent, int id, int decimalPlaces, int value, int minValue,
                               int maxValue, const wxPoint& pos, const wxSize& size, long style,
                               const wxValidator& validator, const wxString& name)
    : wxPanel(parent, id, pos, size)
{
    RequireOrdered(minValue, maxValue, "TvDoubleSlider");
    LimitDecimalPlacesToPositiveValue(decimalPlaces);
    ConvertDecimalPlacesToConversionFactor(decimalPlaces);
    CreateControls(GetId(), value, minValue, maxValue, style, validator, name);
    SetMinMaxLabels(minValue, maxValue);
    SetValue(value);
    Bind(wxEVT_SLIDER, [this](wxCommandEvent& event) {
        event.Skip();
        SetValueLabel(GetValue());
    });
    m_slider->Bind(wxEVT_MOUSEWHEEL, [this](wxMouseEvent& event) {
        wheel::ScrollParentUnlessFocused(*m_slider, event, GetParent());
    });
    SetInitialSize(size);
    Layout();
}

void TvDoubleSlider::SetValue(int value)
{
    m_slider->SetValue(value);
    SetValueLabel(m_slider->GetValue());
}

int TvDoubleSlider::GetValue() const
{
    return m_slider->GetValue();
}

double TvDoubleSlider::GetDoubleValue() const
{
    if (m_slider == nullptr || !(m_conversionFactor > 0.0))
        return 0.0;
    return m_slider->GetValue() / m_conversionFactor;
}

int TvDoubleSlider::FromDoubleValue(double value) const
{
    const double scaled = value * m_conversionFactor;
    if (std::isnan(scaled))
        return 0;
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(
        std::clamp(scaled, static_cast<double>(Limits::min()), static_cast<double>(Limits::max())));
}

void TvDoubleSlider::SetRange(int min, int max)
{
    RequireOrdered(min, max, "SetRange");
    m_slider->SetRange(min, max);
    SetMinMaxLabels(min, max);
    SetValueLabel(GetValue());
}

bool TvDoubleSlider::TransferDataToWindow()
{
    const bool transferred = wxPanel::TransferDataToWindow();
    SetValueLabel(GetValue());
    return transferred;
}

void TvDoubleSlider::SetPageSize(int pageSize)
{
    m_slider->SetPageSize(pageSize);
}

bool TvDoubleSlider::StyleHasLabels(long style)
{
    return (style & kLabelStyles) != 0;
}

long TvDoubleSlider::GetStyleWithoutLabels(long style)
{
    return style & ~kLabelStyles;
}

void TvDoubleSlider::LimitDecimalPlacesToPositiveValue(int decimalPlaces)
{
    m_decimalPlaces = std::max(decimalPlaces, 0);
}

void TvDoubleSlider::ConvertDecimalPlacesToConversionFactor(int decimalPlaces)
{
    m_conversionFactor = std::pow(10.0, decimalPlaces);
}

void TvDoubleSlider::CreateControls(int id, int value, int minValue, int maxValue, long style,
                                    const wxValidator& validator, const wxString& name)
{
    CreateSizers();
    if (StyleHasLabels(style))
        CreateSliderWithLabels(id, value, minValue, maxValue, style, validator, name);
    else
        CreateSlider(id, value, minValue, maxValue, style, validator, name);
    m_mainSizer->Add(m_labelSizer, wxSizerFlags().Expand());
}

void TvDoubleSlider::CreateSizers()
{
    m_mainSizer = new wxBoxSizer(wxVERTICAL);
    m_labelSizer = new wxBoxSizer(wxHORIZONTAL);
    SetSizer(m_mainSizer);
}

void TvDoubleSlider::CreateSlider(int id, int value, int minValue, int maxValue, long style,
                                  const wxValidator& validator, const wxString& name)
{
    m_slider = new wxSlider(this, id, value, minValue, maxValue, wxDefaultPosition, wxDefaultSize, style,
                            validator, name);
    m_mainSizer->Add(m_slider, wxSizerFlags(1).Expand());
}

void TvDoubleSlider::CreateSliderWithLabels(int id, int value, int minValue, int maxValue, long style,
                                            const wxValidator& validator, const wxString& name)
{
    CreateSlider(id, value, minValue, maxValue, GetStyleWithoutLabels(style), validator, name);
    CreateLabels();
}

void TvDoubleSlider::CreateLabels()
{
    CreateMinLabel();
    m_labelSizer->AddStretchSpacer();
    CreateValueLabel();
    m_labelSizer->AddStretchSpacer();
    CreateMaxLabel();
}

void TvDoubleSlider::CreateMinLabel()
{
    m_minLabel = new wxStaticText(this, wxID_ANY, wxString());
    m_labelSizer->Add(m_minLabel);
}

void TvDoubleSlider::CreateValueLabel()
{
    m_valueLabel = new wxStaticText(this, wxID_ANY, wxString());
    m_labelSizer->Add(m_valueLabel);
}

void TvDoubleSlider::CreateMaxLabel()
{
    m_maxLabel = new wxStaticText(this, wxID_ANY, wxString());
    m_labelSizer->Add(m_maxLabel);
}

wxString TvDoubleSlider::ToFormattedDoubleString(int value) const
{
    const wxString format = wxString::Format("%%.%df", m_decimalPlaces);
    return wxString::Format(format, value / m_conversionFactor);
}

void TvDoubleSlider::SetMinLabel(int min)
{
    ShowText(m_minLabel, min);
}

void TvDoubleSlider::SetMaxLabel(int max)
{
    ShowText(m_maxLabel, max);
}

void TvDoubleSlider::SetMinMaxLabels(int min, int max)
{
    SetMinLabel(min);
    SetMaxLabel(max);
}

void TvDoubleSlider::SetValueLabel(int value)
{
    ShowText(m_valueLabel, value);
}

void TvDoubleSlider::ShowText(wxStaticText* label, int value)
{
    if (label == nullptr)
        return;
    const wxString text = ToFormattedDoubleString(value);
    if (label->GetLabelText() == text)
        return;
    label->SetLabelText(text);
    // The text's width changed; its neighbours move.
    m_labelSizer->Layout();
}
