// SPDX-License-Identifier: MIT
#pragma once

/// Colours and symbols of results: what is in order, doubtful or wrong differs in both, so that it can be
/// told without colours. Each colour of a background has its own colour of the text, in the light and in the
/// dark theme, with a contrast of 7:1 or more.

#include "gui_base/gui_base_export.h"

#include <wx/colour.h>
#include <wx/gdicmn.h>

class wxGraphicsContext;

namespace wateranalysis {

enum class Mood
{
    Plain,  ///< no judgement; no symbol
    Good,   ///< a tick
    Note,   ///< a circle with an i
    Warn,   ///< a triangle
    Bad     ///< a cross
};

struct CardColours
{
    wxColour background;
    wxColour text;
    wxColour quiet;  ///< of captions
    wxColour frame;
};
GUI_BASE_EXPORT CardColours ColoursOf(Mood mood);

/// Draws the symbol into a square.
GUI_BASE_EXPORT void DrawSymbol(wxGraphicsContext& context, Mood mood, const wxRect& square,
                                const CardColours& colours);

}  // namespace wateranalysis
