// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/panel.h>

#include <functional>
#include <string>

class wxButton;
class wxStaticText;

/// What stands in a list that its search or filters leave empty: that nothing was found, and a button that
/// shows everything again. A sibling that lies upon the list, behind it in the order of Tab.
class GUI_BASE_EXPORT NothingFound : public wxPanel
{
public:
    /// `list` lives as long as its parent. `button` is the source text of the button, which calls `clear`.
    NothingFound(wxWindow& list, const wxString& button, std::function<void()> clear);

    /// Shows itself or not. Where the focus was on its button it goes to the list.
    void ShowIf(bool nothing);
    void Localize(const std::string& unitSystem);

private:
    void Place();

    wxWindow& m_list;
    wxString m_buttonText;
    wxStaticText* m_text;
    wxButton* m_button;
};
