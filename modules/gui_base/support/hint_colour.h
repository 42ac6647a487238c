// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/colour.h>

/// The colour of explanations beside what is typed: paler than texts, and yet readable in every theme, which
/// the toolkit's grey of what is disabled is not (its contrast is less than 4.5 to 1).
GUI_BASE_EXPORT wxColour HintColour();
