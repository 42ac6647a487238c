// SPDX-License-Identifier: MIT
#pragma once

/// Title and legend above a chart. Internal to the library.

#include "chartdir/base_chart.h"
#include "chartdir/text.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace chartdir {

class ChartHead
{
public:
    /// Draws a sample of a series into a box of that size with its upper left corner at 0.
    using Sample = std::function<void(cairo_t* canvas, double width, double height)>;

    /// The title; the legend follows. The context outlives the head.
    ChartHead(const TextContext& context, const BaseChart& chart);

    /// Adds a series to the legend; false when there is no more room for one, as a legend never takes that of
    /// the curves.
    bool Add(const std::string& name, Sample sample);
    /// Where what is below it may begin.
    double Bottom() const;
    void Draw(cairo_t* canvas) const;

    /// At the edges of the chart.
    double Margin() const { return m_margin; }
    /// Of all texts but the title; small charts have small ones.
    double TextSize() const { return m_textSize; }

    static constexpr double kGap = 6.0;

private:
    struct Entry
    {
        Sample sample;
        Point place;
        Text text;
    };

    const TextContext& m_context;
    double m_margin;
    double m_textSize;
    double m_width;
    double m_height;
    Colour m_ink;
    std::optional<Text> m_title;
    std::vector<Entry> m_entries;
    double m_x = 0.0;
    double m_y;
    double m_lineHeight = 0.0;
};

}  // namespace chartdir
