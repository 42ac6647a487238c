// SPDX-License-Identifier: MIT
#pragma once

/// A chart as a file or on the clipboard. GUI thread only.

#include "chartdir/base_chart.h"
#include "gui_base/gui_base_export.h"

#include <wx/image.h>
#include <wx/window.h>

namespace chart_export {

/// Asks for a file and writes the chart to it, in the light theme and in the format of the name's ending (of
/// the chosen filter where it has none). A failure is told with the path.
GUI_BASE_EXPORT void AskAndWrite(wxWindow& parent, chartdir::BaseChart& chart);

/// Puts a picture on the clipboard; false when there is none or it cannot be opened.
GUI_BASE_EXPORT bool Copy(const wxImage& picture);

}  // namespace chart_export
