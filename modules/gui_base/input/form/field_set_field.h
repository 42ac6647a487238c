// SPDX-License-Identifier: MIT
#pragma once

/// What a FieldSet knows of a number or a text. Internal to the set.

#include "core/text_limits.h"
#include "gui_base/input/controls/text_length.h"
#include "gui_base/input/form/field_set.h"
#include "gui_base/input/validation/double_validator.h"
#include "gui_base/input/validation/integer_validator.h"
#include "gui_base/input/validation/temperature_validator.h"
#include "gui_base/input/validation/text_enter_validator.h"

#include <cmath>

namespace form {

/// "Sodium" for the row label "Sodium:", in the present language.
wxString PlainLabel(const wxString& label);
std::optional<double> MinOf(const NumberSpec& spec, const DetailData& detail);
std::optional<double> MaxOf(const NumberSpec& spec, const DetailData& detail);

}  // namespace form

/// A number or a text and all that its row needs.
struct FieldSet::Field
{
    NumberSpec spec;
    DetailData* detail = nullptr;
    wxWeakRef<TvTextCtrl> control = {};
    int transferFlags = 0;
    double number = 0.0;
    long count = 0;
    wxString text = {};
    Temperature temperature = {};
    std::unique_ptr<ChosenUnit> unit = {};

    bool IsText() const { return detail->GetType() == DetailType::String; }
    void* Variable()
    {
        if (IsText())
            return &text;
        if (detail->GetType() == DetailType::Long)
            return &count;
        return spec.isTemperature ? temperature.GetValueAddress() : &number;
    }
    void SetTextValidator()
    {
        text_length::Limit(*control, text_limits::MostOf(detail->GetName()));
        control->SetValidator(TextEnterValidator(&text));
    }
    void SetValidator()
    {
        const double min = form::MinOf(spec, *detail).value_or(0.0);
        const double max = form::MaxOf(spec, *detail).value_or(0.0);
        if (IsText())
            SetTextValidator();
        else if (detail->GetType() == DetailType::Long)
            control->SetValidator(IntegerValidator(&count, spec.format, spec.validatorFlags, std::lround(min),
                                                   std::lround(max), std::lround(min)));
        else if (spec.isTemperature)
            control->SetValidator(TemperatureValidator(&temperature, spec.format, spec.precision,
                                                       spec.validatorFlags, {}, {}, {}));
        else
            control->SetValidator(DoubleValidator(&number, spec.format, spec.precision, spec.validatorFlags,
                                                  min, max, spec.undef));
    }
};
