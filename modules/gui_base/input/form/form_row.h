// SPDX-License-Identifier: MIT
#pragma once

/// One row of a form as a line of a table: where its value lives and how it is shown.
///
/// The type of the detail decides what stands in the row: a number, a text, a check box, a date; or a choice
/// where the row says so. Everything else has a default that most rows take.

#include "core/number_text.h"
#include "gui_base/input/validation/validator.h"

#include <wx/string.h>

#include <limits>
#include <optional>
#include <utility>
#include <vector>

enum class FormField
{
    Input,   ///< by the type of the detail
    Result,  ///< a number that is only shown; the keyboard passes it by
    Choice,  ///< one of several items: their keys in a number or a text
};

/// Limits of a number, in the ISO unit of its detail.
struct FormLimits
{
    double min;
    double max;
};

struct FormRow
{
    const char* key = nullptr;
    const char* label = nullptr;  ///< source text; names the field for messages and screen readers, too
    FormField field = FormField::Input;
    /// ISO unit that is shown behind the field; null for the unit of the detail, empty for none.
    const char* unit = nullptr;
    bool inIsoUnits = false;  ///< value and unit stay in ISO units, whatever unit system is shown
    /// Detail with the unit that the user chose, and the units that are offered: a row with both has a choice
    /// of units behind its number, which no unit system converts.
    const char* unitKey = nullptr;
    std::vector<wxString> (*units)() = nullptr;
    /// Items of a choice with text keys: pairs of key and source label.
    std::vector<std::pair<wxString, wxString>> (*items)() = nullptr;
    /// Instead of the limits of the detail.
    std::optional<FormLimits> limits = std::nullopt;
    int precision = 4;
    TvTextCtrlFormat format = TvTextCtrlFormat::General;
    int validatorFlags = PlainNumbers;                        ///< beside the checks of the limits
    double undef = std::numeric_limits<double>::quiet_NaN();  ///< stored for an emptied field
    int width = 0;                                            ///< in DIP; 0 for that of the form
    int lines = 1;  ///< of a text; Enter begins a new one if there are more
};
