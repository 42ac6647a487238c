// SPDX-License-Identifier: MIT
#pragma once

/// How much water a plant treats in one run: flow rate, running time, and their product, the volume. Two of
/// them determine the third. Values in consistent units, such as m³/h, h and m³; NaN where nothing is known.

#include "projectbase/projectbase_export.h"

#include <array>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

class PROJECTBASE_EXPORT FeedQuantities
{
public:
    enum Quantity : std::size_t
    {
        Flow,
        Time,
        Volume
    };
    static constexpr std::size_t kCount = 3;
    using Values = std::array<double, kCount>;

    /// Nothing is known; the volume counts as edited before the others, so that it follows first.
    FeedQuantities();
    /// The same, remembering in which order they were edited; a text that GetOrder did not give is no order.
    explicit FeedQuantities(std::string_view order);
    /// The order in which the quantities were edited, the last one first: "QTV" and the like.
    std::string GetOrder() const;

    double Get(Quantity quantity) const { return m_values[quantity]; }
    const Values& GetValues() const { return m_values; }
    /// Takes the quantities over as they are; none of them counts as edited.
    void SetValues(const Values& values) { m_values = values; }

    /// The user states one quantity. It is kept, and of the other two the one that was edited longer ago
    /// follows; where the more recent one is not known, that one follows instead. A quantity that would have
    /// to be infinite is not known. One that the user clears (NaN) leaves the others, and follows next.
    void Edit(Quantity quantity, double value);

private:
    void Follow(Quantity follower);

    Values m_values;
    /// The quantities, the one edited last first.
    std::array<Quantity, kCount> m_order{Flow, Time, Volume};
};
