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
constexpr double kLegendGap = 18.0;

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
      m_x(m_margin + kGap),
      m_y(m_margin)
{
    if (chart.getTitle().empty())
        return;
    m_title.emplace(context, chart.getTitle(), TextStyle{.size = kTitleSize, .bold = true, .colour = m_ink});
    m_title->Shorten(m_width - 2.0 * m_margin);
    m_y += m_title->Height() + kGap;
}

bool ChartHead::Add(const std::string& name, Sample sample)
{
    const double left = m_margin + kGap;
    const double right = m_width - m_margin;
    const double lowest = m_height / 3.0;
    Text text(m_context, name, {.size = m_textSize, .colour = m_ink});
    text.Shorten(right - left - kSampleWidth - kGap);
    const double width = kSampleWidth + kGap + text.Width() + kLegendGap;
    if (m_x > left && m_x + width - kLegendGap > right) {
        m_x = left;
        m_y += m_lineHeight + kGap / 2.0;
        m_lineHeight = 0.0;
    }
    if (!m_entries.empty() && m_y + text.Height() > lowest)
        return false;
    m_lineHeight = std::max(m_lineHeight, text.Height());
    m_entries.push_back({std::move(sample), {m_x, m_y}, std::move(text)});
    m_x += width;
    return true;
}

double ChartHead::Bottom() const
{
    return m_entries.empty() ? m_y : m_y + m_lineHeight + kGap + kGap / 2.0;
}

void ChartHead::Draw(cairo_t* canvas) const
{
    if (m_title)
        m_title->Draw(canvas, {(m_width - m_title->Width()) / 2.0, m_margin});
    for (const Entry& entry : m_entries) {
        cairo_save(canvas);
        cairo_translate(canvas, entry.place.x, entry.place.y);
        entry.sample(canvas, kSampleWidth, entry.text.Height());
        cairo_restore(canvas);
        entry.text.Draw(canvas, {entry.place.x + kSampleWidth + kGap, entry.place.y});
    }
}

}  // namespace chartdir
