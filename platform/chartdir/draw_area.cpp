// SPDX-License-Identifier: MIT
#include "chartdir/draw_area.h"

#include "chartdir/surface.h"
#include "chartdir/text.h"

namespace chartdir {

namespace {

constexpr int kLargestSide = 10000;

bool IsSide(int pixels)
{
    return pixels >= 1 && pixels <= kLargestSide;
}

}  // namespace

struct DrawArea::Surface
{
    SurfacePtr surface;
    CanvasPtr NewCanvas() const { return CanvasPtr(cairo_create(surface.get())); }
};

DrawArea::DrawArea() : m_surface(std::make_unique<Surface>()) {}
DrawArea::~DrawArea() = default;
DrawArea::DrawArea(DrawArea&&) noexcept = default;
DrawArea& DrawArea::operator=(DrawArea&&) noexcept = default;

void DrawArea::setSize(int width, int height)
{
    if (!IsSide(width) || !IsSide(height))
        throw std::invalid_argument("DrawArea::setSize: a side has 1 to 10000 pixels");
    SurfacePtr surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height));
    Check(cairo_surface_status(surface.get()));
    m_surface->surface = std::move(surface);
}

bool DrawArea::loadPNG(const std::filesystem::path& path)
{
    SurfacePtr surface(cairo_image_surface_create_from_png(path.c_str()));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS ||
        !IsSide(cairo_image_surface_get_width(surface.get())) ||
        !IsSide(cairo_image_surface_get_height(surface.get())))
        return false;
    // Whatever the file holds, colours are read in one format.
    DrawArea copy;
    copy.setSize(cairo_image_surface_get_width(surface.get()), cairo_image_surface_get_height(surface.get()));
    const CanvasPtr canvas = copy.m_surface->NewCanvas();
    cairo_set_source_surface(canvas.get(), surface.get(), 0.0, 0.0);
    cairo_paint(canvas.get());
    *this = std::move(copy);
    return true;
}

int DrawArea::getWidth() const
{
    return m_surface->surface ? cairo_image_surface_get_width(m_surface->surface.get()) : 0;
}

int DrawArea::getHeight() const
{
    return m_surface->surface ? cairo_image_surface_get_height(m_surface->surface.get()) : 0;
}

void DrawArea::rect(const Rect& box, Colour colour)
{
    if (isEmpty())
        return;
    const CanvasPtr canvas = m_surface->NewCanvas();
    SetColour(canvas.get(), colour);
    cairo_rectangle(canvas.get(), box.x, box.y, box.width, box.height);
    cairo_fill(canvas.get());
}

void DrawArea::line(Point from, Point to, Colour colour, double width)
{
    if (isEmpty())
        return;
    const CanvasPtr canvas = m_surface->NewCanvas();
    SetColour(canvas.get(), colour);
    cairo_set_line_width(canvas.get(), width);
    cairo_move_to(canvas.get(), from.x, from.y);
    cairo_line_to(canvas.get(), to.x, to.y);
    cairo_stroke(canvas.get());
}

void DrawArea::text(const std::string& markup, Point place, double size, Colour colour)
{
    if (isEmpty())
        return;
    const CanvasPtr canvas = m_surface->NewCanvas();
    Text(TextContext(), markup, {.size = size, .colour = colour}).Draw(canvas.get(), place);
}

Colour DrawArea::getPixel(int x, int y) const
{
    if (x < 0 || y < 0 || x >= getWidth() || y >= getHeight())
        return Colour{0, 0, 0, 0.0};
    cairo_surface_t* surface = m_surface->surface.get();
    cairo_surface_flush(surface);
    const unsigned char* row = cairo_image_surface_get_data(surface) +
                               static_cast<std::ptrdiff_t>(y) * cairo_image_surface_get_stride(surface);
    const std::uint32_t pixel = reinterpret_cast<const std::uint32_t*>(row)[x];
    const std::uint32_t alpha = pixel >> 24U;
    if (alpha == 0)
        return Colour{0, 0, 0, 0.0};
    // Colours are kept multiplied by their opacity.
    const auto channel = [&](unsigned shift) {
        return static_cast<std::uint8_t>((pixel >> shift & 0xFFU) * 255U / alpha);
    };
    return {channel(16U), channel(8U), channel(0U), alpha / 255.0};
}

void DrawArea::Draw(cairo_t* canvas, Point place, double height, double opacity) const
{
    if (isEmpty())
        return;
    const double scale = height / getHeight();
    cairo_save(canvas);
    cairo_translate(canvas, place.x, place.y);
    cairo_scale(canvas, scale, scale);
    cairo_set_source_surface(canvas, m_surface->surface.get(), 0.0, 0.0);
    cairo_paint_with_alpha(canvas, opacity);
    cairo_restore(canvas);
}

}  // namespace chartdir
