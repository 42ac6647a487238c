// SPDX-License-Identifier: MIT
#pragma once

/// A control that shows a chart and lets the user look closer.
///
/// The wheel zooms at the pointer, plus and minus in the middle. Dragging opens a rectangle to zoom to while
/// the whole chart is in view, and with Shift or the right button; else it moves the chart, as do the arrow
/// keys. Home and a double click show all of it. What is under the pointer is marked and told as a tooltip.
/// Keys and rectangles go for charts with axes; another one is only shown.
///
/// The chart is drawn in the size of the control, at the resolution of the screen, in the light or dark
/// theme of the desktop; it is kept as a picture until something changes. The control shares the chart; who
/// changes it calls UpdateChart. GUI thread only.

#include "chartdir/hot_spots.h"
#include "chartdir/view_port_manager.h"
#include "wxchartdir/wxchartdir_export.h"

#include <wx/control.h>
#include <wx/image.h>

#include <memory>
#include <optional>

class WXCHARTDIR_EXPORT wxChartViewer : public wxControl
{
public:
    wxChartViewer(wxWindow* parent, int id, const wxPoint& pos = wxDefaultPosition,
                  const wxSize& size = wxDefaultSize, long style = wxBORDER_NONE | wxWANTS_CHARS,
                  const wxString& name = wxASCII_STR(wxControlNameStr));
    ~wxChartViewer() override;

    /// Shows a chart, or nothing where it is null. What is in view stays in view with `keepsView`; else all
    /// of the chart is.
    void SetChart(std::shared_ptr<chartdir::BaseChart> chart, bool keepsView = false);
    const std::shared_ptr<chartdir::BaseChart>& GetChart() const { return m_chart; }
    /// Draws the chart again after it was changed.
    void UpdateChart();

    const chartdir::ViewPortManager& GetViewPortManager() const { return m_viewPort; }
    void SetDirections(chartdir::Directions directions) { m_viewPort.setDirections(directions); }
    /// Whether a place in the control lies where values have their places.
    bool IsInPlotArea(const wxPoint& place) const { return m_viewPort.inPlotArea(place.x, place.y); }
    /// Shows that many times as much, with what stands at a place staying there, or around the middle of what
    /// is in view. These return whether anything changed.
    bool ZoomAt(const wxPoint& place, double factor);
    bool ZoomBy(double factor);
    /// Shows what stands between two corners.
    bool ZoomTo(const wxPoint& corner, const wxPoint& opposite);
    bool ShowAll();

    /// The hot spots as they stand; null without a chart.
    const chartdir::ImageMapHandler* GetImageMapHandler();
    /// What is told of the place under the pointer; empty where it is none of a curve.
    wxString GetHotSpotText() const;
    /// The rectangle that is being drawn.
    std::optional<wxRect> GetZoomRectangle() const;

    /// The chart in the light theme, `scale` pixels for each of its own.
    wxImage GetPicture(double scale = 1.0) const;

    bool AcceptsFocusFromKeyboard() const override { return true; }

protected:
    wxSize DoGetBestClientSize() const override;
    bool TryBefore(wxEvent& event) override;

private:
    struct Picture;
    enum class Drag
    {
        None,
        Move,
        Rectangle
    };

    void OnPaint(wxPaintEvent& event);
    void OnSize(wxSizeEvent& event);
    void OnKey(wxKeyEvent& event);
    void OnButtonDown(wxMouseEvent& event);
    void OnButtonUp(wxMouseEvent& event);
    void OnMotion(wxMouseEvent& event);
    bool OnWheel(wxMouseEvent& event);
    void BindEvents();

    bool AnswerKey(int key);
    /// Draws the chart where the view changed.
    bool Follow(bool hasChanged);
    void EndDrag();
    void Hover(std::optional<wxPoint> pointer);
    void Render();
    void FollowTheme();

    std::shared_ptr<chartdir::BaseChart> m_chart;
    /// The same one, where it has axes.
    std::shared_ptr<chartdir::XYChart> m_xyChart;
    chartdir::ViewPortManager m_viewPort;
    std::unique_ptr<Picture> m_picture;
    std::optional<chartdir::ImageMapHandler> m_imageMap;
    std::optional<chartdir::ImageMapHandler::Hit> m_hit;
    Drag m_drag = Drag::None;
    wxPoint m_dragFrom;
    wxPoint m_dragAt;
};
