// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/image.h>

class wxWindow;

namespace window_picture {

/// What the screen shows of a top-level window, without its frame, in pixels of the screen (twice as many
/// each way where the toolkit scales by 2). The window must be shown and wholly on the screen. An empty image
/// when it has not been drawn yet. GUI thread only.
GUI_BASE_EXPORT wxImage Take(wxWindow& window);

}  // namespace window_picture
