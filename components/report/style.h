// SPDX-License-Identifier: MIT
#pragma once

/// Sizes and colours of a report, in one place. Internal to the writer.

namespace report::style {

struct Colour
{
    double red;
    double green;
    double blue;
};

inline constexpr Colour kInk{0.13, 0.14, 0.16};
inline constexpr Colour kMuted{0.40, 0.43, 0.47};
inline constexpr Colour kRule{0.78, 0.81, 0.84};
inline constexpr Colour kAccent{0.05, 0.33, 0.50};
inline constexpr Colour kAlarm{0.75, 0.10, 0.08};

inline constexpr double kMarginX = 56.0;
inline constexpr double kBodyTop = 78.0;
inline constexpr double kBodyBottom = 64.0;  ///< from the lower edge of the page
inline constexpr double kHeaderLine = 44.0;  ///< baseline of the header
inline constexpr double kFooterLine = 36.0;  ///< baseline of the footer, from the lower edge

inline constexpr double kThinRule = 0.5;
inline constexpr double kThickRule = 1.2;

inline constexpr double kTextSize = 9.0;
inline constexpr double kSmallSize = 7.5;
inline constexpr double kHeadingSize = 10.5;
inline constexpr double kSectionSize = 14.0;
inline constexpr double kTitleSize = 20.0;

inline constexpr double kCellGap = 12.0;   ///< between columns
inline constexpr double kCellTop = 2.2;    ///< above and below the text of a cell
inline constexpr double kBlockGap = 8.0;   ///< between blocks
inline constexpr double kHeadingGap = 15;  ///< before a heading

/// The first of these that is installed.
inline constexpr const char* kFonts = "Noto Sans, Liberation Sans, DejaVu Sans, sans-serif";

}  // namespace report::style
