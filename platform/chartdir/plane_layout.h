// SPDX-License-Identifier: MIT
#pragma once

/// Where the parts of a plane and its texts stand. Internal to the library.

#include "chartdir/chart_head.h"
#include "chartdir/plane_chart.h"
#include "chartdir/text.h"

#include <array>
#include <string>
#include <vector>

namespace chartdir {

class PlaneLayout
{
public:
    /// The chart outlives the layout.
    explicit PlaneLayout(const PlaneChart& chart);

    Point ToPixel(Point place) const
    {
        return {m_origin.x + m_scale * place.x, m_origin.y - m_scale * place.y};
    }
    void DrawTexts(cairo_t* canvas) const;
    void DrawInMiddle(cairo_t* canvas, const std::string& markup) const;

private:
    /// A text with the place to which it belongs.
    struct Item
    {
        Text text;
        Point anchor;          ///< in the plane
        Point shift;           ///< from there to the middle of the text, pixels downwards
        double angle = 0.0;    ///< radians, clockwise on the screen
        double room = 0.0;     ///< in the plane; a text that is longer is left out; 0: any
        double strip = 0.0;    ///< the same for its height
        std::string markup{};  ///< of a text that may become smaller

        double HalfWidth() const;
        double HalfHeight() const;
        std::array<Point, 4> CornersAt(Point middle) const;
    };

    void AddLegend();
    void AddCorners();
    void AddSides();
    void AddTicks();
    bool HasTicks(const PlaneChart::Side& side) const;
    /// How far a text beyond the ticks of a side stands from it, pixels.
    double BeyondTicks(const PlaneChart::Side& side) const;
    /// The largest scale at which everything has room.
    void Fit();
    Rect ExtentAt(double scale) const;
    bool HasRoom(const Item& item) const;
    /// Makes texts smaller that are longer than their side or higher than its strip, and leaves out what
    /// would be too small to be read.
    void ShrinkLongTexts();
    /// Leaves out what stands on what was placed before it.
    void DropCollisions();
    Point MiddleOf(const Item& item) const;

    const PlaneChart& m_chart;
    TextContext m_context;
    ChartHead m_head;
    Rect m_area;
    std::vector<Item> m_items;
    double m_scale = 1.0;
    Point m_origin;
};

}  // namespace chartdir
