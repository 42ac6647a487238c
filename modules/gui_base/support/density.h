// SPDX-License-Identifier: MIT
#pragma once

/// How close the fields of all forms stand, and how the field is marked that has the keyboard. The toolkit's
/// own theme stays in charge of colours; this adds to it for the whole program. GUI thread only.

#include "gui_base/gui_base_export.h"

#include <functional>
#include <string_view>

class wxWindow;

enum class Density
{
    Comfortable,  ///< the spacing of the system's theme
    Compact,      ///< rows of forms as close as the text allows, so that a whole water analysis fits a screen
};

namespace density {

/// What the setting "density" holds: "comfortable", or compact for any other text.
GUI_BASE_EXPORT Density DensityOf(std::string_view code);
/// Windows that exist follow when they are laid out anew, for which see below. Without a display nothing
/// happens.
GUI_BASE_EXPORT void Set(Density density);

/// Calls `changed` when the user has given the texts of the system another size, or forms another density,
/// and `window`, which is the caller's, can be measured by it: the last window that asked for it, until it
/// calls with null.
GUI_BASE_EXPORT void SetOnSizes(wxWindow& window, std::function<void()> changed);

}  // namespace density
