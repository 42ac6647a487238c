// SPDX-License-Identifier: MIT
#pragma once

#include "chartdir/chartdir_export.h"
#include "chartdir/geometry.h"
#include "chartdir/reduction.h"
#include "chartdir/xy_chart.h"

namespace chartdir {

/// Along which axes a view is zoomed and scrolled.
enum class Directions
{
    Horizontal,
    Vertical,
    Both
};

/// The part of a chart that is in view, as a box within the whole of both scales (0 to 1 from the left and
/// from the bottom, on logarithmic axes in logarithms). It always lies within the whole and is never smaller
/// than a millionth of it.
class CHARTDIR_EXPORT ViewPortManager
{
public:
    /// Of `x` and `y` Bottom() is the upper end of the ordinate.
    const Rect& getViewPort() const { return m_view; }
    /// Takes any box and puts it right.
    void setViewPort(const Rect& view);
    bool isWhole() const { return m_view.width >= 1.0 && m_view.height >= 1.0; }

    void setDirections(Directions directions) { m_directions = directions; }
    /// Where the plot area stands, as the chart was drawn last.
    void setPlotArea(const Rect& plot) { m_plot = plot; }
    bool inPlotArea(double x, double y) const { return m_plot.Contains(x, y); }

    bool canZoomIn() const;
    bool canZoomOut() const { return !isWhole(); }
    /// Shows that many times as much, with what stands at the pixel staying there: less than 1 zooms in.
    /// False, and nothing changes, for a pixel outside of the plot area or a factor that is not positive.
    bool zoomAt(double x, double y, double factor);
    /// Zooms to a rectangle of pixels, given by two corners, as far as it lies in the plot area. False when
    /// less than 3 pixels of it do, in a direction that is zoomed.
    bool zoomTo(Point corner, Point opposite);
    /// Keeps the view from which a drag begins.
    void startDrag() { m_dragStart = m_view; }
    /// Moves the chart with the pointer, which has gone that many pixels since.
    bool dragTo(double dx, double dy);
    /// Moves the view by that share of what is in view: 1 is a whole page to the right or upwards.
    bool scrollBy(double right, double up);
    bool showAll();

    /// Brings the view into the whole and above its least size; whether anything had to be changed.
    bool validateViewPort();
    /// Gives the axes of a chart what is in view of them.
    void syncAxes(XYChart& chart) const;

private:
    bool Take(Rect view);
    bool IsHorizontal() const { return m_directions != Directions::Vertical; }
    bool IsVertical() const { return m_directions != Directions::Horizontal; }

    Rect m_view{0.0, 0.0, 1.0, 1.0};
    Rect m_dragStart{0.0, 0.0, 1.0, 1.0};
    Rect m_plot;
    Directions m_directions = Directions::Both;
};

}  // namespace chartdir
