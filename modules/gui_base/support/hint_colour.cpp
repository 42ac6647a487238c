// SPDX-License-Identifier: MIT
#include "gui_base/support/hint_colour.h"

#include <wx/settings.h>

wxColour HintColour()
{
    constexpr double kShare = 0.72;
    const wxColour text = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT);
    const wxColour ground = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE);
    const auto mix = [](unsigned char a, unsigned char b) { return wxColour::AlphaBlend(a, b, kShare); };
    return {mix(text.Red(), ground.Red()), mix(text.Green(), ground.Green()),
            mix(text.Blue(), ground.Blue())};
}
