// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/input/controls/tv_statictext.h"
#include "gui_base/support/hint_colour.h"

/// A line that tells what can be done, paler than what belongs to the feed.
inline TvStaticText* NewFeedHint(wxWindow* parent, const wxString& text)
{
    auto* hint = new TvStaticText(parent, wxID_ANY, text);
    hint->SetForegroundColour(HintColour());
    return hint;
}
