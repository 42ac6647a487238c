// SPDX-License-Identifier: MIT
#pragma once

/// Room for numbers. A field is as wide as usual numbers need; of a longer one it would show neither the sign
/// nor the exponent, so the field grows with it, and shrinks again.

#include "gui_base/gui_base_export.h"

class wxGrid;
class wxListView;
class wxTextCtrl;

namespace number_room {

/// Gives the field `usual` pixels, or as many more as its text needs, and lays out what is around it when
/// that changes anything.
GUI_BASE_EXPORT void Fit(wxTextCtrl& field, int usual);

/// Widens a column of a grid if the longest text of the rows from `first` to `last` does not fit.
GUI_BASE_EXPORT void GrowColumn(wxGrid& grid, int column, int first, int last);

/// Widens a column of a list if its longest text does not fit; not for virtual lists.
GUI_BASE_EXPORT void GrowColumn(wxListView& list, int column);

}  // namespace number_room
