// SPDX-License-Identifier: MIT
#include "chartdir/tick_text.h"

#include <algorithm>
#include <cmath>

namespace chartdir {

std::string TickText(double value, const Ticks& ticks, const numbertext::Separators& separators)
{
    constexpr double kLargestPlain = 1e7;
    constexpr double kLeastPlain = 1e-5;
    const double size = std::abs(value);
    const bool isPlain = size == 0.0 || (size < kLargestPlain && size >= kLeastPlain);
    if (!isPlain)
        return numbertext::Format(value, {.format = TvTextCtrlFormat::Scientific, .precision = 1},
                                  separators);
    const double step = ticks.step > 0.0 ? ticks.step : size;
    const int decimals = step > 0.0 ? static_cast<int>(std::ceil(-std::log10(step) - 1e-9)) : 0;
    return numbertext::Format(
        value, {.format = TvTextCtrlFormat::Fixed, .precision = std::clamp(decimals, 0, 12)}, separators);
}

}  // namespace chartdir
