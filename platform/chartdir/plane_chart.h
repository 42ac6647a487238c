// SPDX-License-Identifier: MIT
#pragma once

#include "chartdir/base_chart.h"

#include <string>
#include <vector>

namespace chartdir {

/// Frames and markers in a plane whose directions have one scale, such as triangles of three shares. Places
/// are in units of the plane, the ordinate upwards; the plane is drawn as large as it and its texts have
/// room.
class CHARTDIR_EXPORT PlaneChart : public BaseChart
{
public:
    PlaneChart(int width, int height) : BaseChart(width, height) {}

    struct Line
    {
        Point from;
        Point to;
    };
    /// A text at a corner of a frame, on the side of it to which `away` points.
    struct Corner
    {
        Point at;
        Point away;
        std::string markup;
    };
    /// What is told along a side of a frame, read in its direction; ticks stand between its ends at equal
    /// distances. `away` points out of the frame, at a right angle and 1 long.
    struct Side
    {
        Line line;
        Point away;
        std::string markup{};
        std::vector<std::string> ticks{};
        /// Of the strip beside the side in which the text stands, in the plane; 0: as much as it needs.
        double strip = 0.0;
    };
    struct Spot
    {
        Point at;
        double size = 8.0;  ///< pixels
        std::string tip{};  ///< what it tells when pointed at
    };
    struct Series
    {
        std::string name{};
        SeriesStyle style{};
        std::vector<Spot> spots{};
    };

    void addFrame(std::vector<Point> corners) { m_frames.push_back(std::move(corners)); }
    void addGridLine(Point from, Point to) { m_grid.push_back({from, to}); }
    void addCorner(Corner corner) { m_corners.push_back(std::move(corner)); }
    void addSide(Side side) { m_sides.push_back(std::move(side)); }
    void addSeries(Series series) { m_series.push_back(std::move(series)); }
    void setLegend(bool isShown) { m_hasLegend = isShown; }
    /// Stands in the middle while there is no marker.
    void setNoDataText(std::string markup) { m_noDataText = std::move(markup); }

    const std::vector<std::vector<Point>>& getFrames() const { return m_frames; }
    const std::vector<Line>& getGrid() const { return m_grid; }
    const std::vector<Corner>& getCorners() const { return m_corners; }
    const std::vector<Side>& getSides() const { return m_sides; }
    const std::vector<Series>& getSeries() const { return m_series; }
    bool hasLegend() const { return m_hasLegend; }
    bool hasData() const;

    /// Where a place of the plane is drawn.
    Point toPixel(Point place) const;
    ImageMap getImageMap() const override;

protected:
    void DoDraw(cairo_t* canvas) const override;

private:
    std::vector<std::vector<Point>> m_frames;
    std::vector<Line> m_grid;
    std::vector<Corner> m_corners;
    std::vector<Side> m_sides;
    std::vector<Series> m_series;
    std::string m_noDataText;
    bool m_hasLegend = true;
};

}  // namespace chartdir
