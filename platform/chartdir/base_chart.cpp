// SPDX-License-Identifier: MIT
#include "chartdir/base_chart.h"

#include "chartdir/surface.h"
#include "chartdir/text.h"
#include "tncommon/atomic_file.h"

#include <algorithm>
#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <cmath>

namespace chartdir {

namespace {

constexpr double kTextSize = 12.0;
constexpr double kPointsPerPixel = 0.75;

SurfacePtr MakeImage(const BaseChart& chart, double scale)
{
    const int width = static_cast<int>(std::lround(chart.getWidth() * scale));
    const int height = static_cast<int>(std::lround(chart.getHeight() * scale));
    SurfacePtr surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height));
    Check(cairo_surface_status(surface.get()));
    const CanvasPtr canvas(cairo_create(surface.get()));
    cairo_scale(canvas.get(), scale, scale);
    chart.draw(canvas.get());
    Check(cairo_status(canvas.get()));
    cairo_surface_flush(surface.get());
    return surface;
}

std::string MakePng(const BaseChart& chart)
{
    const SurfacePtr surface = MakeImage(chart, 1.0);
    std::string bytes;
    Check(cairo_surface_write_to_png_stream(surface.get(), AppendBytes, &bytes));
    return bytes;
}

}  // namespace

BaseChart::BaseChart(int width, int height)
{
    setSize(width, height);
}

BaseChart::~BaseChart() = default;

void BaseChart::setSize(int width, int height)
{
    constexpr int kLargestSide = 10000;
    m_width = std::clamp(width, 1, kLargestSide);
    m_height = std::clamp(height, 1, kLargestSide);
}

void BaseChart::draw(cairo_t* canvas) const
{
    cairo_save(canvas);
    SetColour(canvas, m_theme.background);
    cairo_rectangle(canvas, 0.0, 0.0, m_width, m_height);
    cairo_fill(canvas);
    DoDraw(canvas);
    for (const PlacedText& text : m_texts)
        Text(TextContext(), text.markup, {.size = kTextSize, .colour = m_theme.ink}).Draw(canvas, text.place);
    DrawAreas(canvas);
    cairo_restore(canvas);
}

void BaseChart::DrawAreas(cairo_t* canvas) const
{
    constexpr double kHeight = 14.0;
    constexpr double kGap = 8.0;
    constexpr double kOpacity = 0.75;
    double right = m_width - kGap;
    for (const auto& area : m_areas) {
        if (!area || area->isEmpty())
            continue;
        right -= kHeight * area->getWidth() / area->getHeight();
        area->Draw(canvas, {right, m_height - kGap - kHeight}, kHeight, kOpacity);
        right -= kGap;
    }
}

Pixels BaseChart::makePixels(double scale) const
{
    const SurfacePtr surface = MakeImage(*this, scale);
    Pixels pixels{
        cairo_image_surface_get_width(surface.get()), cairo_image_surface_get_height(surface.get()), {}};
    const int stride = cairo_image_surface_get_stride(surface.get());
    const unsigned char* data = cairo_image_surface_get_data(surface.get());
    pixels.rgb.reserve(static_cast<std::size_t>(pixels.width) * static_cast<std::size_t>(pixels.height));
    for (int y = 0; y < pixels.height; ++y) {
        const auto* row =
            reinterpret_cast<const std::uint32_t*>(data + static_cast<std::ptrdiff_t>(y) * stride);
        for (int x = 0; x < pixels.width; ++x)
            pixels.rgb.push_back(row[x] & 0xFFFFFFU);
    }
    return pixels;
}

std::string BaseChart::MakeVectors(ImageFormat format) const
{
    std::string bytes;
    const double width = m_width * kPointsPerPixel;
    const double height = m_height * kPointsPerPixel;
    {
        const SurfacePtr surface(
            format == ImageFormat::Svg
                ? cairo_svg_surface_create_for_stream(AppendBytes, &bytes, width, height)
                : cairo_pdf_surface_create_for_stream(AppendBytes, &bytes, width, height));
        Check(cairo_surface_status(surface.get()));
        const CanvasPtr canvas(cairo_create(surface.get()));
        cairo_scale(canvas.get(), kPointsPerPixel, kPointsPerPixel);
        draw(canvas.get());
        Check(cairo_status(canvas.get()));
        cairo_surface_finish(surface.get());
        Check(cairo_surface_status(surface.get()));
    }
    return bytes;
}

std::string BaseChart::makeChart2(ImageFormat format) const
{
    switch (format) {
        case ImageFormat::Jpeg:
            return EncodeJpeg(makePixels());
        case ImageFormat::Bmp:
            return EncodeBmp(makePixels());
        case ImageFormat::Gif:
            return EncodeGif(makePixels());
        case ImageFormat::Svg:
        case ImageFormat::Pdf:
            return MakeVectors(format);
        case ImageFormat::Png:
            break;
    }
    return MakePng(*this);
}

bool BaseChart::makeChart(const std::filesystem::path& path) const
try {
    const auto format = FormatOfPath(path);
    if (!format)
        return false;
    tncommon::ReplaceFile(path, makeChart2(*format));
    return true;
} catch (const std::exception&) {
    return false;
}

}  // namespace chartdir
