// SPDX-License-Identifier: MIT
#pragma once

/// Lines, markers and hatchings. Internal to the library.

#include "chartdir/palette.h"
#include "chartdir/reduction.h"

#include <cairo.h>

namespace chartdir {

/// The middle of the pixel, on which a line of one pixel is sharp.
double Snapped(double pixel);

/// A sharp line of one pixel.
void DrawHairline(cairo_t* canvas, Point from, Point to, Colour colour);

/// Draws a line along a run, cut where it leaves the plot area by far: the graphics library counts in numbers
/// that would overflow.
void StrokeRun(cairo_t* canvas, const CurveRun& run, const Rect& plot, const SeriesStyle& style,
               double width);

/// A place brought so near to the plot area that it can be drawn.
Point NearPlot(Point place, const Rect& plot);

/// Draws the path that was made, with dashes from that place of their pattern on.
void StrokeWith(cairo_t* canvas, const SeriesStyle& style, double width, double dashOffset = 0.0);
void DrawMarker(cairo_t* canvas, Marker marker, Point place, double size, Colour colour);

/// Lines across a box that tell bars apart without their colours; `place` settles their direction.
void DrawHatching(cairo_t* canvas, const Rect& box, Marker kind, Colour colour);

/// A bar of a series in a legend, in the middle of a box of that size.
void DrawBarSample(cairo_t* canvas, const SeriesStyle& style, double width, double height);

}  // namespace chartdir
