// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/srchctrl.h>

#include <string>

/// A search field with a translated hint and tooltip.
class GUI_BASE_EXPORT TvSearchControl : public wxSearchCtrl
{
public:
    TvSearchControl(wxWindow* parent, int id, const wxString& value = {},
                    const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                    long style = 0, const wxValidator& validator = wxDefaultValidator,
                    const wxString& name = wxASCII_STR(wxSearchCtrlNameStr));

    void SetTranslatableToolTip(const wxString& tooltip);
    void SetTranslatableHint(const wxString& hint);
    void Localize(const std::string& unitSystem);

private:
    void ShowTexts();

    wxString m_tooltip;
    wxString m_hint;
};
