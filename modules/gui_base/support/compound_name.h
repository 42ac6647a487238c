// SPDX-License-Identifier: MIT
#pragma once

/// What a compound is called in the language of the texts.

#include "gui_base/gui_base_export.h"

#include <wx/string.h>

#include <string>

namespace i18n {

/// The language of the names: what the catalogue of the texts says of itself; empty without one. Quick enough
/// for cells that are drawn.
GUI_BASE_EXPORT std::string CompoundLanguage();
/// The name to show of a compound that is filed under `name`; a user's own compound keeps its name.
GUI_BASE_EXPORT wxString CompoundName(const std::string& name, const std::string& formula);
/// The name under which a compound of that formula is filed that the user calls `text`.
GUI_BASE_EXPORT std::string FiledCompoundName(const std::string& text, const std::string& formula);

}  // namespace i18n
