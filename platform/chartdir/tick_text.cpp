// SPDX-License-Identifier: MIT
#include "chartdir/tick_text.h"

#include <algorithm>
#include <cmath>

namespace chartdir {
namespace {

constexpr int kMostDecimals = 12;

bool IsPlain(double size)
{
    constexpr double kLargestPlain = 1e7;
    constexpr double kLeastPlain = 1e-5;
    return size == 0.0 || (size < kLargestPlain && size >= kLeastPlain);
}

int Exponent(double size)
{
    return static_cast<int>(std::floor(std::log10(size) + 1e-9));
}

/// The size by which the number is written: linear ticks are written alike, decades each as it is short.
double SizeOf(double value, const Ticks& ticks)
{
    double size = std::abs(value);
    if (ticks.step > 0.0) {
        for (const double other : ticks.values)
            size = std::max(size, std::abs(other));
    }
    return size;
}

}  // namespace

std::string TickText(double value, const Ticks& ticks, const numbertext::Separators& separators)
{
    const double size = SizeOf(value, ticks);
    const double step = ticks.step > 0.0 ? ticks.step : size;
    if (!IsPlain(size) && value != 0.0)
        return numbertext::Format(
            value,
            {.format = TvTextCtrlFormat::Scientific,
             .precision = std::clamp(Exponent(size) - Exponent(step), 1, kMostDecimals)},
            separators);
    const int decimals = IsPlain(size) && step > 0.0 ? std::clamp(-Exponent(step), 0, kMostDecimals) : 0;
    return numbertext::Format(value, {.format = TvTextCtrlFormat::Fixed, .precision = decimals}, separators);
}

}  // namespace chartdir
