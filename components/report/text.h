// SPDX-License-Identifier: MIT
#pragma once

/// A text that is set in lines. Internal to the writer.

#include "report/style.h"

#include <cstddef>
#include <memory>
#include <pango/pangocairo.h>
#include <string>
#include <vector>

namespace report {

struct Unref
{
    void operator()(void* object) const { g_object_unref(object); }
};

/// The text as valid UTF-8 without NUL characters; what is invalid becomes replacement characters.
std::string CleanUtf8(const std::string& text);

struct TextStyle
{
    double size = style::kTextSize;
    bool bold = false;
    style::Colour colour = style::kInk;
};

/// Fonts and settings that all texts of a document share.
class TextContext
{
public:
    TextContext();

    PangoContext* Get() const { return m_context.get(); }
    /// Of a text in the ordinary style.
    double WidthOf(const std::string& text) const;

private:
    std::unique_ptr<PangoContext, Unref> m_context;
};

class Text
{
public:
    /// One long line for each line of `text`.
    Text(const TextContext& context, const std::string& text, const TextStyle& style);

    /// Wraps the lines to a width; a word that is longer is broken.
    void Wrap(double width, PangoAlignment alignment);

    /// Makes it one line of at most that width, with an ellipsis where something is cut.
    void Shorten(double width);

    /// Of the widest line.
    double Width() const;
    double Height() const;
    std::size_t LineCount() const { return m_lines.size(); }
    double LineHeight(std::size_t line) const { return m_lines[line].height; }
    /// How far the part behind the last `sign` of a one-line text reaches; 0 where there is no sign.
    double WidthBehind(const std::string& sign) const;

    /// Draws lines [first, last) with the top of the first one at y.
    void Draw(cairo_t* canvas, double x, double y, std::size_t first, std::size_t last) const;
    void Draw(cairo_t* canvas, double x, double y) const { Draw(canvas, x, y, 0, LineCount()); }

private:
    struct Line
    {
        PangoLayoutLine* line;
        double x;
        double top;
        double baseline;
        double height;
    };

    void FindLines();

    std::unique_ptr<PangoLayout, Unref> m_layout;
    style::Colour m_colour;
    std::vector<Line> m_lines;
};

}  // namespace report
