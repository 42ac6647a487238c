// SPDX-License-Identifier: MIT
#include "report/text.h"

#include <algorithm>
#include <cmath>

namespace report {
namespace {

double Points(int pangoUnits)
{
    return static_cast<double>(pangoUnits) / PANGO_SCALE;
}

PangoFontDescription* MakeFont(const TextStyle& style)
{
    PangoFontDescription* font = pango_font_description_from_string(style::kFonts);
    pango_font_description_set_absolute_size(font, style.size * PANGO_SCALE);
    pango_font_description_set_weight(font, style.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    return font;
}

/// Setting a word takes a time that grows with the square of its length: places at which it may end keep the
/// time small. Two lines of a page hold less.
std::string WithBreaks(const std::string& utf8)
{
    constexpr std::size_t kLongestWord = 400;
    std::string result;
    std::size_t length = 0;
    for (const char c : utf8) {
        const bool beginsCharacter = (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
        if (c == ' ' || c == '\n' || c == '\t')
            length = 0;
        else if (beginsCharacter && ++length > kLongestWord) {
            result += "\u200b";
            length = 1;
        }
        result += c;
    }
    return result;
}

}  // namespace

std::string CleanUtf8(const std::string& text)
{
    gchar* const valid = g_utf8_make_valid(text.data(), static_cast<gssize>(text.size()));
    std::string result(valid);
    g_free(valid);
    return result;
}

TextContext::TextContext() : m_context(pango_font_map_create_context(pango_cairo_font_map_get_default()))
{
    // A printed page has no pixels to snap to.
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(m_context.get(), options);
    cairo_font_options_destroy(options);
    pango_context_set_round_glyph_positions(m_context.get(), FALSE);
}

double TextContext::WidthOf(const std::string& text) const
{
    return Text(*this, text, TextStyle{}).Width();
}

Text::Text(const TextContext& context, const std::string& text, const TextStyle& style)
    : m_layout(pango_layout_new(context.Get())), m_colour(style.colour)
{
    PangoFontDescription* font = MakeFont(style);
    pango_layout_set_font_description(m_layout.get(), font);
    pango_font_description_free(font);
    PangoAttrList* attributes = pango_attr_list_new();
    // Digits of one width stand below each other; ligatures would hide letters from a search.
    pango_attr_list_insert(attributes, pango_attr_font_features_new("tnum=1, liga=0"));
    pango_layout_set_attributes(m_layout.get(), attributes);
    pango_attr_list_unref(attributes);
    const std::string clean = WithBreaks(CleanUtf8(text));
    pango_layout_set_text(m_layout.get(), clean.data(), static_cast<int>(clean.size()));
    FindLines();
}

void Text::Wrap(double width, PangoAlignment alignment)
{
    pango_layout_set_wrap(m_layout.get(), PANGO_WRAP_WORD_CHAR);
    pango_layout_set_alignment(m_layout.get(), alignment);
    pango_layout_set_width(m_layout.get(),
                           static_cast<int>(std::ceil(std::max(1.0, width) * PANGO_SCALE)) + 1);
    FindLines();
}

void Text::Shorten(double width)
{
    pango_layout_set_single_paragraph_mode(m_layout.get(), TRUE);
    pango_layout_set_ellipsize(m_layout.get(), PANGO_ELLIPSIZE_END);
    pango_layout_set_width(m_layout.get(), static_cast<int>(std::max(1.0, width) * PANGO_SCALE));
    FindLines();
}

void Text::FindLines()
{
    m_lines.clear();
    PangoLayoutIter* iter = pango_layout_get_iter(m_layout.get());
    do {
        PangoRectangle extents;
        pango_layout_iter_get_line_extents(iter, nullptr, &extents);
        m_lines.push_back({pango_layout_iter_get_line_readonly(iter), Points(extents.x), Points(extents.y),
                           Points(pango_layout_iter_get_baseline(iter)), Points(extents.height)});
    } while (pango_layout_iter_next_line(iter));
    pango_layout_iter_free(iter);
}

double Text::Width() const
{
    PangoRectangle extents;
    pango_layout_get_extents(m_layout.get(), nullptr, &extents);
    return Points(extents.width);
}

double Text::Height() const
{
    PangoRectangle extents;
    pango_layout_get_extents(m_layout.get(), nullptr, &extents);
    return Points(extents.height);
}

double Text::WidthBehind(const std::string& sign) const
{
    const std::string text = pango_layout_get_text(m_layout.get());
    const auto found = sign.empty() ? std::string::npos : text.rfind(sign);
    if (found == std::string::npos)
        return 0.0;
    PangoRectangle at;
    pango_layout_index_to_pos(m_layout.get(), static_cast<int>(found), &at);
    return std::max(0.0, Width() - Points(at.x));
}

void Text::Draw(cairo_t* canvas, double x, double y, std::size_t first, std::size_t last) const
{
    cairo_set_source_rgb(canvas, m_colour.red, m_colour.green, m_colour.blue);
    for (std::size_t i = first; i < last; ++i) {
        const Line& line = m_lines[i];
        cairo_move_to(canvas, x + line.x, y + line.baseline - m_lines[first].top);
        pango_cairo_show_layout_line(canvas, line.line);
    }
}

}  // namespace report
