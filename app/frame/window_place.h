// SPDX-License-Identifier: MIT
#pragma once

#include <wx/toplevel.h>

namespace app {

/// Gives the window the size and place that an earlier one kept, as far as the screen has that much room; the
/// first time a size that shows all columns of a water analysis, where the screen is large enough.
void TakeKeptPlace(wxTopLevelWindow& window);
void KeepPlace(const wxTopLevelWindow& window);

}  // namespace app
