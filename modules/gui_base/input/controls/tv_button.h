// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/button.h>

#include <string>

/// A button with a translated label and tooltip.
class GUI_BASE_EXPORT TvButton : public wxButton
{
public:
    TvButton(wxWindow* parent, int id, const wxString& label, const wxPoint& pos = wxDefaultPosition,
             const wxSize& size = wxDefaultSize, long style = 0,
             const wxValidator& validator = wxDefaultValidator,
             const wxString& name = wxASCII_STR(wxButtonNameStr));

    /// A `remark`, translated apart, stands on a line of its own below the tooltip.
    void SetTranslatableToolTip(const wxString& tooltip, const wxString& remark = {});
    void Localize(const std::string& unitSystem);

private:
    void ShowTexts();

    wxString m_label;
    wxString m_tooltip;
    wxString m_remark;
};
