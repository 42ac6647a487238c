// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/filename.h>
#include <wx/window.h>

/// Asks the user for the name of a file to write.
class GUI_BASE_EXPORT FileNameCreator
{
public:
    /// Shows a file dialog with that title, folder, proposed name and wildcard; `extension` (without the dot)
    /// is added to a name that has none. An existing file is replaced only when the user
    /// confirms it. Returns an invalid name
    /// when the user cancels.
    wxFileName operator()(wxWindow* parent, const wxString& title, const wxString& folder,
                          const wxString& name, const wxString& wildcard, const wxString& extension) const;
};
