// SPDX-License-Identifier: MIT
#include "wxchartdir/wx_chart_viewer.h"

#include "chartdir/xy_chart.h"

#include <wx/dcclient.h>
#include <wx/graphics.h>
#include <wx/settings.h>

#include <cairo.h>
#include <cmath>

namespace {

constexpr double kZoomStep = 0.8;
constexpr double kScrollStep = 0.1;
// A chart needs some room before its numbers can be read.
constexpr int kBestWidth = 480;
constexpr int kBestHeight = 320;

const chartdir::Theme& ThemeOfDesktop()
{
    return wxSystemSettings::GetAppearance().IsDark() ? chartdir::DarkTheme() : chartdir::LightTheme();
}

}  // namespace

/// The chart as it is on the screen.
struct wxChartViewer::Picture
{
    ~Picture() { cairo_surface_destroy(surface); }
    cairo_surface_t* surface = nullptr;
    double scale = 0.0;
};

wxChartViewer::wxChartViewer(wxWindow* parent, int id, const wxPoint& pos, const wxSize& size, long style,
                             const wxString& name)
{
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    wxControl::Create(parent, id, pos, size, style, wxDefaultValidator, name);
    SetInitialSize(size);
    BindEvents();
}

wxChartViewer::~wxChartViewer() = default;

void wxChartViewer::BindEvents()
{
    Bind(wxEVT_PAINT, &wxChartViewer::OnPaint, this);
    Bind(wxEVT_SIZE, &wxChartViewer::OnSize, this);
    Bind(wxEVT_KEY_DOWN, &wxChartViewer::OnKey, this);
    for (const auto& type : {wxEVT_LEFT_DOWN, wxEVT_RIGHT_DOWN})
        Bind(type, &wxChartViewer::OnButtonDown, this);
    for (const auto& type : {wxEVT_LEFT_UP, wxEVT_RIGHT_UP})
        Bind(type, &wxChartViewer::OnButtonUp, this);
    Bind(wxEVT_LEFT_DCLICK, [this](wxMouseEvent&) { ShowAll(); });
    Bind(wxEVT_MOTION, &wxChartViewer::OnMotion, this);
    Bind(wxEVT_LEAVE_WINDOW, [this](wxMouseEvent& event) {
        event.Skip();
        Hover(std::nullopt);
    });
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) {
        m_drag = Drag::None;
        Refresh();
    });
    Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
        event.Skip();
        UpdateChart();
    });
    for (const auto& type : {wxEVT_SET_FOCUS, wxEVT_KILL_FOCUS}) {
        Bind(type, [this](wxFocusEvent& event) {
            event.Skip();
            Refresh();
        });
    }
}

wxSize wxChartViewer::DoGetBestClientSize() const
{
    return FromDIP(wxSize(kBestWidth, kBestHeight));
}

void wxChartViewer::SetChart(std::shared_ptr<chartdir::BaseChart> chart, bool keepsView)
{
    m_chart = std::move(chart);
    m_xyChart = std::dynamic_pointer_cast<chartdir::XYChart>(m_chart);
    if (!keepsView)
        m_viewPort.showAll();
    UpdateChart();
}

void wxChartViewer::FollowTheme()
{
    m_chart->setTheme(ThemeOfDesktop());
}

void wxChartViewer::UpdateChart()
{
    m_picture.reset();
    m_imageMap.reset();
    m_hit.reset();
    UnsetToolTip();
    if (m_chart) {
        FollowTheme();
        const wxSize size = GetClientSize();
        m_chart->setSize(size.x, size.y);
    }
    if (m_xyChart) {
        m_viewPort.syncAxes(*m_xyChart);
        m_viewPort.setPlotArea(m_xyChart->getMapping().plot);
    }
    Refresh();
}

bool wxChartViewer::Follow(bool hasChanged)
{
    if (hasChanged)
        UpdateChart();
    return hasChanged;
}

bool wxChartViewer::ZoomAt(const wxPoint& place, double factor)
{
    return m_xyChart && Follow(m_viewPort.zoomAt(place.x, place.y, factor));
}

bool wxChartViewer::ZoomBy(double factor)
{
    if (!m_xyChart)
        return false;
    const chartdir::Rect plot = m_xyChart->getMapping().plot;
    return Follow(m_viewPort.zoomAt(plot.x + plot.width / 2.0, plot.y + plot.height / 2.0, factor));
}

