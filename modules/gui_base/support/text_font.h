// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

class wxFont;
class wxStaticText;

namespace text_font {

/// Gives a text a font by which it is measured at once.
GUI_BASE_EXPORT void Set(wxStaticText& text, const wxFont& font);

}  // namespace text_font
