// SPDX-License-Identifier: MIT
#pragma once

/// Places of a chart that tell a value: pieces of curves and bars.

#include "chartdir/chartdir_export.h"
#include "chartdir/reduction.h"
#include "core/number_text.h"

#include <optional>
#include <string>
#include <vector>

namespace chartdir {

struct HotSpot
{
    enum class Shape
    {
        Segment,  ///< between two points of a curve, which may be the same one
        Bar
    };
    Shape shape = Shape::Segment;
    std::size_t series = 0;  ///< place in ImageMap::series
    Point from{};            ///< of a bar a corner
    Point to{};              ///< of a bar the opposite corner
    std::size_t place = 0;   ///< of a bar, counted from 0
    double value = 0.0;      ///< of a bar
    std::string text{};      ///< what it tells where that is not its place on the axes
};

/// All hot spots of a chart with what their texts need.
struct ImageMap
{
    Mapping mapping;
    std::vector<std::string> series{};   ///< names
    std::vector<std::string> xLabels{};  ///< names of the places of bars
    std::string xTitle{};
    std::string yTitle{};
    numbertext::Separators separators{};
    std::vector<HotSpot> spots{};
};

/// Finds the hot spot under the pointer.
class CHARTDIR_EXPORT ImageMapHandler
{
public:
    explicit ImageMapHandler(ImageMap map) : m_map(std::move(map)) {}

    struct Hit
    {
        std::size_t series = 0;
        Point place{};  ///< on the curve, nearest to the pointer
        double x = 0.0;
        double y = 0.0;
        std::string text{};  ///< name, abscissa and value, a line each
    };
    /// The nearest one within `reach` pixels; of several at one place that which is drawn last.
    std::optional<Hit> Find(double x, double y, double reach = kReach) const;
    /// What a spot tells at a place on it.
    Hit HitOf(const HotSpot& spot, Point place) const;
    const ImageMap& GetMap() const { return m_map; }

    static constexpr double kReach = 6.0;

private:
    std::string TextOf(const HotSpot& spot, double x, double y) const;

    ImageMap m_map;
};

/// The hot spots as the areas of an HTML image map, with their texts as titles, each linked to `link` unless
/// it is empty. Texts are escaped.
CHARTDIR_EXPORT std::string ToHtml(const ImageMap& map, const std::string& link);

}  // namespace chartdir
