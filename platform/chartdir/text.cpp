// SPDX-License-Identifier: MIT
#include "chartdir/text.h"

#include "chartdir/markup.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace chartdir {

namespace {

constexpr std::size_t kLongestText = 1000;

std::string CleanUtf8(const std::string& text)
{
    gchar* const valid = g_utf8_make_valid(text.data(), static_cast<gssize>(text.size()));
    std::string result(valid);
    g_free(valid);
    return result;
}

PangoFontDescription* MakeFont(const std::string& font, double size)
{
    // The words of a style stand at the end; without a comma "Times New Roman Italic" would lose its family,
    // because "Roman" is such a word, too.
    std::string_view family = font;
    std::string words = ",";
    for (const std::string_view style : {" Italic", " Bold"}) {
        if (family.ends_with(style)) {
            family.remove_suffix(style.size());
            words += style;
        }
    }
    PangoFontDescription* description =
        pango_font_description_from_string((std::string(family) + words).c_str());
    pango_font_description_set_absolute_size(description, size * PANGO_SCALE);
    return description;
}

PangoAttribute* ColourAttribute(Colour colour)
{
    const auto wide = [](std::uint8_t byte) { return static_cast<guint16>(byte * 257U); };
    return pango_attr_foreground_new(wide(colour.red), wide(colour.green), wide(colour.blue));
}

}  // namespace

TextContext::TextContext() : m_context(pango_font_map_create_context(pango_cairo_font_map_get_default()))
{
    // The same line breaks and widths on a screen, in a picture and on paper.
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    pango_cairo_context_set_font_options(m_context.get(), options);
    cairo_font_options_destroy(options);
    pango_context_set_round_glyph_positions(m_context.get(), FALSE);
}

Text::Text(const TextContext& context, const std::string& markup, const TextStyle& style)
    : m_layout(pango_layout_new(context.Get())), m_colour(style.colour)
{
    PangoFontDescription* font = MakeFont("Sans", style.size);
    pango_font_description_set_weight(font, style.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    pango_layout_set_font_description(m_layout.get(), font);
    pango_font_description_free(font);
    PangoAttrList* attributes = pango_attr_list_new();
    std::string plain;
    for (const MarkedText& part : ParseMarkup(CleanUtf8(markup.substr(0, kLongestText)))) {
        const auto start = static_cast<guint>(plain.size());
        plain += part.text;
        const auto add = [&](PangoAttribute* attribute) {
            attribute->start_index = start;
            attribute->end_index = static_cast<guint>(plain.size());
            pango_attr_list_insert(attributes, attribute);
        };
        if (!part.font.empty() || part.size) {
            PangoFontDescription* other =
                MakeFont(part.font.empty() ? "Sans" : part.font, part.size.value_or(style.size));
            add(pango_attr_font_desc_new(other));
            pango_font_description_free(other);
        }
        if (part.colour)
            add(ColourAttribute(*part.colour));
    }
    pango_layout_set_attributes(m_layout.get(), attributes);
    pango_attr_list_unref(attributes);
    pango_layout_set_text(m_layout.get(), plain.data(), static_cast<int>(plain.size()));
    Measure();
}

void Text::Measure()
{
    PangoRectangle logical;
    pango_layout_get_extents(m_layout.get(), nullptr, &logical);
    m_width = static_cast<double>(logical.width) / PANGO_SCALE;
    m_height = static_cast<double>(logical.height) / PANGO_SCALE;
}

void Text::Shorten(double width)
{
    if (m_width <= width)
        return;
    pango_layout_set_single_paragraph_mode(m_layout.get(), TRUE);
    pango_layout_set_width(m_layout.get(), static_cast<int>(std::max(width, 0.0) * PANGO_SCALE));
    // Names that begin alike differ at their end, where titles have their unit, too.
    pango_layout_set_ellipsize(m_layout.get(), PANGO_ELLIPSIZE_MIDDLE);
    Measure();
}

void Text::Draw(cairo_t* canvas, Point place) const
{
    SetColour(canvas, m_colour);
    cairo_move_to(canvas, place.x, place.y);
    pango_cairo_show_layout(canvas, m_layout.get());
}

void Text::DrawWithin(cairo_t* canvas, const Rect& room)
{
    if (room.width <= 0.0 || room.height <= 0.0 || m_width <= 0.0 || m_height <= 0.0)
        return;
    pango_layout_set_width(m_layout.get(), static_cast<int>(room.width * PANGO_SCALE));
    pango_layout_set_wrap(m_layout.get(), PANGO_WRAP_WORD);
    pango_layout_set_alignment(m_layout.get(), PANGO_ALIGN_CENTER);
    Measure();
    PangoRectangle logical;
    pango_layout_get_extents(m_layout.get(), nullptr, &logical);
    const double scale = std::min({1.0, room.width / m_width, room.height / m_height});
    cairo_save(canvas);
    cairo_translate(canvas, room.x + room.width / 2.0, room.y + room.height / 2.0);
    cairo_scale(canvas, scale, scale);
    Draw(canvas, {-static_cast<double>(logical.x) / PANGO_SCALE - m_width / 2.0, -m_height / 2.0});
    cairo_restore(canvas);
}

void Text::DrawUpwards(cairo_t* canvas, Point place) const
{
    cairo_save(canvas);
    cairo_translate(canvas, place.x, place.y);
    cairo_rotate(canvas, -std::numbers::pi / 2.0);
    Draw(canvas, {0.0, 0.0});
    cairo_restore(canvas);
}

void SetColour(cairo_t* canvas, Colour colour)
{
    constexpr double kFull = 255.0;
    cairo_set_source_rgba(canvas, colour.red / kFull, colour.green / kFull, colour.blue / kFull,
                          colour.alpha);
}

}  // namespace chartdir
