// SPDX-License-Identifier: MIT
#pragma once

/// Places on a chart, in pixels from its upper left corner.

namespace chartdir {

struct Point
{
    double x = 0.0;
    double y = 0.0;
};

struct Rect
{
    double x = 0.0;
    double y = 0.0;
    double width = 0.0;
    double height = 0.0;

    double Right() const { return x + width; }
    double Bottom() const { return y + height; }
    /// The edges belong to it.
    bool Contains(double px, double py) const
    {
        return px >= x && px <= Right() && py >= y && py <= Bottom();
    }
};

}  // namespace chartdir
