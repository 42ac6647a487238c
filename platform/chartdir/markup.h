// SPDX-License-Identifier: MIT
#pragma once

/// Texts of charts with marks for font, size and colour, such as
/// "<*font=Times New Roman Italic,size=16,color=0xf11a29*>What follows looks like this<*br*>until<*/*> here".
/// Keys are font, size (pixels) and color (0xRRGGBB); "br" begins a line and "/" goes back to the ordinary
/// look. What a mark does not understand changes nothing; a mark that does not end is text.

#include "chartdir/chartdir_export.h"
#include "chartdir/palette.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace chartdir {

struct MarkedText
{
    std::string text{};
    std::string font{};  ///< empty: the ordinary one
    std::optional<double> size{};
    std::optional<Colour> colour{};
};

/// The parts of a marked text in their order, none of them empty.
CHARTDIR_EXPORT std::vector<MarkedText> ParseMarkup(std::string_view text);
/// The text without its marks.
CHARTDIR_EXPORT std::string PlainText(std::string_view text);

}  // namespace chartdir