bool wxChartViewer::ZoomTo(const wxPoint& corner, const wxPoint& opposite)
{
    const auto point = [](const wxPoint& place) {
        return chartdir::Point{static_cast<double>(place.x), static_cast<double>(place.y)};
    };
    return m_xyChart && Follow(m_viewPort.zoomTo(point(corner), point(opposite)));
}

bool wxChartViewer::ShowAll()
{
    return Follow(m_viewPort.showAll());
}

const chartdir::ImageMapHandler* wxChartViewer::GetImageMapHandler()
{
    if (!m_imageMap && m_chart)
        m_imageMap.emplace(m_chart->getImageMap());
    return m_imageMap ? &*m_imageMap : nullptr;
}

wxString wxChartViewer::GetHotSpotText() const
{
    return m_hit ? wxString::FromUTF8(m_hit->text) : wxString();
}

std::optional<wxRect> wxChartViewer::GetZoomRectangle() const
{
    if (m_drag != Drag::Rectangle)
        return std::nullopt;
    return wxRect(m_dragFrom, m_dragAt);
}

wxImage wxChartViewer::GetPicture(double scale) const
{
    if (!m_chart)
        return {};
    m_chart->setTheme(chartdir::LightTheme());
    const chartdir::Pixels pixels = m_chart->makePixels(scale);
    m_chart->setTheme(ThemeOfDesktop());
    wxImage image(pixels.width, pixels.height, false);
    unsigned char* data = image.GetData();
    for (const std::uint32_t rgb : pixels.rgb) {
        *data++ = static_cast<unsigned char>(rgb >> 16U);
        *data++ = static_cast<unsigned char>(rgb >> 8U);
        *data++ = static_cast<unsigned char>(rgb);
    }
    return image;
}

void wxChartViewer::Render()
{
    const double scale = GetContentScaleFactor();
    if (m_picture && m_picture->scale == scale)
        return;
    m_picture = std::make_unique<Picture>();
    m_picture->scale = scale;
    const wxSize size = GetClientSize();
    const auto pixels = [scale](int length) { return static_cast<int>(std::ceil(length * scale)); };
    m_picture->surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, pixels(size.x), pixels(size.y));
    cairo_surface_set_device_scale(m_picture->surface, scale, scale);
    cairo_t* canvas = cairo_create(m_picture->surface);
    m_chart->draw(canvas);
    cairo_destroy(canvas);
}

void wxChartViewer::OnPaint(wxPaintEvent&)
{
    wxPaintDC dc(this);
    wxGraphicsContext* context = dc.GetGraphicsContext();
    auto* canvas = context != nullptr ? static_cast<cairo_t*>(context->GetNativeContext()) : nullptr;
    if (canvas == nullptr || !m_chart) {
        dc.SetBackground(wxBrush(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW)));
        dc.Clear();
        return;
    }
    Render();
    cairo_set_source_surface(canvas, m_picture->surface, 0.0, 0.0);
    cairo_paint(canvas);
    const auto colour = [this, canvas](chartdir::Colour c, double alpha) {
        cairo_set_source_rgba(canvas, c.red / 255.0, c.green / 255.0, c.blue / 255.0, alpha);
    };
    constexpr double kRing = 5.0;
    if (m_hit) {
        colour(m_chart->getTheme().ink, 1.0);
        cairo_set_line_width(canvas, 1.5);
        cairo_arc(canvas, m_hit->place.x, m_hit->place.y, kRing, 0.0, 2.0 * M_PI);
        cairo_stroke(canvas);
    }
    if (const auto zoom = GetZoomRectangle()) {
        cairo_rectangle(canvas, zoom->x + 0.5, zoom->y + 0.5, zoom->width, zoom->height);
        colour(m_chart->getTheme().ink, 0.1);
        cairo_fill_preserve(canvas);
        colour(m_chart->getTheme().ink, 0.8);
        cairo_set_line_width(canvas, 1.0);
        cairo_stroke(canvas);
    }
    if (HasFocus()) {
        const wxSize size = GetClientSize();
        const wxColour mark = wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT);
        cairo_set_source_rgb(canvas, mark.Red() / 255.0, mark.Green() / 255.0, mark.Blue() / 255.0);
        cairo_set_line_width(canvas, 2.0);
        cairo_rectangle(canvas, 1.0, 1.0, size.x - 2.0, size.y - 2.0);
        cairo_stroke(canvas);
    }
}

