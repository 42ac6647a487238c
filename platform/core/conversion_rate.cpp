// SPDX-License-Identifier: MIT
#include "core/conversion_rate.h"

#include <algorithm>

namespace conversion_rate {

bool IsRate(double rate)
{
    return rate >= kLeast && rate <= kMost;
}

bool IsRateOf(std::string_view currency, double rate)
{
    return currency == kBase ? rate == 1.0 : IsRate(rate);
}

bool IsCode(std::string_view currency)
{
    return currency.size() == 3 &&
           std::ranges::all_of(currency, [](char letter) { return letter >= 'A' && letter <= 'Z'; });
}

}  // namespace conversion_rate
