// SPDX-License-Identifier: MIT
#include "report/drawing.h"

#include <fmt/format.h>

#include <algorithm>
#include <cairo.h>
#include <librsvg/rsvg.h>
#include <stdexcept>

namespace report {
namespace {

constexpr double kPointsPerPixel = 0.75;  // 96 pixels an inch

struct Size
{
    double width;
    double height;
};

using Handle = std::shared_ptr<RsvgHandle>;

[[noreturn]] void ThrowAndFree(GError* error)
{
    const std::string cause = error != nullptr ? error->message : "unknown error";
    g_clear_error(&error);
    throw std::runtime_error(fmt::format("report::WritePdf: a drawing cannot be used: {}", cause));
}

Handle Load(const std::string& svg)
{
    GError* error = nullptr;
    // Without a base address nothing outside of the text is read.
    const auto* bytes = reinterpret_cast<const guint8*>(svg.data());
    Handle handle(rsvg_handle_new_from_data(bytes, svg.size(), &error),
                  [](RsvgHandle* object) { g_clear_object(&object); });
    if (!handle)
        ThrowAndFree(error);
    return handle;
}

Size OwnSize(RsvgHandle* handle, double fallback)
{
    double width = 0.0;
    double height = 0.0;
    if (rsvg_handle_get_intrinsic_size_in_pixels(handle, &width, &height) && width > 0.0 && height > 0.0)
        return {width * kPointsPerPixel, height * kPointsPerPixel};
    gboolean hasBox = FALSE;
    RsvgRectangle box{};
    rsvg_handle_get_intrinsic_dimensions(handle, nullptr, nullptr, nullptr, nullptr, &hasBox, &box);
    if (hasBox && box.width > 0.0 && box.height > 0.0)
        return {fallback, fallback * box.height / box.width};
    return {fallback, fallback / 2.0};
}

/// The size that was asked for, a missing length in proportion, scaled down to the page.
Size FittedSize(Size own, double width, double height, Size page)
{
    Size size = own;
    if (width > 0.0)
        size = {width, height > 0.0 ? height : width * own.height / own.width};
    else if (height > 0.0)
        size = {height * own.width / own.height, height};
    const double scale = std::min({1.0, page.width / size.width, page.height / size.height});
    return {size.width * scale, size.height * scale};
}

}  // namespace

Box DrawingBox(const Drawing& drawing, double left, double width, double pageHeight)
{
    const Handle handle = Load(drawing.svg);
    const Size size =
        FittedSize(OwnSize(handle.get(), width), drawing.width, drawing.height, {width, pageHeight});
    Box box;
    box.height = size.height;
    box.draw = [handle, size, left](cairo_t* canvas, double top, double) {
        const RsvgRectangle place{left, top, size.width, size.height};
        GError* error = nullptr;
        if (!rsvg_handle_render_document(handle.get(), canvas, &place, &error))
            ThrowAndFree(error);
    };
    return box;
}

Box FigureBox(const Figure& figure, double left, double width, double pageHeight)
{
    const double usedWidth = figure.width > 0.0 ? std::min(figure.width, width) : width;
    Box box;
    box.height = std::min(figure.height, pageHeight);
    box.leastHeight = std::min(figure.leastHeight, box.height);
    box.draw = [draw = figure.draw, left, usedWidth](cairo_t* canvas, double top, double height) {
        cairo_save(canvas);
        cairo_translate(canvas, left, top);
        cairo_rectangle(canvas, 0.0, 0.0, usedWidth, height);
        cairo_clip(canvas);
        cairo_new_path(canvas);
        if (draw)
            draw(canvas, usedWidth, height);
        cairo_restore(canvas);
    };
    return box;
}

}  // namespace report
