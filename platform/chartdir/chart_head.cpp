// SPDX-License-Identifier: MIT
#include "chartdir/chart_head.h"

#include <algorithm>
#include <utility>

namespace chartdir {

namespace {

constexpr double kTitleSize = 15.0;
constexpr double kLeastText = 9.0;
constexpr double kLargestText = 12.0;
constexpr double kSidesPerText = 25.0;
constexpr double kSmallSide = 240.0;
constexpr double kMargin = 12.0;
constexpr double kSampleWidth = 34.0;
constexpr double kNarrowSample = 20.0;
constexpr double kLegendGap = 18.0;
constexpr double kNarrowGap = 10.0;
constexpr double kUsualShare = 1.0 / 3.0;
constexpr double kLargestShare = 0.45;
constexpr const char* kEllipsis = "\u2026";

double LeastSide(const BaseChart& chart)
{
    return std::min(chart.getWidth(), chart.getHeight());
}

}  // namespace

ChartHead::ChartHead(const TextContext& context, const BaseChart& chart)
    : m_context(context),
      m_margin(LeastSide(chart) < kSmallSide ? kMargin / 2.0 : kMargin),
      m_textSize(std::clamp(LeastSide(chart) / kSidesPerText, kLeastText, kLargestText)),
      m_width(chart.getWidth()),
      m_height(chart.getHeight()),
      m_ink(chart.getTheme().ink),
      m_top(m_margin),
      m_legend{.bottom = m_margin}
{
    if (chart.getTitle().empty())
        return;
    m_title.emplace(context, chart.getTitle(), TextStyle{.size = kTitleSize, .bold = true, .colour = m_ink});
    m_title->Shorten(m_width - 2.0 * m_margin);
    m_top += m_title->Height() + kGap;
    m_legend.bottom = m_top;
}

void ChartHead::SetLegend(const std::vector<LegendEntry>& entries)
{
    const Setting usual{kSampleWidth, kLegendGap, m_textSize, kUsualShare};
    const Setting narrow{kNarrowSample, kNarrowGap, m_textSize, kUsualShare};
    const Setting small{kNarrowSample, kNarrowGap, kLeastText, kUsualShare};
    const Setting high{kNarrowSample, kNarrowGap, kLeastText, kLargestShare};
    for (const Setting& setting : {usual, narrow, small, high}) {
        m_legend = Set(entries, setting);
        if (m_legend.isWhole)
            return;
    }
    // Where no setting is enough, the curves keep their room.
    m_legend = Set(entries, small);
}

ChartHead::Legend ChartHead::Set(const std::vector<LegendEntry>& entries, const Setting& setting) const
{
    const double left = m_margin + kGap;
    const double right = m_width - m_margin;
    const double lowest = setting.share * m_height;
    const double sample = setting.sampleWidth + kGap;
    const TextStyle style{.size = setting.textSize, .colour = m_ink};
    Legend legend{.bottom = m_top};
    Point place{left, m_top};
    double lineHeight = 0.0;
    for (const LegendEntry& entry : entries) {
        Text text(m_context, entry.name, style);
        text.Shorten(right - left - sample);
        const double width = sample + text.Width();
        if (place.x > left && place.x + width > right) {
            place = {left, place.y + lineHeight + kGap / 2.0};
            lineHeight = 0.0;
        }
        if (!legend.entries.empty() && place.y + text.Height() > lowest) {
            EndWithEllipsis(legend, style, right);
            return legend;
        }
        lineHeight = std::max(lineHeight, text.Height());
        legend.bottom = place.y + lineHeight + kGap + kGap / 2.0;
        legend.entries.push_back({entry.sample, place, sample, std::move(text)});
        place.x += width + setting.gap;
    }
    return legend;
}

void ChartHead::EndWithEllipsis(Legend& legend, const TextStyle& style, double right) const
{
    legend.isWhole = false;
    Text ellipsis(m_context, kEllipsis, style);
    const double room = right - kGap - ellipsis.Width();
    while (legend.entries.size() > 1 && legend.entries.back().Right() > room)
        legend.entries.pop_back();
    Entry& last = legend.entries.back();
    last.text.Shorten(std::max(room - last.TextX(), 0.0));
    const Point place{last.Right() + kGap, last.place.y};
    legend.entries.push_back({.sample = {}, .place = place, .indent = 0.0, .text = std::move(ellipsis)});
}

double ChartHead::Bottom() const
{
    return m_legend.bottom;
}

void ChartHead::Draw(cairo_t* canvas) const
{
    if (m_title)
        m_title->Draw(canvas, {(m_width - m_title->Width()) / 2.0, m_margin});
    for (const Entry& entry : m_legend.entries) {
        if (entry.sample) {
            cairo_save(canvas);
            cairo_translate(canvas, entry.place.x, entry.place.y);
            entry.sample(canvas, entry.indent - kGap, entry.text.Height());
            cairo_restore(canvas);
        }
        entry.text.Draw(canvas, {entry.TextX(), entry.place.y});
    }
}

}  // namespace chartdir
