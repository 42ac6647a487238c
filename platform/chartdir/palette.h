// SPDX-License-Identifier: MIT
#pragma once

/// The colours of charts, and how curves are told apart without them: by the style of the line and by the
/// marker.

#include "chartdir/chartdir_export.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace chartdir {

struct Colour
{
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    double alpha = 1.0;  ///< 0 transparent, 1 opaque

    static constexpr Colour FromRgb(std::uint32_t rgb, double alpha = 1.0)
    {
        return {static_cast<std::uint8_t>(rgb >> 16U & 0xFFU), static_cast<std::uint8_t>(rgb >> 8U & 0xFFU),
                static_cast<std::uint8_t>(rgb & 0xFFU), alpha};
    }
    constexpr Colour WithAlpha(double newAlpha) const { return {red, green, blue, newAlpha}; }
    /// Lighter by that part of white.
    constexpr Colour Tinted(double white) const
    {
        const auto tint = [white](std::uint8_t channel) {
            return static_cast<std::uint8_t>(channel + white * (255 - channel));
        };
        return {tint(red), tint(green), tint(blue), alpha};
    }
    bool operator==(const Colour&) const = default;
};

/// What lies around the curves.
struct Theme
{
    Colour background;
    Colour ink;    ///< texts and axes
    Colour muted;  ///< texts that stand back
    Colour grid;
};
CHARTDIR_EXPORT const Theme& LightTheme();
CHARTDIR_EXPORT const Theme& DarkTheme();

enum class LineStyle
{
    Solid,
    Dashed,
    Dotted,
    DashDotted,
    LongDashed
};
/// Lengths of line and gap in pixels at a width of 1; empty for a solid line.
CHARTDIR_EXPORT std::span<const double> DashesOf(LineStyle style);

enum class Marker
{
    None,
    Circle,
    Square,
    Triangle,
    Diamond,
    Cross
};

struct SeriesStyle
{
    Colour colour;
    LineStyle line = LineStyle::Solid;
    Marker marker = Marker::None;
};
/// How the curve of that place looks unless somebody says otherwise. The colours have a contrast of 3:1 at
/// least on both themes; neighbours differ in line and marker, too.
CHARTDIR_EXPORT SeriesStyle StyleOfSeries(std::size_t place);

/// Contrast of two opaque colours by WCAG 2.1: 1 to 21.
CHARTDIR_EXPORT double ContrastOf(Colour a, Colour b);

}  // namespace chartdir
