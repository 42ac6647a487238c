// SPDX-License-Identifier: MIT
#pragma once

/// Long curves are drawn from few points: of those that fall into one column of pixels, the first, the last,
/// the lowest and the highest are kept, so that no peak is lost and the drawing is the same.

#include "chartdir/chartdir_export.h"
#include "chartdir/geometry.h"
#include "chartdir/scale.h"

#include <span>
#include <vector>

namespace chartdir {

/// How values become places: of both scales, within the plot area.
struct Mapping
{
    Rect plot;
    Scale x;
    Scale y;

    double ToPixelX(double value) const { return plot.x + x.ToFraction(value) * plot.width; }
    double ToPixelY(double value) const { return plot.Bottom() - y.ToFraction(value) * plot.height; }
    double ToValueX(double pixel) const { return x.ToValue((pixel - plot.x) / plot.width); }
    double ToValueY(double pixel) const { return y.ToValue((plot.Bottom() - pixel) / plot.height); }
};

/// A place on a curve and the index of its point in the data.
struct CurvePoint
{
    Point place;
    std::size_t index = 0;
};
/// A part of a curve without a gap.
using CurveRun = std::vector<CurvePoint>;

/// What is drawn of a curve: its parts between gaps (values that are not finite or have no logarithm), in
/// their order, reduced; parts wholly left or right of the plot area are left out but for the point next to
/// it. The shorter of the two lists counts.
CHARTDIR_EXPORT std::vector<CurveRun> RunsOf(std::span<const double> xs, std::span<const double> ys,
                                             const Mapping& mapping);

}  // namespace chartdir
