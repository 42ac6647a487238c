// SPDX-License-Identifier: MIT
#pragma once

/// The commands of the main window as rows of one table: what stands where in the menus and in the toolbar,
/// its key, its picture, and what it does. Texts are source texts; menus and toolbar are built of the table
/// anew when the language changes.

#include <wx/menu.h>
#include <wx/toolbar.h>

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
    /// Name of the picture in menu and toolbar, "save"; null for none.
    const char* icon = nullptr;
    /// Place among the tools from left to right, with gaps for groups: tools of one ten belong together. 0
    /// for no tool.
    int tool = 0;
    /// Whether the command is in effect, shown by a check mark; null for one that is done once.
    bool (*checked)(const MainFrame& frame) = nullptr;
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

/// Builds the tools for a frame, whose toolbar they become.
wxToolBar* BuildToolBar(MainFrame& frame);

/// Answers the toolkit's question how a command of the table stands now: whether it can be chosen, whether it
/// is in effect, and its text. The toolkit asks the frame, not the menu.
void UpdateCommand(const MainFrame& frame, wxUpdateUIEvent& event);

/// Does the command whose key was pressed, and returns whether it is a command's: one with Ctrl or Alt that
/// does not edit the text with the keyboard. The toolkit's fields take some of them for keys of their own
/// before the menu sees them: Ctrl+U deletes all.
bool DoCommandOfKey(MainFrame& frame, const wxKeyEvent& event);

/// Adds an item that does `action` and does not come from the table: a recent file, a language.
void AppendItem(wxMenu& menu, const wxString& text, std::function<void()> action);
/// Adds an item of a choice, checked when it is the one in effect.
void AppendChoice(wxMenu& menu, const wxString& text, bool checked, std::function<void()> action);

}  // namespace app
