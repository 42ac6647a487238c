// SPDX-License-Identifier: MIT
#include "gui_base/water/results/card_look.h"

#include <wx/graphics.h>
#include <wx/settings.h>

namespace wateranalysis {
namespace {

struct Pair
{
    unsigned long background;
    unsigned long text;
};

/// A colour that is written as 0xRRGGBB.
wxColour Rgb(unsigned long value)
{
    return {static_cast<unsigned char>(value >> 16U & 0xFFU), static_cast<unsigned char>(value >> 8U & 0xFFU),
            static_cast<unsigned char>(value & 0xFFU)};
}

Pair PairOf(Mood mood, bool isDark)
{
    switch (mood) {
        case Mood::Good:
            return isDark ? Pair{0x123D1F, 0xC9F2D3} : Pair{0xD8F0DC, 0x0B4A1E};
        case Mood::Note:
            return isDark ? Pair{0x16344F, 0xCDE6FF} : Pair{0xDCEBFA, 0x0B3A66};
        case Mood::Warn:
            return isDark ? Pair{0x4A3800, 0xFFE9A8} : Pair{0xFFF0C2, 0x553A00};
        default:
            return isDark ? Pair{0x5A1512, 0xFFDCD8} : Pair{0xFBD9D5, 0x7A0F0A};
    }
}

/// So much of the first colour, the rest of the second.
wxColour Mix(const wxColour& first, const wxColour& second, double share)
{
    const auto part = [share](unsigned char a, unsigned char b) {
        return static_cast<unsigned char>(share * a + (1.0 - share) * b);
    };
    return {part(first.Red(), second.Red()), part(first.Green(), second.Green()),
            part(first.Blue(), second.Blue())};
}

void DrawTick(wxGraphicsPath& path, const wxRect& r)
{
    path.MoveToPoint(r.x + 0.25 * r.width, r.y + 0.52 * r.height);
    path.AddLineToPoint(r.x + 0.43 * r.width, r.y + 0.70 * r.height);
    path.AddLineToPoint(r.x + 0.76 * r.width, r.y + 0.30 * r.height);
}

void DrawCross(wxGraphicsPath& path, const wxRect& r)
{
    for (const double from : {0.3, 0.7}) {
        path.MoveToPoint(r.x + 0.3 * r.width, r.y + from * r.height);
        path.AddLineToPoint(r.x + 0.7 * r.width, r.y + (1.0 - from) * r.height);
    }
}

/// The stroke of an i, or upside down of an exclamation mark, with its dot.
void DrawStroke(wxGraphicsPath& path, const wxRect& r, double dot, double from, double to)
{
    path.MoveToPoint(r.x + 0.5 * r.width, r.y + from * r.height);
    path.AddLineToPoint(r.x + 0.5 * r.width, r.y + to * r.height);
    path.MoveToPoint(r.x + 0.5 * r.width, r.y + dot * r.height);
    path.AddLineToPoint(r.x + 0.5 * r.width, r.y + (dot + 0.01) * r.height);
}

}  // namespace

CardColours ColoursOf(Mood mood)
{
    const wxColour window = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
    constexpr double kQuiet = 0.78;
    constexpr double kFrame = 0.3;
    CardColours colours{.background = window,
                        .text = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT),
                        .quiet = {},
                        .frame = {}};
    if (mood != Mood::Plain) {
        const Pair pair = PairOf(mood, wxSystemSettings::GetAppearance().IsUsingDarkBackground());
        colours.background = Rgb(pair.background);
        colours.text = Rgb(pair.text);
    }
    colours.quiet = Mix(colours.text, colours.background, kQuiet);
    colours.frame = Mix(colours.text, colours.background, kFrame);
    return colours;
}

void DrawSymbol(wxGraphicsContext& context, Mood mood, const wxRect& r, const CardColours& colours)
{
    if (mood == Mood::Plain)
        return;
    wxGraphicsPath outline = context.CreatePath();
    wxGraphicsPath mark = context.CreatePath();
    if (mood == Mood::Warn) {
        outline.MoveToPoint(r.x + 0.5 * r.width, r.y + 0.06 * r.height);
        outline.AddLineToPoint(r.x + 0.98 * r.width, r.y + 0.94 * r.height);
        outline.AddLineToPoint(r.x + 0.02 * r.width, r.y + 0.94 * r.height);
        outline.CloseSubpath();
        DrawStroke(mark, r, 0.8, 0.38, 0.62);
    } else {
        outline.AddEllipse(r.x, r.y, r.width, r.height);
        if (mood == Mood::Good)
            DrawTick(mark, r);
        else if (mood == Mood::Note)
            DrawStroke(mark, r, 0.26, 0.46, 0.76);
        else
            DrawCross(mark, r);
    }
    context.SetBrush(wxBrush(colours.text));
    context.SetPen(*wxTRANSPARENT_PEN);
    context.FillPath(outline);
    context.SetPen(context.CreatePen(
        wxGraphicsPenInfo(colours.background, 0.13 * r.width).Cap(wxCAP_ROUND).Join(wxJOIN_ROUND)));
    context.StrokePath(mark);
}

}  // namespace wateranalysis
