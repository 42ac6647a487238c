// SPDX-License-Identifier: MIT
#pragma once

/// The currencies of the world with the rates that the user database has of them, as they are shown and
/// typed.

#include "gui_base/gui_base_export.h"

#include <wx/string.h>

#include <optional>
#include <vector>

namespace currency_table {

struct Currency
{
    wxString code;
    wxString name;  ///< in the language of the texts; empty for a code that is none of a currency any more
    double rate = 0.0;  ///< units for one euro; NaN where none is known
    bool isTyped = false;
    wxString day;  ///< on which the rate was stored, in the user's notation; empty where none was
};

/// By code. Throws DatabaseError.
GUI_BASE_EXPORT std::vector<Currency> Load();

/// With four decimals and the user's separators, or as many as a small one needs;
/// empty for NaN.
GUI_BASE_EXPORT wxString RateText(double rate);
/// Nothing for what is no number or none that a rate may be.
GUI_BASE_EXPORT std::optional<double> ParseRate(const wxString& text);

}  // namespace currency_table
