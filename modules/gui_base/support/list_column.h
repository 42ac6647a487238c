// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/listbase.h>

namespace list_column {

/// Adds a column to a list in report view: `width` device-independent pixels wide, or as wide as its title is
/// in the present language and size of texts.
GUI_BASE_EXPORT void Append(wxListCtrlBase& list, const wxString& title, int width,
                            wxListColumnFormat align = wxLIST_FORMAT_LEFT);

}  // namespace list_column
