// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/string.h>

namespace endpoints {

/// The page that tells whether the services can be reached, without a scheme.
GUI_BASE_EXPORT wxString ConnectionTestPage();

}  // namespace endpoints
