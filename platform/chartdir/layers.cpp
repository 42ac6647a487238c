// SPDX-License-Identifier: MIT
#include "chartdir/layers.h"

#include "chartdir/strokes.h"
#include "chartdir/text.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace chartdir {

namespace {

/// Distance between the markers of a curve with many points, in pixels.
constexpr double kMarkerDistance = 110.0;
constexpr std::size_t kFewPoints = 25;

void DrawMarkers(cairo_t* canvas, const std::vector<CurveRun>& runs, const DataSet& set, const Rect& plot)
{
    if (set.style.marker == Marker::None)
        return;
    const bool isSparse = set.isMarkedSparsely && set.values.size() > kFewPoints;
    constexpr double kShift = 0.23;
    double next = plot.x + std::fmod(kShift * static_cast<double>(set.place + 1), 1.0) * kMarkerDistance;
    for (const CurveRun& run : runs) {
        for (const CurvePoint& point : run) {
            const Point at = point.place;
            if (!plot.Contains(at.x, at.y) || (isSparse && at.x < next))
                continue;
            DrawMarker(canvas, set.style.marker, at, set.markerSize, set.style.colour);
            next = at.x + kMarkerDistance;
        }
    }
}

void DrawCurve(cairo_t* canvas, const std::vector<CurveRun>& runs, const DataSet& set, const Rect& plot)
{
    if (set.lineWidth > 0.0) {
        for (const CurveRun& run : runs)
            StrokeRun(canvas, run, plot, set.style, set.lineWidth);
        // A point between two gaps has no line.
        for (const CurveRun& run : runs) {
            if (run.size() == 1 && plot.Contains(run[0].place.x, run[0].place.y))
                DrawMarker(canvas, Marker::Circle, run[0].place, 2.0 * set.lineWidth, set.style.colour);
        }
    }
    DrawMarkers(canvas, runs, set, plot);
}

void AddSegments(ImageMap& map, const CurveRun& run, bool hasLine)
{
    const Rect& plot = map.mapping.plot;
    for (std::size_t i = 0; i < run.size(); ++i) {
        const Point to = run[i].place;
        const Point from = i == 0 || !hasLine ? to : run[i - 1].place;
        const bool isSeen = plot.Contains(to.x, to.y) || plot.Contains(from.x, from.y);
        if (isSeen && (i > 0 || run.size() == 1 || !hasLine))
            map.spots.push_back({.series = map.series.size() - 1, .from = from, .to = to});
    }
}

void AddPoints(ImageMap& map, const CurveRun& run, const std::vector<std::string>& tips)
{
    for (const CurvePoint& point : run) {
        if (map.mapping.plot.Contains(point.place.x, point.place.y) && point.index < tips.size())
            map.spots.push_back({.series = map.series.size() - 1,
                                 .from = point.place,
                                 .to = point.place,
                                 .text = tips[point.index]});
    }
}

/// Place of zero, or of the end of the axis next to it.
double Baseline(const Mapping& mapping)
{
    if (mapping.y.isLog)
        return mapping.y.lower < mapping.y.upper ? mapping.plot.Bottom() : mapping.plot.y;
    return std::clamp(mapping.ToPixelY(0.0), mapping.plot.y, mapping.plot.Bottom());
}

}  // namespace

Layer::~Layer() = default;

DataSet& Layer::addDataSet(std::vector<double> values, std::string name, std::size_t place)
{
    return m_sets.emplace_back(DataSet{
        .name = std::move(name), .values = std::move(values), .place = place, .style = StyleOfSeries(place)});
}

const std::vector<double>& Layer::Abscissas(std::size_t count, std::vector<double>& room) const
{
    if (m_xs)
        return *m_xs;
    room.resize(count);
    std::iota(room.begin(), room.end(), 0.0);
    return room;
}

std::vector<CurveRun> Layer::RunsOfSet(const DataSet& set, const Mapping& mapping) const
{
    std::vector<double> room;
    return RunsOf(Abscissas(set.values.size(), room), set.values, mapping);
}

void Layer::Extend(DataRange& x, DataRange& y) const
{
    for (const DataSet& set : m_sets) {
        std::vector<double> room;
        const std::vector<double>& xs = Abscissas(set.values.size(), room);
        const std::size_t count = std::min(xs.size(), set.values.size());
        // Kept at hand while the values pass.
        DataRange ofX = x;
        DataRange ofY = y;
        for (std::size_t i = 0; i < count; ++i) {
            if (!std::isfinite(xs[i]) || !std::isfinite(set.values[i]))
                continue;
            ofX.Add(xs[i]);
            ofY.Add(set.values[i]);
        }
        x = ofX;
        y = ofY;
    }
}

void Layer::AddHotSpots(ImageMap& map) const
{
    for (const DataSet& set : m_sets) {
        map.series.push_back(set.name);
        for (const CurveRun& run : RunsOfSet(set, map.mapping)) {
            if (set.tips.empty())
                AddSegments(map, run, set.lineWidth > 0.0);
            else
                AddPoints(map, run, set.tips);
        }
    }
}

void Layer::DrawSample(cairo_t* canvas, const DataSet& set, double width, double height) const
{
    const double middle = height / 2.0;
    if (set.lineWidth > 0.0) {
        cairo_move_to(canvas, 0.0, middle);
        cairo_line_to(canvas, width, middle);
        StrokeWith(canvas, set.style, set.lineWidth);
    }
    DrawMarker(canvas, set.style.marker, {width / 2.0, middle}, set.markerSize, set.style.colour);
}

void LineLayer::Draw(cairo_t* canvas, const Mapping& mapping, const Theme&) const
{
    for (const DataSet& set : m_sets)
        DrawCurve(canvas, RunsOfSet(set, mapping), set, mapping.plot);
}

