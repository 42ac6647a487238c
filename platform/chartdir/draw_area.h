// SPDX-License-Identifier: MIT
#pragma once

#include "chartdir/chartdir_export.h"
#include "chartdir/geometry.h"
#include "chartdir/palette.h"

#include <filesystem>
#include <memory>
#include <string>

struct _cairo;
using cairo_t = _cairo;

namespace chartdir {

/// A picture to draw on, which charts can carry: a logo, for example. Of 0 × 0 pixels and transparent until
/// it has a size or loaded a file.
class CHARTDIR_EXPORT DrawArea
{
public:
    DrawArea();
    ~DrawArea();
    DrawArea(DrawArea&&) noexcept;
    DrawArea& operator=(DrawArea&&) noexcept;

    /// Makes it empty and transparent. Throws std::invalid_argument beyond 1 to 10,000 pixels each way.
    void setSize(int width, int height);
    /// Takes a PNG file as the picture; false, and the former picture, when it cannot be read.
    bool loadPNG(const std::filesystem::path& path);

    int getWidth() const;
    int getHeight() const;
    bool isEmpty() const { return getWidth() == 0; }

    void rect(const Rect& box, Colour colour);
    void line(Point from, Point to, Colour colour, double width = 1.0);
    /// `markup` as markup.h has it, with the upper left corner there.
    void text(const std::string& markup, Point place, double size, Colour colour);
    Colour getPixel(int x, int y) const;

    /// Draws it at that place, scaled to that height.
    void Draw(cairo_t* canvas, Point place, double height, double opacity) const;

private:
    struct Surface;
    std::unique_ptr<Surface> m_surface;
};

}  // namespace chartdir
