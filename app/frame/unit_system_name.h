// SPDX-License-Identifier: MIT
#pragma once

#include <wx/string.h>

#include <string>

namespace app {

/// What the user reads for "iso", "us" or "imperial".
wxString UnitSystemName(const std::string& unitSystem);

}  // namespace app
