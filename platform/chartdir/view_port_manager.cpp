// SPDX-License-Identifier: MIT
#include "chartdir/view_port_manager.h"

#include <algorithm>
#include <cmath>

namespace chartdir {

namespace {

constexpr double kLeast = 1e-6;

/// Brings one direction into the whole.
void Validate(double& start, double& length)
{
    if (!std::isfinite(length) || !std::isfinite(start)) {
        start = 0.0;
        length = 1.0;
    }
    length = std::clamp(length, kLeast, 1.0);
    start = std::clamp(start, 0.0, 1.0 - length);
}

bool IsSame(const Rect& a, const Rect& b)
{
    return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
}

}  // namespace

bool ViewPortManager::validateViewPort()
{
    const Rect before = m_view;
    Validate(m_view.x, m_view.width);
    Validate(m_view.y, m_view.height);
    return !IsSame(before, m_view);
}

void ViewPortManager::setViewPort(const Rect& view)
{
    m_view = view;
    validateViewPort();
}

bool ViewPortManager::Take(Rect view)
{
    const Rect before = m_view;
    if (!IsHorizontal()) {
        view.x = before.x;
        view.width = before.width;
    }
    if (!IsVertical()) {
        view.y = before.y;
        view.height = before.height;
    }
    setViewPort(view);
    return !IsSame(before, m_view);
}

bool ViewPortManager::canZoomIn() const
{
    return (IsHorizontal() && m_view.width > kLeast) || (IsVertical() && m_view.height > kLeast);
}

bool ViewPortManager::zoomAt(double x, double y, double factor)
{
    if (!inPlotArea(x, y) || !(factor > 0.0) || m_plot.width <= 0.0 || m_plot.height <= 0.0)
        return false;
    const double right = (x - m_plot.x) / m_plot.width;
    const double up = (m_plot.Bottom() - y) / m_plot.height;
    const double width = std::clamp(m_view.width * factor, kLeast, 1.0);
    const double height = std::clamp(m_view.height * factor, kLeast, 1.0);
    return Take(
        {m_view.x + right * (m_view.width - width), m_view.y + up * (m_view.height - height), width, height});
}

bool ViewPortManager::zoomTo(Point corner, Point opposite)
{
    constexpr double kLeastPixels = 3.0;
    const auto cut = [](double a, double b, double low, double high) {
        return std::pair(std::clamp(std::min(a, b), low, high), std::clamp(std::max(a, b), low, high));
    };
    const auto [left, right] = cut(corner.x, opposite.x, m_plot.x, m_plot.Right());
    const auto [top, bottom] = cut(corner.y, opposite.y, m_plot.y, m_plot.Bottom());
    if ((IsHorizontal() && right - left < kLeastPixels) || (IsVertical() && bottom - top < kLeastPixels))
        return false;
    return Take({m_view.x + (left - m_plot.x) / m_plot.width * m_view.width,
                 m_view.y + (m_plot.Bottom() - bottom) / m_plot.height * m_view.height,
                 (right - left) / m_plot.width * m_view.width,
                 (bottom - top) / m_plot.height * m_view.height});
}

bool ViewPortManager::dragTo(double dx, double dy)
{
    if (m_plot.width <= 0.0 || m_plot.height <= 0.0)
        return false;
    return Take({m_dragStart.x - dx / m_plot.width * m_view.width,
                 m_dragStart.y + dy / m_plot.height * m_view.height, m_view.width, m_view.height});
}

bool ViewPortManager::scrollBy(double right, double up)
{
    return Take(
        {m_view.x + right * m_view.width, m_view.y + up * m_view.height, m_view.width, m_view.height});
}

bool ViewPortManager::showAll()
{
    const Rect before = m_view;
    m_view = {0.0, 0.0, 1.0, 1.0};
    return !IsSame(before, m_view);
}

void ViewPortManager::syncAxes(XYChart& chart) const
{
    chart.xAxis().setViewPort(m_view.x, m_view.Right());
    chart.yAxis().setViewPort(m_view.y, m_view.Bottom());
}

}  // namespace chartdir
