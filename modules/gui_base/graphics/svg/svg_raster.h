// SPDX-License-Identifier: MIT
#pragma once

/// The shapes of a graphic as a picture. The rasteriser of the toolkit draws neither texts nor images, and
/// trusts what it is given: documents that would keep it busy, or that need more memory than a screen does,
/// get no picture. See docs/limits.md.

#include "gui_base/gui_base_export.h"

#include <wx/bitmap.h>
#include <wx/bmpbndl.h>
#include <wx/gdicmn.h>
#include <wx/xml/xml.h>

namespace svg {

inline constexpr double kMostPixels = 16.0e6;  ///< of a picture, and of all images in a graphic
inline constexpr double kLargestNumber = 1.0e5;
inline constexpr std::size_t kMostNumbers = 100'000;

/// Whether the numbers of the shapes are as many and as large as those of drawings are.
GUI_BASE_EXPORT bool IsDrawable(const wxXmlDocument& document);

/// The shapes, to be had in any size by RasteriseIn; nothing for a document that IsDrawable refuses.
GUI_BASE_EXPORT wxBitmapBundle ShapesOf(const wxXmlDocument& document);
/// The shapes fitted into a size of pixels; an invalid bitmap where there are none, for an empty size, and
/// for one beyond kMostPixels.
GUI_BASE_EXPORT wxBitmap RasteriseIn(const wxBitmapBundle& shapes, const wxSize& size);

}  // namespace svg
