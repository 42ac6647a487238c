// SPDX-License-Identifier: MIT
#include "chartdir/xy_layout.h"

#include "chartdir/strokes.h"

#include <algorithm>
#include <cmath>

namespace chartdir {

namespace {

constexpr double kMargin = 12.0;
constexpr double kGap = 6.0;
constexpr double kTickLength = 4.0;
constexpr double kTitleSize = 15.0;
constexpr double kTextSize = 12.0;
constexpr double kSampleWidth = 34.0;
constexpr double kLegendGap = 18.0;
constexpr double kLeastSide = 20.0;
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
    : m_chart(chart), m_theme(chart.getTheme()), m_mapping{{}, xScale, yScale}
{
    const double width = chart.getWidth();
    const double height = chart.getHeight();
    const TextStyle ink{.size = kTextSize, .colour = m_theme.ink};
    const double top = SetHead(hasLegend);
    if (!chart.xAxis().getTitle().empty())
        m_xTitle = MakeText(chart.xAxis().getTitle(), ink);
    if (!chart.yAxis().getTitle().empty())
        m_yTitle = MakeText(chart.yAxis().getTitle(), ink);
    const double lineHeight = MakeText("0", ink).Height();
    const double bottom = kMargin + (m_xTitle ? m_xTitle->Height() + kGap : 0.0) + lineHeight + kTickLength;
    const double plotHeight = plotArea ? plotArea->height : std::max(height - top - bottom, kLeastSide);
    if (m_yTitle)
        m_yTitle->Shorten(plotHeight);
    SetTicks(chart.yAxis(), yScale, plotHeight, kDistanceOfYTicks, m_yLabels);
    double widest = 0.0;
    for (const TickLabel& label : m_yLabels)
        widest = std::max(widest, label.text.Width());
    // The plot area keeps its place while a view is zoomed or moved and numbers get other digits.
    widest = std::ceil(widest / kLabelSteps) * kLabelSteps;
    const double left = kMargin + (m_yTitle ? m_yTitle->Height() + kGap : 0.0) + widest + kGap + kTickLength;
    const double plotWidth = plotArea ? plotArea->width : std::max(width - left - 2.0 * kMargin, kLeastSide);
    m_mapping.plot = plotArea.value_or(
        Rect{std::floor(left) + 0.5, std::floor(top) + 0.5, std::floor(plotWidth), std::floor(plotHeight)});
    if (m_xTitle)
        m_xTitle->Shorten(m_mapping.plot.width);
    SetTicks(chart.xAxis(), xScale, m_mapping.plot.width, kDistanceOfXTicks, m_xLabels);
    PlaceTicks();
}

double XYLayout::SetHead(bool hasLegend)
{
    double y = kMargin;
    if (!m_chart.getTitle().empty()) {
        m_title = MakeText(m_chart.getTitle(), {.size = kTitleSize, .bold = true, .colour = m_theme.ink});
        m_title->Shorten(m_chart.getWidth() - 2.0 * kMargin);
        y += m_title->Height() + kGap;
    }
    if (hasLegend)
        SetLegend(y);
    return y;
}

void XYLayout::SetLegend(double& y)
{
    const double left = kMargin + kGap;
    const double right = m_chart.getWidth() - kMargin;
    // A legend never takes the room of the curves.
    const double lowest = m_chart.getHeight() / 3.0;
    double x = left;
    double lineHeight = 0.0;
    for (const auto& layer : m_chart.getLayers()) {
        for (const DataSet& set : layer->getDataSets()) {
            if (set.name.empty())
                continue;
            Text text = MakeText(set.name, {.size = kTextSize, .colour = m_theme.ink});
            text.Shorten(right - left - kSampleWidth - kGap);
            const double width = kSampleWidth + kGap + text.Width() + kLegendGap;
            if (x > left && x + width - kLegendGap > right) {
                x = left;
                y += lineHeight + kGap / 2.0;
            }
            if (!m_legend.empty() && y + text.Height() > lowest) {
                y += kGap;
                return;
            }
            lineHeight = std::max(lineHeight, text.Height());
            m_legend.push_back({layer.get(), &set, {x, y}, std::move(text)});
            x += width;
        }
    }
    if (!m_legend.empty())
        y += lineHeight + kGap + kGap / 2.0;
}

std::string XYLayout::NumberText(double value, const Ticks& ticks) const
{
    constexpr double kLargestPlain = 1e7;
    constexpr double kLeastPlain = 1e-5;
    const double size = std::abs(value);
    const bool isPlain = size == 0.0 || (size < kLargestPlain && size >= kLeastPlain);
    if (!isPlain)
        return numbertext::Format(value, {.format = TvTextCtrlFormat::Scientific, .precision = 1},
                                  m_chart.getSeparators());
    const double step = ticks.step > 0.0 ? ticks.step : size;
    const int decimals = step > 0.0 ? static_cast<int>(std::ceil(-std::log10(step) - 1e-9)) : 0;
    return numbertext::Format(value,
                              {.format = TvTextCtrlFormat::Fixed, .precision = std::clamp(decimals, 0, 12)},
                              m_chart.getSeparators());
}

void XYLayout::SetTicks(const Axis& axis, const Scale& scale, double length, double distance,
                        std::vector<TickLabel>& labels)
{
    const TextStyle style{.size = kTextSize, .colour = m_theme.ink};
    if (axis.getLabels().empty()) {
        const Ticks ticks = TicksOf(scale, RoomFor(length, distance));
        for (const double value : ticks.values)
            labels.push_back({scale.ToFraction(value), MakeText(NumberText(value, ticks), style)});
        return;
    }
    // As many names as have room.
    const auto count = axis.getLabels().size();
    const auto [low, high] = std::minmax(scale.lower, scale.upper);
    const double inView = std::min(high - low, static_cast<double>(count));
    const auto stride =
        static_cast<std::size_t>(std::max(1.0, std::ceil(inView * kDistanceOfYTicks / length)));
    for (std::size_t i = 0; i < count; i += stride) {
        const auto place = static_cast<double>(i);
        if (place < low || place > high)
            continue;
        Text text = MakeText(axis.getLabels()[i], style);
        text.Shorten(std::max(length / (high - low) * static_cast<double>(stride) - kGap, kLeastSide));
        labels.push_back({scale.ToFraction(place), std::move(text)});
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
    double lowest = bottom + kTickLength;
    double drawnFrom = 0.0;
    double drawnTo = 0.0;
    for (const TickLabel& label : m_xLabels) {
        DrawHairline(canvas, {label.pixel, bottom}, {label.pixel, bottom + kTickLength}, m_theme.ink);
        const double left = std::clamp(label.pixel - label.text.Width() / 2.0, 0.0,
                                       std::max(m_chart.getWidth() - label.text.Width(), 0.0));
        const double right = left + label.text.Width();
        lowest = std::max(lowest, bottom + kTickLength + label.text.Height());
        // Numbers never run into each other, whichever way the axis runs.
        if (left < drawnTo + kGap && right > drawnFrom - kGap && drawnTo > drawnFrom)
            continue;
        drawnFrom = left;
        drawnTo = right;
        label.text.Draw(canvas, {left, bottom + kTickLength});
    }
    for (const TickLabel& label : m_yLabels) {
        DrawHairline(canvas, {plot.x - kTickLength, label.pixel}, {plot.x, label.pixel}, m_theme.ink);
        label.text.Draw(canvas, {plot.x - kTickLength - kGap - label.text.Width(),
                                 label.pixel - label.text.Height() / 2.0});
    }
    if (m_title)
        m_title->Draw(canvas, {(m_chart.getWidth() - m_title->Width()) / 2.0, kMargin});
    if (m_xTitle)
        m_xTitle->Draw(canvas, {plot.x + (plot.width - m_xTitle->Width()) / 2.0, lowest + kGap / 2.0});
    if (m_yTitle)
        m_yTitle->DrawUpwards(canvas, {kMargin, plot.y + (plot.height + m_yTitle->Width()) / 2.0});
    for (const LegendEntry& entry : m_legend) {
        cairo_save(canvas);
        cairo_translate(canvas, entry.place.x, entry.place.y);
        entry.layer->DrawSample(canvas, *entry.set, kSampleWidth, entry.text.Height());
        cairo_restore(canvas);
        entry.text.Draw(canvas, {entry.place.x + kSampleWidth + kGap, entry.place.y});
    }
}

void XYLayout::DrawInMiddle(cairo_t* canvas, const std::string& markup) const
{
    Text text = MakeText(markup, {.size = kTitleSize, .colour = m_theme.muted});
    const Rect& plot = m_mapping.plot;
    text.Shorten(plot.width);
    text.Draw(canvas,
              {plot.x + (plot.width - text.Width()) / 2.0, plot.y + (plot.height - text.Height()) / 2.0});
}

}  // namespace chartdir
