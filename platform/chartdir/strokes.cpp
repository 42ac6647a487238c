// SPDX-License-Identifier: MIT
#include "chartdir/strokes.h"

#include "chartdir/text.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace chartdir {

namespace {

/// How far beside the plot area lines are drawn, in pixels: more than any line is wide.
constexpr double kReach = 100.0;

/// Cuts a segment to a box (Liang & Barsky 1984); false when nothing is left.
bool CutTo(const Rect& box, Point& from, Point& to)
{
    double first = 0.0;
    double last = 1.0;
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const auto cut = [&](double direction, double room) {
        if (direction == 0.0)
            return room >= 0.0;
        const double part = room / direction;
        (direction < 0.0 ? first : last) = direction < 0.0 ? std::max(first, part) : std::min(last, part);
        return first <= last;
    };
    if (!cut(-dx, from.x - box.x) || !cut(dx, box.Right() - from.x) || !cut(-dy, from.y - box.y) ||
        !cut(dy, box.Bottom() - from.y))
        return false;
    const Point start = from;
    from = {start.x + first * dx, start.y + first * dy};
    to = {start.x + last * dx, start.y + last * dy};
    return true;
}

/// Whether the points between two of a run lie on the line between these, as far as one can see.
bool IsStraight(const CurveRun& run, std::size_t from, std::size_t to)
{
    constexpr double kInvisible = 0.1;  // pixels
    const Point a = run[from].place;
    const Point b = run[to].place;
    const double length = std::hypot(b.x - a.x, b.y - a.y);
    for (std::size_t i = from + 1; i < to; ++i) {
        const Point p = run[i].place;
        const double across = std::abs((b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x));
        const double along = (b.x - a.x) * (p.x - a.x) + (b.y - a.y) * (p.y - a.y);
        if (!(across <= kInvisible * length) || along < 0.0 || along > length * length)
            return false;
    }
    return true;
}

/// The points that settle how a run looks; each corner takes its time when it is drawn.
CurveRun Simplified(const CurveRun& run)
{
    constexpr std::size_t kLongest = 32;  // bounds the work
    CurveRun corners;
    std::size_t at = 0;
    while (at < run.size()) {
        corners.push_back(run[at]);
        std::size_t next = at + 1;
        while (next + 1 < run.size() && next - at < kLongest && IsStraight(run, at, next + 1))
            ++next;
        at = next;
    }
    return corners;
}

Rect Around(const Rect& plot)
{
    return {plot.x - kReach, plot.y - kReach, plot.width + 2.0 * kReach, plot.height + 2.0 * kReach};
}

}  // namespace

double Snapped(double pixel)
{
    return std::floor(pixel) + 0.5;
}

void DrawHairline(cairo_t* canvas, Point from, Point to, Colour colour)
{
    SetColour(canvas, colour);
    cairo_set_line_width(canvas, 1.0);
    cairo_move_to(canvas, Snapped(from.x), Snapped(from.y));
    cairo_line_to(canvas, Snapped(to.x), Snapped(to.y));
    cairo_stroke(canvas);
}

Point NearPlot(Point place, const Rect& plot)
{
    const Rect box = Around(plot);
    return {std::clamp(place.x, box.x, box.Right()), std::clamp(place.y, box.y, box.Bottom())};
}

void StrokeRun(cairo_t* canvas, const CurveRun& wholeRun, const Rect& plot, const SeriesStyle& style,
               double width)
{
    // The time of a stroke grows faster than its number of points.
    constexpr std::size_t kMostPoints = 32;
    const CurveRun run = Simplified(wholeRun);
    const Rect box = Around(plot);
    const auto isInside = [&box](Point place) { return box.Contains(place.x, place.y); };
    const bool isLong = run.size() > 8 * kMostPoints;
    bool isPenDown = false;
    std::size_t points = 0;
    double length = 0.0;
    double drawn = 0.0;
    for (std::size_t i = 1; i < run.size(); ++i) {
        Point from = run[i - 1].place;
        Point to = run[i].place;
        const bool isWhole = isInside(from) && isInside(to);
        if (!isWhole && !CutTo(box, from, to)) {
            isPenDown = false;
            continue;
        }
        if (!isPenDown || !isInside(run[i - 1].place))
            cairo_move_to(canvas, from.x, from.y);
        cairo_line_to(canvas, to.x, to.y);
        isPenDown = isInside(run[i].place);
        length += std::hypot(to.x - from.x, to.y - from.y);
        if (isLong && ++points >= kMostPoints) {
            StrokeWith(canvas, style, width, drawn);
            drawn = length;
            points = 0;
            isPenDown = false;
        }
    }
    StrokeWith(canvas, style, width, drawn);
}

