// SPDX-License-Identifier: MIT
#pragma once

/// Drawings that were made for white paper, on a screen that has a dark theme.

#include "gui_base/gui_base_export.h"

#include <wx/colour.h>
#include <wx/image.h>

namespace drawing_sheet {

/// What a drawing is shown on in a dark theme; no valid colour in a light one, where it stays as it is.
GUI_BASE_EXPORT wxColour ColourInDarkTheme();

/// An ink on a dark sheet: white is the sheet's own colour and black is white; hues stay, and what stood out
/// from the paper stands out from the sheet. A sheet that is no valid colour leaves the ink.
GUI_BASE_EXPORT wxColour InkOn(const wxColour& sheet, const wxColour& ink);
/// All pixels of a picture; how transparent they are stays.
GUI_BASE_EXPORT void TurnTo(const wxColour& sheet, wxImage& picture);

}  // namespace drawing_sheet
