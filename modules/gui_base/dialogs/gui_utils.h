// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/string.h>

#include <utility>
#include <vector>

namespace gui_utils {

/// Code and name of every country, in the language of the texts and sorted by the names as that user reads
/// them.
GUI_BASE_EXPORT std::vector<std::pair<wxString, wxString>> GetCountries();

/// The same for currencies, sorted by their codes.
GUI_BASE_EXPORT std::vector<std::pair<wxString, wxString>> GetCurrencies();

}  // namespace gui_utils
