// SPDX-License-Identifier: MIT
#pragma once

#include <wx/arrstr.h>
#include <wx/aui/tabart.h>

/// Draws the tabs of a notebook as the toolkit does, but texts that are too long shortened in the middle:
/// names often begin alike. The last tab in sight is shortened to the room that is left, which the toolkit
/// would cut, or left out where that is too little. The pages keep their whole texts, which the list of the
/// pages shows.
class TabArt : public wxAuiDefaultTabArt
{
public:
    wxAuiTabArt* Clone() override { return new TabArt(*this); }
    wxSize GetTabSize(wxDC& dc, wxWindow* window, const wxString& caption, const wxBitmapBundle& bitmap,
                      bool active, int closeButtonState, int* width) override;
    void DrawTab(wxDC& dc, wxWindow* window, const wxAuiNotebookPage& page, const wxRect& place,
                 int closeButtonState, wxRect* tab, wxRect* button, int* width) override;
    int ShowDropDown(wxWindow* window, const wxAuiNotebookPageArray& pages, int active) override;

    /// What a tab shows of a text.
    wxString Shortened(const wxString& text, wxDC& dc, const wxWindow& window) const;

private:
    wxString ShortenedTo(int width, const wxString& text, wxDC& dc) const;
    int TextWidth(const wxString& text, wxDC& dc) const;
};

/// Lets the user choose one of the names from a menu at a place of a window; the one that is `active` is
/// checked. wxNOT_FOUND where none is chosen.
int ChooseFromMenu(wxWindow& window, const wxPoint& place, const wxArrayString& names, int active);
