// SPDX-License-Identifier: MIT
#include "chartdir/segment_layer.h"

#include "chartdir/strokes.h"
#include "chartdir/text.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace chartdir {

namespace {

constexpr double kWidest = 90.0;
constexpr double kShare = 0.3;  // of a bar, of the distance between pairs
constexpr double kGap = 1.0;    // between the bars of a pair
constexpr double kLeastText = 9.0;
constexpr double kLargestText = 12.0;
constexpr double kSidesPerText = 20.0;
constexpr double kPadding = 2.0;
constexpr double kLeader = 6.0;

/// Black or white, whichever is read better on a colour.
Colour InkOn(Colour colour)
{
    const Colour dark = LightTheme().ink;
    const Colour light = LightTheme().background;
    return ContrastOf(dark, colour) > ContrastOf(light, colour) ? dark : light;
}

/// The names of segments; those of several bars are alike, and each is set once for each colour.
class Labels
{
public:
    explicit Labels(double size) : m_size(size) {}

    const Text& Of(const std::string& label, Colour colour)
    {
        const std::uint32_t rgb = static_cast<std::uint32_t>(colour.red) << 16U |
                                  static_cast<std::uint32_t>(colour.green) << 8U | colour.blue;
        const auto key = std::pair(label, rgb);
        auto found = m_texts.find(key);
        if (found == m_texts.end())
            found = m_texts.emplace(key, Text(m_context, label, {.size = m_size, .colour = colour})).first;
        return found->second;
    }

    /// What a segment is called, the longest name first.
    std::vector<const Text*> NamesOf(const Segment& segment, Colour colour)
    {
        std::vector<const Text*> names;
        for (const std::string* label : {&segment.label, &segment.shortLabel}) {
            if (!label->empty())
                names.push_back(&Of(*label, colour));
        }
        return names;
    }

    /// The name that has room in a segment, or null.
    const Text* Inside(const Segment& segment, const Rect& box)
    {
        // Hatching takes the quiet that a text needs.
        if (segment.hatching != Marker::None)
            return nullptr;
        for (const Text* text : NamesOf(segment, InkOn(segment.colour))) {
            if (text->Height() <= box.height && text->Width() + 2.0 * kPadding <= box.width)
                return text;
        }
        return nullptr;
    }

private:
    TextContext m_context;
    double m_size;
    std::map<std::pair<std::string, std::uint32_t>, Text> m_texts;
};

/// The names beside a bar: none stands on another or outside of the plot.
class Beside
{
public:
    /// `edge` of the bar, with that much room to its side.
    Beside(const Rect& plot, double edge, double room, bool isLeft)
        : m_plot(plot), m_edge(edge), m_room(room), m_direction(isLeft ? -1.0 : 1.0)
    {}

    /// From below; the first of the names, the longer ones first, that has room.
    void Add(const Rect& box, const std::vector<const Text*>& names)
    {
        const auto fitting = std::ranges::find_if(
            names, [this](const Text* name) { return name->Width() + kLeader + kPadding <= m_room; });
        if (fitting != names.end())
            m_names.push_back({*fitting, box.y + box.height / 2.0, box.height, 0.0});
        else
            m_lacksSome = true;
    }
    /// Whether a name had no room to the side.
    bool LacksSome() const { return m_lacksSome; }

    void Draw(cairo_t* canvas, Colour line)
    {
        Place();
        for (const Name& name : m_names) {
            const double at = m_edge + m_direction * kLeader;
            const double left = m_direction < 0.0 ? at - kPadding - name.text->Width() : at + kPadding;
            DrawHairline(canvas, {m_edge, name.middle}, {at, name.top + name.text->Height() / 2.0}, line);
            name.text->Draw(canvas, {left, name.top});
        }
    }

private:
    struct Name
    {
        const Text* text;
        double middle;  ///< of its segment
        double size;    ///< of its segment
        double top;
    };

    void Place()
    {
        // What has no room are the names of the thinnest segments.
        double height = 0.0;
        for (const Name& name : m_names)
            height += name.text->Height();
        while (!m_names.empty() && height > m_plot.height) {
            const auto thinnest = std::ranges::min_element(m_names, {}, &Name::size);
            height -= thinnest->text->Height();
            m_names.erase(thinnest);
        }
        double floor = m_plot.Bottom();
        for (Name& name : m_names) {
            name.top = std::min(name.middle + name.text->Height() / 2.0, floor) - name.text->Height();
            floor = name.top;
        }
        double ceiling = m_plot.y;
        for (auto name = m_names.rbegin(); name != m_names.rend(); ++name) {
            name->top = std::max(name->top, ceiling);
            ceiling = name->top + name->text->Height();
        }
    }

    const Rect& m_plot;
    double m_edge;
    double m_room;
    double m_direction;
    std::vector<Name> m_names;
    bool m_lacksSome = false;
};

double SumOf(const std::vector<Segment>& segments)
{
    double sum = 0.0;
    for (const Segment& segment : segments)
        sum += segment.value;
    return sum;
}

void Fill(cairo_t* canvas, const Rect& box, const Segment& segment, Colour background)
{
    cairo_rectangle(canvas, box.x, box.y, box.width, box.height);
    SetColour(canvas, segment.colour);
    cairo_fill(canvas);
    DrawHatching(canvas, box, segment.hatching, background.WithAlpha(0.8));
    DrawHairline(canvas, {box.x, box.y}, {box.Right(), box.y}, background);
}

}  // namespace