void StrokeWith(cairo_t* canvas, const SeriesStyle& style, double width, double dashOffset)
{
    std::vector<double> dashes;
    for (const double dash : DashesOf(style.line))
        dashes.push_back(dash * std::max(width / 1.5, 1.0));
    SetColour(canvas, style.colour);
    cairo_set_line_width(canvas, width);
    cairo_set_line_join(canvas, CAIRO_LINE_JOIN_BEVEL);
    cairo_set_dash(canvas, dashes.data(), static_cast<int>(dashes.size()), dashOffset);
    cairo_stroke(canvas);
    cairo_set_dash(canvas, nullptr, 0, 0.0);
}

void DrawMarker(cairo_t* canvas, Marker marker, Point place, double size, Colour colour)
{
    const double r = size / 2.0;
    SetColour(canvas, colour);
    cairo_new_sub_path(canvas);
    switch (marker) {
        case Marker::Circle:
            cairo_arc(canvas, place.x, place.y, r, 0.0, 2.0 * M_PI);
            break;
        case Marker::Square:
            cairo_rectangle(canvas, place.x - 0.9 * r, place.y - 0.9 * r, 1.8 * r, 1.8 * r);
            break;
        case Marker::Triangle:
            cairo_move_to(canvas, place.x, place.y - 1.1 * r);
            cairo_line_to(canvas, place.x + r, place.y + 0.8 * r);
            cairo_line_to(canvas, place.x - r, place.y + 0.8 * r);
            cairo_close_path(canvas);
            break;
        case Marker::Diamond:
            cairo_move_to(canvas, place.x, place.y - 1.2 * r);
            cairo_line_to(canvas, place.x + 1.2 * r, place.y);
            cairo_line_to(canvas, place.x, place.y + 1.2 * r);
            cairo_line_to(canvas, place.x - 1.2 * r, place.y);
            cairo_close_path(canvas);
            break;
        case Marker::Cross:
            cairo_move_to(canvas, place.x - r, place.y - r);
            cairo_line_to(canvas, place.x + r, place.y + r);
            cairo_move_to(canvas, place.x - r, place.y + r);
            cairo_line_to(canvas, place.x + r, place.y - r);
            cairo_set_line_width(canvas, 2.0);
            cairo_stroke(canvas);
            return;
        case Marker::None:
            cairo_new_path(canvas);
            return;
    }
    cairo_fill(canvas);
}

void DrawHatching(cairo_t* canvas, const Rect& box, Marker kind, Colour colour)
{
    constexpr double kDistance = 7.0;
    // Bars with circles are plain; the others have lines that rise, fall, lie or cross.
    const bool rises = kind == Marker::Square || kind == Marker::Cross;
    const bool falls = kind == Marker::Triangle || kind == Marker::Cross;
    cairo_save(canvas);
    cairo_rectangle(canvas, box.x, box.y, box.width, box.height);
    cairo_clip(canvas);
    cairo_new_path(canvas);
    for (double at = 0.0; (rises || falls) && at < box.width + box.height; at += kDistance) {
        if (rises) {
            cairo_move_to(canvas, box.x + at, box.y);
            cairo_rel_line_to(canvas, -box.height, box.height);
        }
        if (falls) {
            cairo_move_to(canvas, box.Right() - at, box.y);
            cairo_rel_line_to(canvas, box.height, box.height);
        }
    }
    for (double y = box.y + kDistance / 2.0; kind == Marker::Diamond && y < box.Bottom(); y += kDistance) {
        cairo_move_to(canvas, box.x, y);
        cairo_line_to(canvas, box.Right(), y);
    }
    SetColour(canvas, colour);
    cairo_set_line_width(canvas, 1.2);
    cairo_stroke(canvas);
    cairo_restore(canvas);
}

void DrawBarSample(cairo_t* canvas, const SeriesStyle& style, double width, double height)
{
    const Rect box{width / 4.0, height * 0.15, width / 2.0, height * 0.7};
    cairo_rectangle(canvas, box.x, box.y, box.width, box.height);
    SetColour(canvas, style.colour);
    cairo_fill(canvas);
    DrawHatching(canvas, box, style.marker, Colour{255, 255, 255, 0.6});
}

}  // namespace chartdir
