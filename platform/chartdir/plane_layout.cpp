// SPDX-License-Identifier: MIT
#include "chartdir/plane_layout.h"

#include "chartdir/strokes.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace chartdir {

namespace {

constexpr double kMargin = 6.0;
constexpr double kGap = 3.0;
// A marker in a corner leaves its name free.
constexpr double kCornerGap = 4.0;
// A text may be a little longer than the side along which it stands.
constexpr double kOverhang = 1.15;
// Smaller than that a text along a side is hard to read.
constexpr double kLeastSideText = 8.0;
constexpr double kLeastTickDistance = 26.0;
constexpr int kHalvings = 40;

/// Towards which side of a place a text stands, by the direction away from it.
double SideOf(double component)
{
    constexpr double kStraight = 0.3;
    return component > kStraight ? 1.0 : component < -kStraight ? -1.0 : 0.0;
}

/// Whether a line parallel to a side of `a` has both on different sides.
bool AreApartAlongSidesOf(const std::array<Point, 4>& a, const std::array<Point, 4>& b)
{
    for (std::size_t i = 0; i < 2; ++i) {
        const Point axis{a[i + 1].x - a[i].x, a[i + 1].y - a[i].y};
        const auto span = [axis](const std::array<Point, 4>& box) {
            std::array<double, 4> along{};
            std::ranges::transform(box, along.begin(),
                                   [axis](Point p) { return p.x * axis.x + p.y * axis.y; });
            return std::ranges::minmax(along);
        };
        const auto first = span(a);
        const auto second = span(b);
        if (first.max <= second.min || second.max <= first.min)
            return true;
    }
    return false;
}

/// Rectangles overlap where no side of either separates them (separating axes).
bool Overlap(const std::array<Point, 4>& a, const std::array<Point, 4>& b)
{
    return !AreApartAlongSidesOf(a, b) && !AreApartAlongSidesOf(b, a);
}

double LengthOf(const PlaneChart::Line& line)
{
    return std::hypot(line.to.x - line.from.x, line.to.y - line.from.y);
}

Point Between(const PlaneChart::Line& line, double part)
{
    return {line.from.x + part * (line.to.x - line.from.x), line.from.y + part * (line.to.y - line.from.y)};
}

}  // namespace

double PlaneLayout::Item::HalfWidth() const
{
    return (std::abs(text.Width() * std::cos(angle)) + std::abs(text.Height() * std::sin(angle))) / 2.0;
}

double PlaneLayout::Item::HalfHeight() const
{
    return (std::abs(text.Width() * std::sin(angle)) + std::abs(text.Height() * std::cos(angle))) / 2.0;
}

