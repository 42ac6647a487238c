// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/sizer.h>
#include <wx/window.h>

namespace form {

/// Spacing unit of forms, in DIP.
inline constexpr int kGap = 4;

/// A grid for rows of label, field and unit, spaced as everywhere in the program.
inline wxFlexGridSizer* NewGrid(const wxWindow& window, int columns = 3)
{
    return new wxFlexGridSizer(columns, window.FromDIP(wxSize(2 * kGap, kGap)));
}

}  // namespace form
