// SPDX-License-Identifier: MIT
#include "gui_base/support/list_column.h"

#include <algorithm>

namespace list_column {

void Append(wxListCtrlBase& list, const wxString& title, int width, wxListColumnFormat align)
{
    // What the header keeps free on both sides.
    constexpr int kMargins = 16;
    list.AppendColumn(title, align,
                      std::max(list.FromDIP(width), list.GetTextExtent(title).x + list.FromDIP(kMargins)));
}

}  // namespace list_column
