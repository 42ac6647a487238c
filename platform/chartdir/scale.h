// SPDX-License-Identifier: MIT
#pragma once

/// Scales of axes: the exact mapping between values and their place on an axis, and where its ticks stand.
/// Pure functions and values.

#include "chartdir/chartdir_export.h"

#include <cmath>
#include <vector>

namespace chartdir {

/// What an axis spans. `lower` may be the greater one: the axis then runs backwards.
struct CHARTDIR_EXPORT Scale
{
    double lower = 0.0;
    double upper = 1.0;
    bool isLog = false;

    /// Place on the axis: 0 at lower, 1 at upper. Not a number for what has no place, as 0 has none on a
    /// logarithmic axis.
    double ToFraction(double value) const;
    double ToValue(double fraction) const;
    /// The part of it between two places.
    Scale Part(double from, double to) const { return {ToValue(from), ToValue(to), isLog}; }
    bool operator==(const Scale&) const = default;
};

/// A scale that can be drawn: ends that are not finite, equal, or without a logarithm are replaced by ones
/// that are near, and a span that floating point could not divide is widened.
CHARTDIR_EXPORT Scale MakeUsable(const Scale& scale);

/// Least and greatest finite value, and the least one above 0; nothing was seen while `least > greatest`.
struct DataRange
{
    double least = 1.0;
    double greatest = 0.0;
    double leastPositive = 0.0;

    bool IsEmpty() const { return least > greatest; }
    void Add(double value)
    {
        if (!std::isfinite(value))
            return;
        if (IsEmpty())
            least = greatest = value;
        least = value < least ? value : least;
        greatest = value > greatest ? value : greatest;
        if (value > 0.0 && (leastPositive == 0.0 || value < leastPositive))
            leastPositive = value;
    }
};

/// A scale around data whose ends are ticks. Without data 0 to 1 (1 to 10 where logarithmic).
CHARTDIR_EXPORT Scale ScaleAround(const DataRange& range, bool isLog);

struct Ticks
{
    std::vector<double> values;  ///< in the order of the axis from its lower end on, all within it
    double step = 0.0;           ///< between two of them on a linear axis; 0 between decades
};
/// At most `count` ticks (2 at least) on a usable scale: steps of 1, 2 or 5 times a power of ten. A
/// logarithmic axis has them at decades, with 2 and 5 between them where there is room; one that spans less
/// than a decade has linear ones.
CHARTDIR_EXPORT Ticks TicksOf(const Scale& scale, int count);

}  // namespace chartdir
