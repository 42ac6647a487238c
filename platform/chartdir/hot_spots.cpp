// SPDX-License-Identifier: MIT
#include "chartdir/hot_spots.h"

#include "chartdir/markup.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace chartdir {

namespace {

constexpr int kDigits = 4;

/// The place of a segment that is nearest to a point.
Point NearestOn(const HotSpot& spot, Point point)
{
    const double dx = spot.to.x - spot.from.x;
    const double dy = spot.to.y - spot.from.y;
    const double square = dx * dx + dy * dy;
    if (square == 0.0)
        return spot.from;
    const double along = ((point.x - spot.from.x) * dx + (point.y - spot.from.y) * dy) / square;
    const double part = std::clamp(along, 0.0, 1.0);
    return {spot.from.x + part * dx, spot.from.y + part * dy};
}

Rect BoxOf(const HotSpot& spot)
{
    const auto [left, right] = std::minmax(spot.from.x, spot.to.x);
    const auto [top, bottom] = std::minmax(spot.from.y, spot.to.y);
    return {left, top, right - left, bottom - top};
}

std::string Escaped(const std::string& text)
{
    std::string result;
    for (const char c : text) {
        switch (c) {
            case '&':
                result += "&amp;";
                break;
            case '<':
                result += "&lt;";
                break;
            case '>':
                result += "&gt;";
                break;
            case '"':
                result += "&quot;";
                break;
            case '\n':
                result += "&#10;";
                break;
            default:
                result += c;
        }
    }
    return result;
}

/// A curve as a strip around its segment, a bar as itself.
std::string AreaOf(const HotSpot& spot)
{
    if (spot.shape == HotSpot::Shape::Bar) {
        const Rect box = BoxOf(spot);
        return fmt::format("shape=\"rect\" coords=\"{:.0f},{:.0f},{:.0f},{:.0f}\"", box.x, box.y, box.Right(),
                           box.Bottom());
    }
    const double dx = spot.to.x - spot.from.x;
    const double dy = spot.to.y - spot.from.y;
    const double length = std::hypot(dx, dy);
    if (length == 0.0)
        return fmt::format("shape=\"circle\" coords=\"{:.0f},{:.0f},{:.0f}\"", spot.from.x, spot.from.y,
                           ImageMapHandler::kReach);
    const double across = ImageMapHandler::kReach / length;
    const Point side{-dy * across, dx * across};
    return fmt::format("shape=\"poly\" coords=\"{:.0f},{:.0f},{:.0f},{:.0f},{:.0f},{:.0f},{:.0f},{:.0f}\"",
                       spot.from.x + side.x, spot.from.y + side.y, spot.to.x + side.x, spot.to.y + side.y,
                       spot.to.x - side.x, spot.to.y - side.y, spot.from.x - side.x, spot.from.y - side.y);
}

}  // namespace

std::string ImageMapHandler::TextOf(const HotSpot& spot, double x, double y) const
{
    if (!spot.text.empty())
        return spot.text;
    const auto line = [this](const std::string& title, const std::string& value) {
        return title.empty() ? value : fmt::format("{}: {}", PlainText(title), value);
    };
    const auto number = [this](double value) {
        return numbertext::Format(value, {.precision = kDigits}, m_map.separators);
    };
    const std::string& name = m_map.series.at(spot.series);
    std::string text = name.empty() ? std::string() : PlainText(name) + "\n";
    const bool isNamed = spot.shape == HotSpot::Shape::Bar && spot.place < m_map.xLabels.size();
    text += isNamed ? PlainText(m_map.xLabels[spot.place]) : line(m_map.xTitle, number(x));
    return text + "\n" + line(m_map.yTitle, number(y));
}

ImageMapHandler::Hit ImageMapHandler::HitOf(const HotSpot& spot, Point place) const
{
    Hit hit{.series = spot.series, .place = place, .x = m_map.mapping.ToValueX(place.x)};
    hit.y = spot.shape == HotSpot::Shape::Bar ? spot.value : m_map.mapping.ToValueY(place.y);
    hit.text = TextOf(spot, hit.x, hit.y);
    return hit;
}

std::optional<ImageMapHandler::Hit> ImageMapHandler::Find(double x, double y, double reach) const
{
    const HotSpot* found = nullptr;
    Point foundPlace;
    double least = reach;
    for (const HotSpot& spot : m_map.spots) {
        const bool isBar = spot.shape == HotSpot::Shape::Bar;
        if (isBar && !BoxOf(spot).Contains(x, y))
            continue;
        const Point place = isBar ? Point{x, y} : NearestOn(spot, {x, y});
        const double distance = std::hypot(place.x - x, place.y - y);
        if (!(distance <= least))
            continue;
        least = distance;
        found = &spot;
        foundPlace = place;
    }
    return found == nullptr ? std::nullopt : std::optional(HitOf(*found, foundPlace));
}

std::string ToHtml(const ImageMap& map, const std::string& link)
{
    const ImageMapHandler handler(map);
    std::string html;
    const std::string target = link.empty() ? "nohref" : fmt::format("href=\"{}\"", Escaped(link));
    for (const HotSpot& spot : map.spots) {
        const Point middle{(spot.from.x + spot.to.x) / 2.0, (spot.from.y + spot.to.y) / 2.0};
        html += fmt::format("<area {} {} title=\"{}\">\n", AreaOf(spot), target,
                            Escaped(handler.HitOf(spot, middle).text));
    }
    return html;
}

}  // namespace chartdir
