// SPDX-License-Identifier: MIT
#pragma once

/// Where a function of one value becomes zero, when nothing is known of the function: it may be flat,
/// stepped, not monotonic, have jumps and poles, and be undefined (NaN, infinite) in places. Each call of it
/// costs, so the calls are counted and bounded.
///
/// From the value to start with the search steps outwards in growing steps until the sign changes; there TOMS
/// 748 (Alefeld, Potra & Shi 1995) narrows the bracket down. Where the function jumps, or has a pole, it goes
/// on with the next change of sign; where there is none, it tries whether the function touches zero, and then
/// looks between the points that it knows.

#include "projectbase/projectbase_export.h"

#include <functional>
#include <limits>

namespace whatif {

/// What the search may try; `low` <= `start` <= `high`, all of them finite.
struct SearchRange
{
    double start = 0.0;
    double low = 0.0;
    double high = 0.0;
    bool whole = false;  ///< only whole numbers
};

struct SearchResult
{
    bool isBracketed = false;  ///< the sign changed somewhere, or zero was met
    double argument = std::numeric_limits<double>::quiet_NaN();
    double remainder = std::numeric_limits<double>::infinity();  ///< least amount of the function, never NaN
    int calls = 0;
};

/// Calls `function` at most `most` times. The search goes on until the remainder is that of rounding or
/// cannot be made less; it ends with the first zero, seen from the start, whose remainder is at most
/// `tolerance`.
PROJECTBASE_EXPORT SearchResult FindRoot(const std::function<double(double)>& function,
                                         const SearchRange& range, double tolerance, int most);

}  // namespace whatif
