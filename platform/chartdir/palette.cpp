// SPDX-License-Identifier: MIT
#include "chartdir/palette.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace chartdir {

namespace {

constexpr std::array kSeriesColours{Colour::FromRgb(0x2f7fdb), Colour::FromRgb(0xd2691e),
                                    Colour::FromRgb(0x2c9a5e), Colour::FromRgb(0xd9436a),
                                    Colour::FromRgb(0x9467d6), Colour::FromRgb(0x1d94a6),
                                    Colour::FromRgb(0x9a8420), Colour::FromRgb(0x808890)};
constexpr std::array kLines{LineStyle::Solid, LineStyle::Dashed, LineStyle::DashDotted, LineStyle::LongDashed,
                            LineStyle::Dotted};
constexpr std::array kMarkers{Marker::Circle, Marker::Square, Marker::Triangle, Marker::Diamond,
                              Marker::Cross};

constexpr std::array kDashed{6.0, 3.0};
constexpr std::array kDotted{1.5, 2.5};
constexpr std::array kDashDotted{7.0, 2.5, 1.5, 2.5};
constexpr std::array kLongDashed{12.0, 4.0};

double Luminance(Colour colour)
{
    const auto linear = [](std::uint8_t byte) {
        const double value = byte / 255.0;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.red) + 0.7152 * linear(colour.green) + 0.0722 * linear(colour.blue);
}

}  // namespace

const Theme& LightTheme()
{
    static constexpr Theme theme{Colour::FromRgb(0xffffff), Colour::FromRgb(0x20262c),
                                 Colour::FromRgb(0x5a6570), Colour::FromRgb(0xdde2e6)};
    return theme;
}

const Theme& DarkTheme()
{
    static constexpr Theme theme{Colour::FromRgb(0x22262a), Colour::FromRgb(0xe8ebee),
                                 Colour::FromRgb(0xa4adb5), Colour::FromRgb(0x40474e)};
    return theme;
}

std::span<const double> DashesOf(LineStyle style)
{
    switch (style) {
        case LineStyle::Dashed:
            return kDashed;
        case LineStyle::Dotted:
            return kDotted;
        case LineStyle::DashDotted:
            return kDashDotted;
        case LineStyle::LongDashed:
            return kLongDashed;
        case LineStyle::Solid:
            break;
    }
    return {};
}

SeriesStyle StyleOfSeries(std::size_t place)
{
    return {kSeriesColours[place % kSeriesColours.size()], kLines[place % kLines.size()],
            kMarkers[place % kMarkers.size()]};
}

double ContrastOf(Colour a, Colour b)
{
    const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

}  // namespace chartdir
