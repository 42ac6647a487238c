// SPDX-License-Identifier: MIT
#pragma once

/// A tooltip that is made when somebody is about to read it: tooltips cost the toolkit more than a
/// calculation, so that none is refreshed while nobody points at its control.

#include <wx/string.h>

#include <functional>

class wxWindow;

namespace wateranalysis {

/// Asks `text` whenever the pointer enters the control, as long as the control lives.
void ExplainOnDemand(wxWindow& control, std::function<wxString()> text);
/// A number within such a text, in the locale's notation.
wxString ExplainedNumber(double value);

}  // namespace wateranalysis