void SegmentLayer::addLegendEntry(std::string name, Colour colour, Marker hatching)
{
    addDataSet({}, std::move(name), m_sets.size()).style = {.colour = colour, .marker = hatching};
}

void SegmentLayer::addPair(std::vector<Segment> left, std::vector<Segment> right)
{
    const auto isNothing = [](const Segment& segment) {
        return !(segment.value > 0.0) || !std::isfinite(segment.value);
    };
    std::erase_if(left, isNothing);
    std::erase_if(right, isNothing);
    m_pairs.push_back({std::move(left), std::move(right)});
}

void SegmentLayer::Extend(DataRange& x, DataRange& y) const
{
    for (std::size_t place = 0; place < m_pairs.size(); ++place) {
        const double sum = std::max(SumOf(m_pairs[place].left), SumOf(m_pairs[place].right));
        if (!(sum > 0.0))
            continue;
        x.Add(static_cast<double>(place) - 0.5);
        x.Add(static_cast<double>(place) + 0.5);
        y.Add(0.0);
        y.Add(sum);
    }
}

std::vector<SegmentLayer::Box> SegmentLayer::BoxesOf(std::size_t place, bool isLeft,
                                                     const Mapping& mapping) const
{
    const double distance = std::abs(mapping.ToPixelX(1.0) - mapping.ToPixelX(0.0));
    const double middle = mapping.ToPixelX(static_cast<double>(place));
    const double width = std::min(distance * kShare, kWidest);
    const Rect& plot = mapping.plot;
    std::vector<Box> boxes;
    if (!std::isfinite(middle) || middle < plot.x - distance || middle > plot.Right() + distance)
        return boxes;
    double below = 0.0;
    for (const Segment& segment : isLeft ? m_pairs[place].left : m_pairs[place].right) {
        const double x = isLeft ? middle - kGap - width : middle + kGap;
        const Point foot = NearPlot({x, mapping.ToPixelY(below)}, plot);
        below += segment.value;
        const Point top = NearPlot({x + width, mapping.ToPixelY(below)}, plot);
        boxes.push_back({&segment, {foot.x, top.y, top.x - foot.x, foot.y - top.y}});
    }
    return boxes;
}

void SegmentLayer::Draw(cairo_t* canvas, const Mapping& mapping, const Theme& theme) const
{
    const double side = std::min(mapping.plot.width, mapping.plot.height);
    Labels labels(std::clamp(side / kSidesPerText, kLeastText, kLargestText));
    const double distance = std::abs(mapping.ToPixelX(1.0) - mapping.ToPixelX(0.0));
    for (std::size_t place = 0; place < m_pairs.size(); ++place) {
        for (const bool isLeft : {true, false}) {
            const std::vector<Box> boxes = BoxesOf(place, isLeft, mapping);
            if (boxes.empty())
                continue;
            const Rect& first = boxes.front().box;
            Beside beside(mapping.plot, isLeft ? first.x : first.Right(), distance / 2.0 - kGap - first.width,
                          isLeft);
            for (const auto& [segment, box] : boxes) {
                Fill(canvas, box, *segment, theme.background);
                if (const Text* inside = labels.Inside(*segment, box))
                    inside->Draw(canvas, {box.x + (box.width - inside->Width()) / 2.0,
                                          box.y + (box.height - inside->Height()) / 2.0});
                else
                    beside.Add(box, labels.NamesOf(*segment, theme.ink));
            }
            // Where a legend names them, some alone would mislead.
            if (m_sets.empty() || !beside.LacksSome())
                beside.Draw(canvas, theme.muted);
        }
    }
}

void SegmentLayer::DrawSample(cairo_t* canvas, const DataSet& set, double width, double height) const
{
    DrawBarSample(canvas, set.style, width, height);
}

void SegmentLayer::AddHotSpots(ImageMap& map) const
{
    const Rect& plot = map.mapping.plot;
    for (std::size_t place = 0; place < m_pairs.size(); ++place) {
        for (const bool isLeft : {true, false}) {
            for (const auto& [segment, box] : BoxesOf(place, isLeft, map.mapping)) {
                const Point from{std::max(box.x, plot.x), std::max(box.y, plot.y)};
                const Point to{std::min(box.Right(), plot.Right()), std::min(box.Bottom(), plot.Bottom())};
                if (from.x > to.x || from.y > to.y)
                    continue;
                map.series.push_back(segment->label);
                map.spots.push_back({.shape = HotSpot::Shape::Bar,
                                     .series = map.series.size() - 1,
                                     .from = from,
                                     .to = to,
                                     .place = place,
                                     .value = segment->value,
                                     .text = segment->tip});
            }
        }
    }
}

}  // namespace chartdir
