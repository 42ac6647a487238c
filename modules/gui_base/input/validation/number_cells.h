// SPDX-License-Identifier: MIT
#pragma once

/// What the grids share whose cells are numbers as they are typed in every field.

#include "gui_base/gui_base_export.h"

#include <wx/grid.h>

#include <optional>

namespace cells {

/// Owned by the caller, as the attributes of the toolkit are.
GUI_BASE_EXPORT wxGridCellAttr* NewAttribute(const wxColour& background, const wxColour& text, bool readOnly,
                                             int alignment);

/// The number that was typed into a cell. For a text that is none, the value stays and the window around the
/// table's grid is told, as a field does; an empty text is none either, but nobody has to be told.
GUI_BASE_EXPORT std::optional<double> ParseNumber(wxGridTableBase& table, int column, const wxString& text);

}  // namespace cells
