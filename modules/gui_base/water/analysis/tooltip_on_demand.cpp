// SPDX-License-Identifier: MIT
#include "gui_base/water/analysis/tooltip_on_demand.h"

#include "gui_base/input/validation/numeric_validator.h"

#include <wx/window.h>

#include <utility>

namespace wateranalysis {

void ExplainOnDemand(wxWindow& control, std::function<wxString()> text)
{
    control.Bind(wxEVT_ENTER_WINDOW, [&control, text = std::move(text)](wxMouseEvent& event) {
        const wxString now = text();
        if (control.GetToolTipText() != now)
            control.SetToolTip(now);
        event.Skip();
    });
}

wxString ExplainedNumber(double value)
{
    return wxString::FromUTF8(numbertext::Format(value, {.precision = 4, .shortExponent = true},
                                                 NumericValidator::LocaleSeparators()));
}

}  // namespace wateranalysis
