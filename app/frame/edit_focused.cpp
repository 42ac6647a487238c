// SPDX-License-Identifier: MIT
#include "app/frame/edit_focused.h"

#include <wx/event.h>
#include <wx/textentry.h>
#include <wx/window.h>

namespace app {
namespace {

void Edit(wxTextEntry& text, int command)
{
    switch (command) {
        case wxID_CUT:
            text.Cut();
            break;
        case wxID_COPY:
            text.Copy();
            break;
        case wxID_PASTE:
            text.Paste();
            break;
        default:
            text.SelectAll();
            break;
    }
}

int KeyOf(int command)
{
    switch (command) {
        case wxID_CUT:
            return 'X';
        case wxID_COPY:
            return 'C';
        case wxID_PASTE:
            return 'V';
        default:
            return 'A';
    }
}

}  // namespace

void EditFocused(int command)
{
    wxWindow* focused = wxWindow::FindFocus();
    if (focused == nullptr)
        return;
    if (auto* text = dynamic_cast<wxTextEntry*>(focused)) {
        Edit(*text, command);
        return;
    }
    // Tables, graphics and charts know the key.
    for (const wxEventType type : {wxEVT_KEY_DOWN, wxEVT_CHAR}) {
        wxKeyEvent key(type);
        key.SetEventObject(focused);
        key.SetId(focused->GetId());
        key.m_keyCode = type == wxEVT_CHAR ? KeyOf(command) - 'A' + 1 : KeyOf(command);
        key.SetControlDown(true);
        if (focused->HandleWindowEvent(key))
            return;
    }
}

}  // namespace app
