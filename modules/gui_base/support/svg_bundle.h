// SPDX-License-Identifier: MIT
#pragma once

/// Pictures in any size, of the text of a drawing.

#include "gui_base/gui_base_export.h"

#include <wx/bmpbndl.h>

namespace svg_bundle {

/// Of an SVG document as the toolkit's rasteriser knows it, without texts and images; `size` is what the
/// picture has on a screen of usual density. Nothing when the text is no such document.
GUI_BASE_EXPORT wxBitmapBundle Make(const char* svg, const wxSize& size);

}  // namespace svg_bundle
