// SPDX-License-Identifier: MIT
#pragma once

/// Texts as they are measured and drawn. Internal to the library; each object belongs to one thread.

#include "chartdir/geometry.h"
#include "chartdir/palette.h"

#include <memory>
#include <pango/pangocairo.h>
#include <string>

namespace chartdir {

struct Unref
{
    void operator()(void* object) const { g_object_unref(object); }
};

struct TextStyle
{
    double size = 12.0;  ///< pixels
    bool bold = false;
    Colour colour;
};

/// What all texts of one drawing share.
class TextContext
{
public:
    TextContext();
    PangoContext* Get() const { return m_context.get(); }

private:
    std::unique_ptr<PangoContext, Unref> m_context;
};

class Text
{
public:
    /// `markup` as markup.h has it. Invalid UTF-8 becomes replacement characters, a text that is too long for
    /// any chart is cut.
    Text(const TextContext& context, const std::string& markup, const TextStyle& style);

    double Width() const { return m_width; }
    double Height() const { return m_height; }
    /// Makes it one line of at most that width, with an ellipsis where something is cut.
    void Shorten(double width);
    /// Draws all of it in the middle of `room`: in several lines where it is too wide, smaller where these
    /// are too high or a word is too wide.
    void DrawWithin(cairo_t* canvas, const Rect& room);
    /// Draws it with its upper left corner there.
    void Draw(cairo_t* canvas, Point place) const;
    /// Draws it reading upwards, with its lower left corner (in reading direction the beginning) there.
    void DrawUpwards(cairo_t* canvas, Point place) const;

private:
    void Measure();

    std::unique_ptr<PangoLayout, Unref> m_layout;
    Colour m_colour;
    double m_width = 0.0;
    double m_height = 0.0;
};

/// Sets the source of what is drawn next.
void SetColour(cairo_t* canvas, Colour colour);

}  // namespace chartdir