std::array<Point, 4> PlaneLayout::Item::CornersAt(Point middle) const
{
    std::array<Point, 4> corners{};
    const Point along{std::cos(angle) * text.Width() / 2.0, std::sin(angle) * text.Width() / 2.0};
    const Point across{-std::sin(angle) * text.Height() / 2.0, std::cos(angle) * text.Height() / 2.0};
    constexpr std::array<Point, 4> kSigns{{{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}};
    std::ranges::transform(kSigns, corners.begin(), [&](Point sign) {
        return Point{middle.x + sign.x * along.x + sign.y * across.x,
                     middle.y + sign.x * along.y + sign.y * across.y};
    });
    return corners;
}

PlaneLayout::PlaneLayout(const PlaneChart& chart) : m_chart(chart), m_head(m_context, chart)
{
    if (chart.hasLegend())
        AddLegend();
    const double top = m_head.Bottom();
    m_area = {kMargin, top, std::max(chart.getWidth() - 2.0 * kMargin, 1.0),
              std::max(chart.getHeight() - top - kMargin, 1.0)};
    // As large as it would be without texts.
    Fit();
    AddCorners();
    AddSides();
    AddTicks();
    Fit();
    ShrinkLongTexts();
    Fit();
    DropCollisions();
}

void PlaneLayout::AddLegend()
{
    std::vector<ChartHead::LegendEntry> entries;
    for (const PlaneChart::Series& series : m_chart.getSeries()) {
        if (series.name.empty())
            continue;
        entries.push_back(
            {series.name, [style = series.style](cairo_t* canvas, double width, double height) {
                 DrawMarker(canvas, style.marker, {width / 2.0, height / 2.0}, 8.0, style.colour);
             }});
    }
    m_head.SetLegend(entries);
}

void PlaneLayout::AddCorners()
{
    for (const PlaneChart::Corner& corner : m_chart.getCorners()) {
        Text text(m_context, corner.markup, {.size = m_head.TextSize(), .colour = m_chart.getTheme().ink});
        double gap = kCornerGap;
        // The numbers below a side have the first row.
        for (const PlaneChart::Side& side : m_chart.getSides()) {
            if (side.away.y < -0.9 && corner.away.y < 0.0)
                gap = std::max(gap, BeyondTicks(side) - kGap);
        }
        const Point shift{SideOf(corner.away.x) * (text.Width() / 2.0 + kGap / 2.0),
                          -SideOf(corner.away.y) * (text.Height() / 2.0 + gap)};
        m_items.push_back({std::move(text), corner.at, shift});
    }
}

double PlaneLayout::BeyondTicks(const PlaneChart::Side& side) const
{
    double beyond = kGap;
    if (!HasTicks(side))
        return beyond;
    for (const std::string& tick : side.ticks) {
        const Text text(m_context, tick, {.size = m_head.TextSize(), .colour = {}});
        beyond = std::max(beyond, 2.0 * kGap + std::abs(SideOf(side.away.x) * side.away.x) * text.Width() +
                                      std::abs(side.away.y) * text.Height());
    }
    return beyond;
}

bool PlaneLayout::HasTicks(const PlaneChart::Side& side) const
{
    // Texts will take some of the room.
    constexpr double kUsualShare = 0.85;
    const auto parts = static_cast<double>(side.ticks.size() + 1);
    return !side.ticks.empty() && kUsualShare * m_scale * LengthOf(side.line) / parts >= kLeastTickDistance;
}

void PlaneLayout::AddSides()
{
    for (const PlaneChart::Side& side : m_chart.getSides()) {
        if (side.markup.empty())
            continue;
        Text text(m_context, side.markup, {.size = m_head.TextSize(), .colour = m_chart.getTheme().ink});
        const double distance = side.strip > 0.0 ? 0.0 : BeyondTicks(side) + text.Height() / 2.0;
        const Point middle = Between(side.line, 0.5);
        m_items.push_back(
            {std::move(text),
             {middle.x + side.away.x * side.strip / 2.0, middle.y + side.away.y * side.strip / 2.0},
             {side.away.x * distance, -side.away.y * distance},
             std::atan2(side.line.from.y - side.line.to.y, side.line.to.x - side.line.from.x),
             LengthOf(side.line) * kOverhang,
             side.strip,
             side.markup});
    }
}

void PlaneLayout::AddTicks()
{
    for (const PlaneChart::Side& side : m_chart.getSides()) {
        const auto parts = static_cast<double>(side.ticks.size() + 1);
        for (std::size_t i = 0; HasTicks(side) && i < side.ticks.size(); ++i) {
            Text text(m_context, side.ticks[i],
                      {.size = m_head.TextSize(), .colour = m_chart.getTheme().muted});
            const Point shift{SideOf(side.away.x) * text.Width() / 2.0 + side.away.x * kGap,
                              -SideOf(side.away.y) * text.Height() / 2.0 - side.away.y * kGap};
            m_items.push_back(
                {std::move(text), Between(side.line, static_cast<double>(i + 1) / parts), shift});
        }
    }
}

Rect PlaneLayout::ExtentAt(double scale) const
{
    double left = std::numeric_limits<double>::infinity();
    double right = -left;
    double top = left;
    double bottom = -left;
    const auto take = [&](Point middle, double halfWidth, double halfHeight) {
        left = std::min(left, middle.x - halfWidth);
        right = std::max(right, middle.x + halfWidth);
        top = std::min(top, middle.y - halfHeight);
        bottom = std::max(bottom, middle.y + halfHeight);
    };
    for (const auto& frame : m_chart.getFrames()) {
        for (const Point& corner : frame)
            take({scale * corner.x, -scale * corner.y}, 1.0, 1.0);
    }
    for (const Item& item : m_items)
        take({scale * item.anchor.x + item.shift.x, -scale * item.anchor.y + item.shift.y}, item.HalfWidth(),
             item.HalfHeight());
    return right < left ? Rect{} : Rect{left, top, right - left, bottom - top};
}

void PlaneLayout::Fit()
{
    double fits = 1.0;
    double tooLarge = std::max(m_area.width, m_area.height) * 4.0;
    for (int i = 0; i < kHalvings; ++i) {
        const double scale = (fits + tooLarge) / 2.0;
        const Rect extent = ExtentAt(scale);
        (extent.width <= m_area.width && extent.height <= m_area.height ? fits : tooLarge) = scale;
    }
    m_scale = fits;
    const Rect extent = ExtentAt(fits);
    m_origin = {m_area.x + (m_area.width - extent.width) / 2.0 - extent.x,
                m_area.y + (m_area.height - extent.height) / 2.0 - extent.y};
}

bool PlaneLayout::HasRoom(const Item& item) const
{
    return (item.room <= 0.0 || item.text.Width() <= m_scale * item.room) &&
           (item.strip <= 0.0 || item.text.Height() <= m_scale * item.strip);
}

void PlaneLayout::ShrinkLongTexts()
{
    constexpr double kStep = 0.5;
    for (Item& item : m_items) {
        for (double size = m_head.TextSize() - kStep; !HasRoom(item) && size >= kLeastSideText; size -= kStep)
            item.text = Text(m_context, item.markup, {.size = size, .colour = m_chart.getTheme().ink});
    }
    std::erase_if(m_items, [this](const Item& item) { return !HasRoom(item); });
}

Point PlaneLayout::MiddleOf(const Item& item) const
{
    const Point anchor = ToPixel(item.anchor);
    return {anchor.x + item.shift.x, anchor.y + item.shift.y};
}

void PlaneLayout::DropCollisions()
{
    std::vector<std::array<Point, 4>> placed;
    std::erase_if(m_items, [&](const Item& item) {
        const auto box = item.CornersAt(MiddleOf(item));
        const bool isOutside = std::ranges::any_of(box, [this](Point p) {
            return p.x < 0.0 || p.y < 0.0 || p.x > m_chart.getWidth() || p.y > m_chart.getHeight();
        });
        if (isOutside || std::ranges::any_of(placed, [&](const auto& other) { return Overlap(box, other); }))
            return true;
        placed.push_back(box);
        return false;
    });
}

void PlaneLayout::DrawTexts(cairo_t* canvas) const
{
    m_head.Draw(canvas);
    for (const Item& item : m_items) {
        const Point middle = MiddleOf(item);
        cairo_save(canvas);
        cairo_translate(canvas, middle.x, middle.y);
        cairo_rotate(canvas, item.angle);
        item.text.Draw(canvas, {-item.text.Width() / 2.0, -item.text.Height() / 2.0});
        cairo_restore(canvas);
    }
}

void PlaneLayout::DrawInMiddle(cairo_t* canvas, const std::string& markup) const
{
    Text text(m_context, markup, {.size = m_head.TextSize(), .colour = m_chart.getTheme().muted});
    text.DrawWithin(canvas, m_area);
}

}  // namespace chartdir
