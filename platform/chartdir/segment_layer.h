// SPDX-License-Identifier: MIT
#pragma once

#include "chartdir/layers.h"

namespace chartdir {

/// A part of a bar with a name of its own.
struct Segment
{
    std::string label{};
    std::string shortLabel{};  ///< stands where the label has no room
    double value = 0.0;        ///< above 0
    Colour colour{};
    Marker hatching = Marker::None;  ///< as DataSet's marker hatches bars
    std::string tip{};               ///< what it tells when pointed at
};

/// Pairs of bars side by side at 0, 1, 2, …, each stacked from zero on. Names stand in the segments where
/// they have room, else beside the pair as far as they have room there.
class CHARTDIR_EXPORT SegmentLayer : public Layer
{
public:
    /// Adds an entry to the legend; names in the segments may do without.
    void addLegendEntry(std::string name, Colour colour, Marker hatching);
    void addPair(std::vector<Segment> left, std::vector<Segment> right);

    void Extend(DataRange& x, DataRange& y) const override;
    void Draw(cairo_t* canvas, const Mapping& mapping, const Theme& theme) const override;
    void AddHotSpots(ImageMap& map) const override;
    void DrawSample(cairo_t* canvas, const DataSet& set, double width, double height) const override;

private:
    struct Pair
    {
        std::vector<Segment> left;
        std::vector<Segment> right;
    };
    struct Box
    {
        const Segment* segment;
        Rect box;
    };
    /// The segments of one bar, from below.
    std::vector<Box> BoxesOf(std::size_t place, bool isLeft, const Mapping& mapping) const;

    std::vector<Pair> m_pairs;
};

}  // namespace chartdir
