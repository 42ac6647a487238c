// SPDX-License-Identifier: MIT
#include "projectbase/feed/feed_quantities.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

double Quotient(double volume, double divisor)
{
    return divisor != 0.0 ? volume / divisor : kUnknown;
}

constexpr std::string_view kLetters = "QTV";  // by Quantity

}  // namespace

FeedQuantities::FeedQuantities()
{
    m_values.fill(kUnknown);
}

FeedQuantities::FeedQuantities(std::string_view order) : FeedQuantities()
{
    if (!std::is_permutation(order.begin(), order.end(), kLetters.begin(), kLetters.end()))
        return;
    std::transform(order.begin(), order.end(), m_order.begin(),
                   [](char letter) { return static_cast<Quantity>(kLetters.find(letter)); });
}

std::string FeedQuantities::GetOrder() const
{
    std::string order;
    for (const Quantity quantity : m_order)
        order += kLetters[quantity];
    return order;
}

void FeedQuantities::Edit(Quantity quantity, double value)
{
    m_values[quantity] = value;
    const auto place = std::find(m_order.begin(), m_order.end(), quantity);
    if (std::isnan(value)) {
        std::rotate(place, place + 1, m_order.end());
        return;
    }
    std::rotate(m_order.begin(), place, place + 1);
    const Quantity recent = m_order[1];
    const Quantity oldest = m_order[2];
    if (!std::isnan(m_values[recent]))
        Follow(oldest);
    else if (!std::isnan(m_values[oldest]))
        Follow(recent);
}

void FeedQuantities::Follow(Quantity follower)
{
    double& value = m_values[follower];
    if (follower == Volume)
        value = m_values[Flow] * m_values[Time];
    else
        value = Quotient(m_values[Volume], m_values[follower == Flow ? Time : Flow]);
    if (!std::isfinite(value))
        value = kUnknown;
}
