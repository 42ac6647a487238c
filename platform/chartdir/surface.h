// SPDX-License-Identifier: MIT
#pragma once

/// Owners of the graphics library's objects. Internal to the library.

#include <cairo.h>
#include <memory>
#include <stdexcept>
#include <string>

namespace chartdir {

struct SurfaceDeleter
{
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using SurfacePtr = std::unique_ptr<cairo_surface_t, SurfaceDeleter>;

struct CanvasDeleter
{
    void operator()(cairo_t* canvas) const { cairo_destroy(canvas); }
};
using CanvasPtr = std::unique_ptr<cairo_t, CanvasDeleter>;

inline void Check(cairo_status_t status)
{
    if (status != CAIRO_STATUS_SUCCESS)
        throw std::runtime_error(std::string("chartdir: ") + cairo_status_to_string(status));
}

/// Appends what the graphics library writes to the std::string behind `closure`.
inline cairo_status_t AppendBytes(void* closure, const unsigned char* bytes, unsigned count) noexcept
try {
    static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(bytes), count);
    return CAIRO_STATUS_SUCCESS;
} catch (...) {
    return CAIRO_STATUS_NO_MEMORY;
}

}  // namespace chartdir
