// SPDX-License-Identifier: MIT
#pragma once

/// The menus of the main window as rows of one table: what stands where, its key, and what it does. Texts are
/// source texts; the table is built into menus anew when the language changes.

#include <wx/menu.h>

#include <functional>
#include <span>

namespace app {

class MainFrame;

/// One row; a row without a text is a separator.
struct MenuRow
{
    const char* text = nullptr;
    const char* key = "";  ///< "Ctrl+Shift+N"; empty for none
    void (*action)(MainFrame& frame) = nullptr;
    int id = wxID_ANY;
    /// Null for a row that can always be chosen.
    bool (*enabled)(const MainFrame& frame) = nullptr;
    /// Text instead of `text` where it changes; without mnemonic and key.
    wxString (*label)(const MainFrame& frame) = nullptr;
    /// Fills a submenu instead of an action.
    void (*fill)(MainFrame& frame, wxMenu& menu) = nullptr;
};

struct MenuTable
{
    const char* title;
    std::span<const MenuRow> rows;
};

/// The menus from left to right.
std::span<const MenuTable> Menus();

/// Builds the menus for a frame, whose menu bar they become.
wxMenuBar* BuildMenuBar(MainFrame& frame);

/// Answers the toolkit's question how an item of the table stands now: whether it can be chosen, and its
/// text. The toolkit asks the frame, not the menu.
void UpdateMenuItem(const MainFrame& frame, wxUpdateUIEvent& event);

/// Adds an item that does `action` and does not come from the table: a recent file, a language.
void AppendItem(wxMenu& menu, const wxString& text, std::function<void()> action);
/// Adds an item of a choice, checked when it is the one in effect.
void AppendChoice(wxMenu& menu, const wxString& text, bool checked, std::function<void()> action);

}  // namespace app
