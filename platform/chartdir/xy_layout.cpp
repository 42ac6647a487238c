// SPDX-License-Identifier: MIT
#include "chartdir/xy_layout.h"

#include "chartdir/strokes.h"
#include "chartdir/tick_text.h"

#include <algorithm>
#include <cmath>

namespace chartdir {

namespace {

constexpr double kGap = ChartHead::kGap;
constexpr double kTickLength = 4.0;
constexpr double kTitleSize = 15.0;
constexpr double kLeastSide = 20.0;
constexpr double kUsualOrdinate = 80.0;
constexpr double kUsualText = 12.0;
constexpr double kLabelSteps = 34.0;
constexpr double kDistanceOfXTicks = 75.0;
constexpr double kDistanceOfYTicks = 38.0;
constexpr int kMostTicks = 60;

int RoomFor(double length, double distance)
{
    return std::clamp(static_cast<int>(length / distance) + 1, 2, kMostTicks);
}

}  // namespace

XYLayout::XYLayout(const XYChart& chart, const Scale& xScale, const Scale& yScale, bool hasLegend,
                   const std::optional<Rect>& plotArea)
    : m_chart(chart), m_theme(chart.getTheme()), m_head(m_context, chart), m_mapping{{}, xScale, yScale}
{
    const double width = chart.getWidth();
    const double height = chart.getHeight();
    const TextStyle ink{.size = m_head.TextSize(), .colour = m_theme.ink};
    if (hasLegend)
        AddLegend();
    const double top = m_head.Bottom();
    if (!chart.xAxis().getTitle().empty())
        m_xTitle = MakeText(chart.xAxis().getTitle(), ink);
    if (!chart.yAxis().getTitle().empty())
        m_yTitle = MakeText(chart.yAxis().getTitle(), ink);
    m_lineHeight = MakeText("0", ink).Height();
    m_nameRows = RowsOfNames();
    const double bottom = m_head.Margin() + (m_xTitle ? m_xTitle->Height() + kGap : 0.0) +
                          m_nameRows * m_lineHeight + kTickLength;
    const double plotHeight = plotArea ? plotArea->height : std::max(height - top - bottom, kLeastSide);
    if (m_yTitle)
        m_yTitle->Shorten(plotHeight);
    SetTicks(chart.yAxis(), yScale, plotHeight, kDistanceOfYTicks, m_yLabels);
    double widest = 0.0;
    for (const TickLabel& label : m_yLabels)
        widest = std::max(widest, label.text.Width());
    // The plot area keeps its place while a view is zoomed or moved and numbers get other digits.
    widest = std::ceil(widest / kLabelSteps) * kLabelSteps;
    const double left =
        m_head.Margin() + (m_yTitle ? m_yTitle->Height() + kGap : 0.0) + widest + kGap + kTickLength;
    const double plotWidth =
        plotArea ? plotArea->width : std::max(width - left - 2.0 * m_head.Margin(), kLeastSide);
    m_mapping.plot = plotArea.value_or(
        Rect{std::floor(left) + 0.5, std::floor(top) + 0.5, std::floor(plotWidth), std::floor(plotHeight)});
    if (m_xTitle)
        m_xTitle->Shorten(m_mapping.plot.width);
    SetTicks(chart.xAxis(), xScale, m_mapping.plot.width, kDistanceOfXTicks, m_xLabels);
    PlaceTicks();
}

void XYLayout::AddLegend()
{
    std::vector<ChartHead::LegendEntry> entries;
    for (const auto& layer : m_chart.getLayers()) {
        for (const DataSet& set : layer->getDataSets()) {
            if (set.name.empty())
                continue;
            entries.push_back(
                {set.name, [&layer = *layer, &set](cairo_t* canvas, double width, double height) {
                     layer.DrawSample(canvas, set, width, height);
                 }});
        }
    }
    m_head.SetLegend(entries);
}

void XYLayout::SetTicks(const Axis& axis, const Scale& scale, double length, double distance,
                        std::vector<TickLabel>& labels)
{
    const TextStyle style{.size = m_head.TextSize(), .colour = m_theme.ink};
    if (!axis.getLabels().empty())
        return SetNames(axis, scale, length, labels);
    // Small numbers may stand closer.
    const Ticks ticks = TicksOf(scale, RoomFor(length, distance * m_head.TextSize() / kUsualText));
    for (const double value : ticks.values)
        labels.push_back(
            {scale.ToFraction(value), 0, MakeText(TickText(value, ticks, m_chart.getSeparators()), style)});
}

int XYLayout::RowsOfNames() const
{
    const auto& names = m_chart.xAxis().getLabels();
    const int most = std::min(m_chart.xAxis().getLabelRows(), static_cast<int>(names.size()));
    if (most < 2)
        return 1;
    const TextStyle style{.size = m_head.TextSize(), .colour = m_theme.ink};
    double widest = 0.0;
    for (const std::string& name : names)
        widest = std::max(widest, MakeText(name, style).Width());
    // What the ordinate takes is not known yet, but about this.
    const double distance =
        std::max(m_chart.getWidth() - kUsualOrdinate, kLeastSide) / static_cast<double>(names.size());
    return std::clamp(static_cast<int>(std::ceil((widest + kGap) / distance)), 1, most);
}

void XYLayout::SetNames(const Axis& axis, const Scale& scale, double length, std::vector<TickLabel>& labels)
{
    const TextStyle style{.size = m_head.TextSize(), .colour = m_theme.ink};
    // As many names as have room.
    const auto count = axis.getLabels().size();
    const auto [low, high] = std::minmax(scale.lower, scale.upper);
    const double inView = std::min(high - low, static_cast<double>(count));
    const auto stride =
        static_cast<std::size_t>(std::max(1.0, std::ceil(inView * kDistanceOfYTicks / length / m_nameRows)));
    const double room = length / (high - low) * static_cast<double>(stride) * m_nameRows - kGap;
    for (std::size_t i = 0; i < count; i += stride) {
        const auto place = static_cast<double>(i);
        if (place < low || place > high)
            continue;
        Text text = MakeText(axis.getLabels()[i], style);
        text.Shorten(std::max(room, kLeastSide));
        labels.push_back(
            {scale.ToFraction(place), static_cast<int>(i / stride) % m_nameRows, std::move(text)});
    }
}

void XYLayout::PlaceTicks()
{
    const Rect& plot = m_mapping.plot;
    for (TickLabel& label : m_xLabels)
        label.pixel = plot.x + label.pixel * plot.width;
    for (TickLabel& label : m_yLabels)
        label.pixel = plot.Bottom() - label.pixel * plot.height;
}

void XYLayout::DrawGrid(cairo_t* canvas) const
{
    const Rect& plot = m_mapping.plot;
    for (const TickLabel& label : m_yLabels)
        DrawHairline(canvas, {plot.x, label.pixel}, {plot.Right(), label.pixel}, m_theme.grid);
    for (const TickLabel& label : m_xLabels)
        DrawHairline(canvas, {label.pixel, plot.y}, {label.pixel, plot.Bottom()}, m_theme.grid);
    // Where bars and areas begin.
    const double zero = m_mapping.y.isLog ? NAN : m_mapping.ToPixelY(0.0);
    if (zero > plot.y && zero < plot.Bottom())
        DrawHairline(canvas, {plot.x, zero}, {plot.Right(), zero}, m_theme.muted);
}

void XYLayout::DrawAround(cairo_t* canvas) const
{
    const Rect& plot = m_mapping.plot;
    const double bottom = plot.Bottom();
    DrawHairline(canvas, {plot.x, plot.y}, {plot.x, bottom}, m_theme.ink);
    DrawHairline(canvas, {plot.x, bottom}, {plot.Right(), bottom}, m_theme.ink);
    DrawBelow(canvas);
    for (const TickLabel& label : m_yLabels) {
        DrawHairline(canvas, {plot.x - kTickLength, label.pixel}, {plot.x, label.pixel}, m_theme.ink);
        label.text.Draw(canvas, {plot.x - kTickLength - kGap - label.text.Width(),
                                 label.pixel - label.text.Height() / 2.0});
    }
    m_head.Draw(canvas);
    if (m_yTitle)
        m_yTitle->DrawUpwards(canvas, {m_head.Margin(), plot.y + (plot.height + m_yTitle->Width()) / 2.0});
}

void XYLayout::DrawBelow(cairo_t* canvas) const
{
    const Rect& plot = m_mapping.plot;
    const double bottom = plot.Bottom();
    double lowest = bottom + kTickLength;
    struct Drawn
    {
        double from = 0.0;
        double to = 0.0;
    };
    std::vector<Drawn> rows(static_cast<std::size_t>(m_nameRows));
    for (const TickLabel& label : m_xLabels) {
        DrawHairline(canvas, {label.pixel, bottom}, {label.pixel, bottom + kTickLength}, m_theme.ink);
        const double top = bottom + kTickLength + label.row * m_lineHeight;
        const double left = std::clamp(label.pixel - label.text.Width() / 2.0, 0.0,
                                       std::max(m_chart.getWidth() - label.text.Width(), 0.0));
        const double right = left + label.text.Width();
        lowest = std::max(lowest, top + label.text.Height());
        // Numbers never run into each other, whichever way the axis runs.
        Drawn& drawn = rows[static_cast<std::size_t>(label.row)];
        if (left < drawn.to + kGap && right > drawn.from - kGap && drawn.to > drawn.from)
            continue;
        drawn = {left, right};
        label.text.Draw(canvas, {left, top});
    }
    if (m_xTitle)
        m_xTitle->Draw(canvas, {plot.x + (plot.width - m_xTitle->Width()) / 2.0, lowest + kGap / 2.0});
}

void XYLayout::DrawInMiddle(cairo_t* canvas, const std::string& markup) const
{
    Text text = MakeText(markup, {.size = kTitleSize, .colour = m_theme.muted});
    text.DrawWithin(canvas, m_mapping.plot);
}

}  // namespace chartdir
