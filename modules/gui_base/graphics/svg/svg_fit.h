// SPDX-License-Identifier: MIT
#pragma once

/// How a document lies in its picture.

#include "gui_base/graphics/svg/svg_parser_base.h"
#include "gui_base/gui_base_export.h"

#include <wx/geometry.h>

#include <optional>

namespace svg {

/// Whether a drawing goes on with that transform: it can be inverted, and its numbers are of a moderate size.
GUI_BASE_EXPORT bool IsUsable(const wxAffineMatrix2D& matrix);

/// From the space of the document to the picture of that own size, enlarged by `scale`: as it stands without
/// a view box; without alignment stretched so that the view box fills the picture; else scaled alike both
/// ways and aligned, where the origin of the view box counts as (0, 0). Nothing for a view box or picture
/// without area.
GUI_BASE_EXPORT std::optional<wxAffineMatrix2D> FitDocument(const SvgParserBase::ParserResult& result,
                                                            const wxSize& own, double scale);

/// The upright box around a transformed one.
GUI_BASE_EXPORT wxRect2DDouble TransformedBox(const wxRect2DDouble& box, const wxAffineMatrix2D& matrix);

}  // namespace svg
