// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/sizer.h>

#include <string>

/// A box with a translated title.
class GUI_BASE_EXPORT TvStaticBoxSizer : public wxStaticBoxSizer
{
public:
    TvStaticBoxSizer(int orient, wxWindow* parent, const wxString& label);

    void Localize(const std::string& unitSystem);

private:
    wxString m_label;
};
