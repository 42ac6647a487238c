// SPDX-License-Identifier: MIT
#pragma once

#include <wx/window.h>

#include <functional>
#include <string>
#include <vector>

namespace gui_test {

/// Calls `visit` with everything below a window that the user can see.
void VisitShown(const wxWindow& window, const std::function<void(const wxWindow&)>& visit);

/// What the user does not see whole of all that is shown below a window, one text each: it is smaller than it
/// has to be, ends beyond what holds it without scrolling, or is a list with a column that is narrower than
/// its title.
std::vector<std::string> Clipped(const wxWindow& window);

}  // namespace gui_test
