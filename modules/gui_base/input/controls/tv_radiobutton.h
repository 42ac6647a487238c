// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/radiobut.h>

#include <string>

/// A radio button with a translated label and tooltip.
class GUI_BASE_EXPORT TvRadioButton : public wxRadioButton
{
public:
    TvRadioButton(wxWindow* parent, int id, const wxString& label, const wxPoint& pos = wxDefaultPosition,
                  const wxSize& size = wxDefaultSize, long style = 0,
                  const wxValidator& validator = wxDefaultValidator,
                  const wxString& name = wxASCII_STR(wxRadioButtonNameStr));

    void SetTranslatableToolTip(const wxString& tooltip);
    void Localize(const std::string& unitSystem);

private:
    wxString m_label;
    wxString m_tooltip;
};
