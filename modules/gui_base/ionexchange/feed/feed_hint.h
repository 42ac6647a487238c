// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/input/controls/tv_statictext.h"

#include <wx/settings.h>

/// A line that tells what can be done, paler than what belongs to the feed.
inline TvStaticText* NewFeedHint(wxWindow* parent, const wxString& text)
{
    auto* hint = new TvStaticText(parent, wxID_ANY, text);
    hint->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
    return hint;
}