void wxChartViewer::OnSize(wxSizeEvent& event)
{
    event.Skip();
    if (m_chart && GetClientSize() != wxSize(m_chart->getWidth(), m_chart->getHeight()))
        UpdateChart();
}

bool wxChartViewer::TryBefore(wxEvent& event)
{
    // Before those around it, which scroll by the wheel, too.
    if (event.GetEventType() == wxEVT_MOUSEWHEEL && OnWheel(static_cast<wxMouseEvent&>(event)))
        return true;
    return wxControl::TryBefore(event);
}

bool wxChartViewer::OnWheel(wxMouseEvent& event)
{
    if (!m_xyChart || event.GetWheelAxis() != wxMOUSE_WHEEL_VERTICAL || event.GetWheelDelta() == 0 ||
        event.GetEventObject() != this)
        return false;
    const double turns = static_cast<double>(event.GetWheelRotation()) / event.GetWheelDelta();
    return ZoomAt(event.GetPosition(), std::pow(kZoomStep, turns));
}

bool wxChartViewer::AnswerKey(int key)
{
    switch (key) {
        case '+':
        case '=':
        case WXK_NUMPAD_ADD:
            return ZoomBy(kZoomStep);
        case '-':
        case WXK_NUMPAD_SUBTRACT:
            return ZoomBy(1.0 / kZoomStep);
        case WXK_HOME:
        case WXK_NUMPAD_HOME:
            return ShowAll();
        case WXK_LEFT:
        case WXK_NUMPAD_LEFT:
            return Follow(m_viewPort.scrollBy(-kScrollStep, 0.0));
        case WXK_RIGHT:
        case WXK_NUMPAD_RIGHT:
            return Follow(m_viewPort.scrollBy(kScrollStep, 0.0));
        case WXK_UP:
        case WXK_NUMPAD_UP:
            return Follow(m_viewPort.scrollBy(0.0, kScrollStep));
        case WXK_DOWN:
        case WXK_NUMPAD_DOWN:
            return Follow(m_viewPort.scrollBy(0.0, -kScrollStep));
        case WXK_ESCAPE:
            if (m_drag == Drag::None)
                return false;
            EndDrag();
            return true;
        default:
            return false;
    }
}

void wxChartViewer::OnKey(wxKeyEvent& event)
{
    if (HandleAsNavigationKey(event))
        return;
    if (event.HasAnyModifiers() || !m_xyChart || !AnswerKey(event.GetKeyCode()))
        event.Skip();
}

void wxChartViewer::OnButtonDown(wxMouseEvent& event)
{
    SetFocus();
    if (!m_xyChart || m_drag != Drag::None || !IsInPlotArea(event.GetPosition()))
        return;
    const bool isRectangle = event.RightDown() || event.ShiftDown() || m_viewPort.isWhole();
    m_drag = isRectangle ? Drag::Rectangle : Drag::Move;
    m_dragFrom = m_dragAt = event.GetPosition();
    m_viewPort.startDrag();
    Hover(std::nullopt);
    CaptureMouse();
}

void wxChartViewer::EndDrag()
{
    m_drag = Drag::None;
    if (HasCapture())
        ReleaseMouse();
    Refresh();
}

void wxChartViewer::OnButtonUp(wxMouseEvent& event)
{
    const Drag drag = m_drag;
    if (drag == Drag::None)
        return;
    EndDrag();
    if (drag == Drag::Rectangle)
        ZoomTo(m_dragFrom, event.GetPosition());
}

void wxChartViewer::OnMotion(wxMouseEvent& event)
{
    m_dragAt = event.GetPosition();
    switch (m_drag) {
        case Drag::Move:
            Follow(m_viewPort.dragTo(m_dragAt.x - m_dragFrom.x, m_dragAt.y - m_dragFrom.y));
            break;
        case Drag::Rectangle:
            Refresh();
            break;
        case Drag::None:
            Hover(m_dragAt);
            break;
    }
}

void wxChartViewer::Hover(std::optional<wxPoint> pointer)
{
    const bool wasHit = m_hit.has_value();
    const chartdir::ImageMapHandler* handler = pointer ? GetImageMapHandler() : nullptr;
    m_hit = handler != nullptr ? handler->Find(pointer->x, pointer->y) : std::nullopt;
    if (m_hit)
        SetToolTip(GetHotSpotText());
    else
        UnsetToolTip();
    if (m_hit || wasHit)
        Refresh();
}
