// SPDX-License-Identifier: MIT
#pragma once

/// Which boxes of forms the user left otherwise than they come: remembered on this machine, by their names.

#include <wx/string.h>

namespace kept_boxes {

/// Whether a box was left otherwise; false where nothing can be read, for a form can be used without.
bool IsKept(const wxString& name);
void Keep(const wxString& name, bool keep);

}  // namespace kept_boxes