void AreaLayer::Extend(DataRange& x, DataRange& y) const
{
    Layer::Extend(x, y);
    if (!y.IsEmpty())
        y.Add(0.0);
}

void AreaLayer::Draw(cairo_t* canvas, const Mapping& mapping, const Theme&) const
{
    constexpr double kOpacity = 0.3;
    const double base = Baseline(mapping);
    for (const DataSet& set : m_sets) {
        const std::vector<CurveRun> runs = RunsOfSet(set, mapping);
        for (const CurveRun& run : runs) {
            cairo_move_to(canvas, NearPlot(run.front().place, mapping.plot).x, base);
            for (const CurvePoint& point : run) {
                const Point at = NearPlot(point.place, mapping.plot);
                cairo_line_to(canvas, at.x, at.y);
            }
            cairo_line_to(canvas, NearPlot(run.back().place, mapping.plot).x, base);
            cairo_close_path(canvas);
        }
        SetColour(canvas, set.style.colour.WithAlpha(kOpacity));
        cairo_fill(canvas);
        DrawCurve(canvas, runs, set, mapping.plot);
    }
}

void AreaLayer::DrawSample(cairo_t* canvas, const DataSet& set, double width, double height) const
{
    cairo_rectangle(canvas, 0.0, height / 2.0, width, height / 2.0);
    SetColour(canvas, set.style.colour.WithAlpha(0.3));
    cairo_fill(canvas);
    Layer::DrawSample(canvas, set, width, height);
}

std::pair<double, double> BarLayer::Span(std::size_t set, std::size_t place) const
{
    const double value = m_sets[set].values[place];
    double start = 0.0;
    for (std::size_t below = 0; m_mode == BarMode::Stacked && below < set; ++below) {
        const double other = place < m_sets[below].values.size() ? m_sets[below].values[place] : 0.0;
        // What is not known has no height; both directions are stacked for themselves.
        if (std::isfinite(other) && std::signbit(other) == std::signbit(value))
            start += other;
    }
    return {start, start + value};
}

void BarLayer::Extend(DataRange& x, DataRange& y) const
{
    for (std::size_t set = 0; set < m_sets.size(); ++set) {
        for (std::size_t place = 0; place < m_sets[set].values.size(); ++place) {
            const auto [from, to] = Span(set, place);
            if (!std::isfinite(to))
                continue;
            x.Add(static_cast<double>(place) - 0.5);
            x.Add(static_cast<double>(place) + 0.5);
            y.Add(from);
            y.Add(to);
        }
    }
}

std::vector<BarLayer::Bar> BarLayer::BarsOf(const Mapping& mapping) const
{
    constexpr double kShare = 0.72;  // of the distance between places
    std::vector<Bar> bars;
    const double distance = std::abs(mapping.ToPixelX(1.0) - mapping.ToPixelX(0.0));
    if (!std::isfinite(distance))
        return bars;
    const auto count =
        static_cast<double>(m_mode == BarMode::Side ? std::max<std::size_t>(m_sets.size(), 1) : 1);
    const double width = std::max(distance * kShare / count, 1.0);
    const double base = Baseline(mapping);
    for (std::size_t set = 0; set < m_sets.size(); ++set) {
        for (std::size_t place = 0; place < m_sets[set].values.size(); ++place) {
            const auto [from, to] = Span(set, place);
            const double middle = mapping.ToPixelX(static_cast<double>(place));
            const double start = from == 0.0 ? base : mapping.ToPixelY(from);
            const double end = mapping.ToPixelY(to);
            if (!std::isfinite(middle) || !std::isfinite(start) || !std::isfinite(end))
                continue;
            const double offset =
                m_mode == BarMode::Side ? (static_cast<double>(set) - (count - 1.0) / 2.0) * width : 0.0;
            const Point one = NearPlot({middle + offset - width / 2.0, start}, mapping.plot);
            const Point other = NearPlot({middle + offset + width / 2.0, end}, mapping.plot);
            bars.push_back(
                {set, place, {one.x, std::min(one.y, other.y), other.x - one.x, std::abs(other.y - one.y)}});
        }
    }
    return bars;
}

void BarLayer::Draw(cairo_t* canvas, const Mapping& mapping, const Theme& theme) const
{
    for (const Bar& bar : BarsOf(mapping)) {
        const SeriesStyle& style = m_sets[bar.set].style;
        cairo_rectangle(canvas, bar.box.x, bar.box.y, bar.box.width, bar.box.height);
        SetColour(canvas, style.colour);
        cairo_fill(canvas);
        DrawHatching(canvas, bar.box, style.marker, theme.background.WithAlpha(0.6));
    }
}

void BarLayer::AddHotSpots(ImageMap& map) const
{
    const std::size_t first = map.series.size();
    for (const DataSet& set : m_sets)
        map.series.push_back(set.name);
    const Rect& plot = map.mapping.plot;
    for (const Bar& bar : BarsOf(map.mapping)) {
        const Point from{std::max(bar.box.x, plot.x), std::max(bar.box.y, plot.y)};
        const Point to{std::min(bar.box.Right(), plot.Right()), std::min(bar.box.Bottom(), plot.Bottom())};
        if (from.x > to.x || from.y > to.y)
            continue;
        map.spots.push_back({.shape = HotSpot::Shape::Bar,
                             .series = first + bar.set,
                             .from = from,
                             .to = to,
                             .place = bar.place,
                             .value = m_sets[bar.set].values[bar.place]});
    }
}

void BarLayer::DrawSample(cairo_t* canvas, const DataSet& set, double width, double height) const
{
    DrawBarSample(canvas, set.style, width, height);
}

}  // namespace chartdir
