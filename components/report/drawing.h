// SPDX-License-Identifier: MIT
#pragma once

/// Drawings as boxes. Internal to the writer.

#include "report/pages.h"

namespace report {

/// `caption` and whatever else belongs below is added by the caller. Throws std::runtime_error for a text
/// that is no SVG.
Box DrawingBox(const Drawing& drawing, double left, double width, double pageHeight);
Box FigureBox(const Figure& figure, double left, double width, double pageHeight);

}  // namespace report
