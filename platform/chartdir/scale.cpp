// SPDX-License-Identifier: MIT
#include "chartdir/scale.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace chartdir {

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
// Beyond these a span overflows or an interval vanishes in floating point.
constexpr double kLargest = 1e300;
constexpr double kLeastPositive = 1e-300;
constexpr double kLeastRelativeSpan = 1e-9;

double Log(double value)
{
    return value > 0.0 ? std::log10(value) : kUnknown;
}

/// The least step of 1, 2 or 5 times a power of ten that is not less.
double RoundStep(double least)
{
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    constexpr double kRounding = 1.0 + 1e-9;
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (least <= factor * power * kRounding)
            return factor * power;
    }
    return 10.0 * power;
}

bool IsMultiple(double value, double step)
{
    const double ratio = value / step;
    return std::abs(ratio - std::round(ratio)) < 1e-6;
}

/// The least step with which there are no more ticks than that; a little more where ticks then stand at both
/// ends.
double StepFor(double low, double high, int count)
{
    const double least = RoundStep((high - low) / std::max(count - 1, 1));
    constexpr int kFurther = 2;
    double step = least;
    for (int i = 0; i <= kFurther; ++i) {
        if (IsMultiple(low, step) && IsMultiple(high, step))
            return step;
        step = RoundStep(step * 1.5);
    }
    return least;
}

Ticks LinearTicks(double low, double high, int count)
{
    Ticks ticks;
    ticks.step = StepFor(low, high, count);
    // The last digits of a division do not cost the tick at an end.
    constexpr double kSlack = 1e-6;
    const double first = std::ceil(low / ticks.step - kSlack);
    const double last = std::floor(high / ticks.step + kSlack);
    for (double i = first; i <= last && ticks.values.size() < static_cast<std::size_t>(count) + 1; ++i)
        ticks.values.push_back(std::clamp(i * ticks.step, low, high));
    return ticks;
}

Ticks LogTicks(double low, double high, int count)
{
    constexpr double kSlack = 1e-9;
    const int first = static_cast<int>(std::floor(std::log10(low) + kSlack));
    const int last = static_cast<int>(std::floor(std::log10(high) + kSlack));
    const int decades = last - first + 1;
    // 2 and 5 stand between decades only where all of them have room.
    const bool areDivided = decades * 3 <= count;
    const int stride = std::max(1, static_cast<int>(std::ceil(static_cast<double>(decades) / count)));
    constexpr std::array kFactors{1.0, 2.0, 5.0};
    Ticks ticks;
    for (int decade = first; decade <= last; decade += stride) {
        for (const double factor : kFactors) {
            const double value = factor * std::pow(10.0, decade);
            if (value >= low * (1.0 - kSlack) && value <= high * (1.0 + kSlack) &&
                (areDivided || factor == 1.0))
                ticks.values.push_back(std::clamp(value, low, high));
        }
    }
    return ticks;
}

}  // namespace

double Scale::ToFraction(double value) const
{
    if (isLog)
        return (Log(value) - Log(lower)) / (Log(upper) - Log(lower));
    return (value - lower) / (upper - lower);
}

double Scale::ToValue(double fraction) const
{
    // The ends are exact.
    if (fraction == 1.0)
        return upper;
    if (isLog)
        return lower * std::pow(upper / lower, fraction);
    return lower + fraction * (upper - lower);
}

Scale MakeUsable(const Scale& scale)
{
    Scale usable = scale;
    const double fallback = scale.isLog ? 1.0 : 0.0;
    for (double* end : {&usable.lower, &usable.upper}) {
        if (std::isnan(*end))
            *end = fallback;
        *end = std::clamp(*end, scale.isLog ? kLeastPositive : -kLargest, kLargest);
    }
    const double size = std::max(std::abs(usable.lower), std::abs(usable.upper));
    const double span = std::abs(usable.upper - usable.lower);
    if (span > size * kLeastRelativeSpan)
        return usable;
    if (scale.isLog) {
        usable.lower = std::max(usable.lower / 2.0, kLeastPositive);
        usable.upper = std::min(usable.upper * 2.0, kLargest);
    } else {
        const double margin = size > 0.0 ? size / 2.0 : 1.0;
        usable.lower -= margin;
        usable.upper += margin;
    }
    return usable;
}

Scale ScaleAround(const DataRange& range, bool isLog)
{
    constexpr int kTicks = 7;
    if (isLog) {
        if (range.IsEmpty() || range.leastPositive == 0.0)
            return {1.0, 10.0, true};
        const double low = std::floor(std::log10(range.leastPositive));
        const double high = std::max(std::ceil(std::log10(range.greatest)), low + 1.0);
        return MakeUsable({std::pow(10.0, low), std::pow(10.0, high), true});
    }
    if (range.IsEmpty())
        return {};
    const Scale data = MakeUsable({range.least, range.greatest, false});
    const double step = RoundStep((data.upper - data.lower) / (kTicks - 1));
    return MakeUsable(
        {std::floor(data.lower / step + 1e-9) * step, std::ceil(data.upper / step - 1e-9) * step, false});
}

Ticks TicksOf(const Scale& scale, int count)
{
    count = std::max(count, 2);
    const auto [low, high] = std::minmax(scale.lower, scale.upper);
    Ticks ticks = scale.isLog && high >= 10.0 * low * (1.0 - 1e-9) ? LogTicks(low, high, count)
                                                                   : LinearTicks(low, high, count);
    if (scale.lower > scale.upper)
        std::ranges::reverse(ticks.values);
    return ticks;
}

}  // namespace chartdir
