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

    struct LegendEntry
    {
        std::string name;
        Sample sample;
    };
    /// The legend: on as many lines as leave the curves most of the chart. Where these are too few, samples
    /// and texts become smaller and then the lines more; only what has no room even so is left out, with an
    /// ellipsis in its place.
    void SetLegend(const std::vector<LegendEntry>& entries);
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
        Sample sample;  ///< none for the ellipsis
        Point place;
        double indent;  ///< of the text
        Text text;

        double TextX() const { return place.x + indent; }
        double Right() const { return TextX() + text.Width(); }
    };
    /// How closely a legend is set.
    struct Setting
    {
        double sampleWidth;
        double gap;  ///< between entries
        double textSize;
        double share;  ///< of the height of the chart, with the title
    };
    struct Legend
    {
        std::vector<Entry> entries{};
        double bottom = 0.0;
        bool isWhole = true;
    };

    Legend Set(const std::vector<LegendEntry>& entries, const Setting& setting) const;
    void EndWithEllipsis(Legend& legend, const TextStyle& style, double right) const;

    const TextContext& m_context;
    double m_margin;
    double m_textSize;
    double m_width;
    double m_height;
    Colour m_ink;
    std::optional<Text> m_title;
    double m_top;
    Legend m_legend;
};

}  // namespace chartdir
