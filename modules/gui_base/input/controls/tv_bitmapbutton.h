// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/bmpbndl.h>
#include <wx/bmpbuttn.h>
#include <wx/weakref.h>

#include <string>

/// A bitmap button that serves the control beside it: it opens an editor or a list for that field. It is as
/// high as its sibling and enabled and shown just when that is; after a click its sibling has the focus, so
/// that the user types on where the button's work ends. Its tooltip, which also names it for screen readers,
/// is translated. Without a sibling, or when that is gone, it is an ordinary button.
class GUI_BASE_EXPORT TvBitmapButton : public wxBitmapButton
{
public:
    /// `sibling` is not owned and may be null.
    TvBitmapButton(wxWindow* parent, int id, const wxBitmapBundle& bitmap, wxWindow* sibling,
                   const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize, long style = 0,
                   const wxValidator& validator = wxDefaultValidator,
                   const wxString& name = wxASCII_STR(wxButtonNameStr));

    void SetTranslatableToolTip(const wxString& tooltip);
    void Localize(const std::string& unitSystem);
    wxWindow* GetSibling() const { return m_sibling.get(); }
    /// Takes over whether the sibling is enabled and shown; runs by itself whenever the program is idle.
    void FollowSibling();

protected:
    wxSize DoGetBestSize() const override;

private:
    void OnClicked(wxCommandEvent& event);

    wxWeakRef<wxWindow> m_sibling;
    wxString m_tooltip;
};
