// SPDX-License-Identifier: MIT
#include "gui_base/input/panel/tab_art.h"

#include <wx/aui/auibook.h>
#include <wx/control.h>
#include <wx/menu.h>
#include <wx/utils.h>

namespace {

constexpr int kMostTextWidth = 240;  // DIP
constexpr int kLeastTextWidth = 36;

}  // namespace

int TabArt::TextWidth(const wxString& text, wxDC& dc) const
{
    // The same whether the tab is in front or not: its neighbours stay where they are.
    const wxDCFontChanger font(dc, m_measuringFont);
    return dc.GetTextExtent(text).GetWidth();
}

wxString TabArt::ShortenedTo(int width, const wxString& text, wxDC& dc) const
{
    const wxDCFontChanger font(dc, m_measuringFont);
    return wxControl::Ellipsize(text, dc, wxELLIPSIZE_MIDDLE, width, wxELLIPSIZE_FLAGS_NONE);
}

wxString TabArt::Shortened(const wxString& text, wxDC& dc, const wxWindow& window) const
{
    return ShortenedTo(window.FromDIP(kMostTextWidth), text, dc);
}

wxSize TabArt::GetTabSize(wxDC& dc, wxWindow* window, const wxString& caption, const wxBitmapBundle& bitmap,
                          bool active, int closeButtonState, int* width)
{
    return wxAuiDefaultTabArt::GetTabSize(dc, window, Shortened(caption, dc, *window), bitmap, active,
                                          closeButtonState, width);
}

void TabArt::DrawTab(wxDC& dc, wxWindow* window, const wxAuiNotebookPage& page, const wxRect& place,
                     int closeButtonState, wxRect* tab, wxRect* button, int* width)
{
    wxAuiNotebookPage shown = page;
    shown.caption = Shortened(page.caption, dc, *window);
    const wxSize whole = wxAuiDefaultTabArt::GetTabSize(dc, window, shown.caption, page.bitmap, page.active,
                                                        closeButtonState, width);
    if (whole.x > place.width) {
        const int room = TextWidth(shown.caption, dc) - (whole.x - place.width);
        if (room < window->FromDIP(kLeastTextWidth)) {
            *tab = *button = wxRect();
            return;
        }
        shown.caption = ShortenedTo(room, page.caption, dc);
    }
    wxAuiDefaultTabArt::DrawTab(dc, window, shown, place, closeButtonState, tab, button, width);
}

int TabArt::ShowDropDown(wxWindow* window, const wxAuiNotebookPageArray& pages, int active)
{
    wxArrayString names;
    for (std::size_t i = 0; i < pages.GetCount(); ++i)
        names.Add(pages.Item(i).caption);
    // Below the button that was pressed.
    const wxPoint pointer = window->ScreenToClient(wxGetMousePosition());
    return ChooseFromMenu(*window, {pointer.x, window->GetClientSize().y}, names, active);
}

int ChooseFromMenu(wxWindow& window, const wxPoint& place, const wxArrayString& names, int active)
{
    constexpr int kFirst = wxID_HIGHEST + 1;
    wxMenu menu;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const int item = static_cast<int>(i);
        menu.AppendCheckItem(kFirst + item, wxControl::EscapeMnemonics(names[i]))->Check(item == active);
    }
    const int chosen = window.GetPopupMenuSelectionFromUser(menu, place);
    return chosen >= kFirst ? chosen - kFirst : wxNOT_FOUND;
}
