// SPDX-License-Identifier: MIT
#include "core/polarization.h"

#include <cmath>
#include <numbers>

namespace ions {

double ReversePolarizationEffect(double x)
{
    if (x == 0.0)
        return 0.0;

    constexpr int kMaxSteps = 20;
    constexpr double kTolerance = 1e-6;
    double y = x;
    for (int step = 0; step < kMaxSteps; ++step) {
        const double factor = 1.0783 - 0.075 * std::log10(y);
        const double derivative = factor - 0.075 / std::numbers::ln10;
        const double next = y - (factor * y - x) / derivative;
        const bool settled = std::abs(next - y) <= kTolerance;
        y = next;
        if (settled)
            break;
    }
    return y;
}

}  // namespace ions
