// SPDX-License-Identifier: MIT
#include "app/frame/menu_table.h"

#include "app/frame/main_frame.h"
#include "gui_base/support/image_loader.h"
#include "gui_base/support/translation.h"

#include <wx/accel.h>
#include <wx/settings.h>

#include <algorithm>
#include <array>
#include <map>
#include <vector>

namespace app {

namespace {

constexpr int kMenuIconSize = 16;
constexpr int kToolIconSize = 22;
constexpr int kToolsOfAGroup = 10;

/// Knows of commands by which row of the table each stands for.
class CommandRows
{
public:
    virtual ~CommandRows() = default;
    void Keep(int id, const MenuRow& row) { m_rows.emplace(id, &row); }
    const MenuRow* Find(int id) const
    {
        const auto found = m_rows.find(id);
        return found != m_rows.end() ? found->second : nullptr;
    }

private:
    std::map<int, const MenuRow*> m_rows;
};

class TableMenuBar : public wxMenuBar, public CommandRows
{};

class TableToolBar : public wxToolBar, public CommandRows
{
public:
    using wxToolBar::wxToolBar;
};

wxString KeyText(const MenuRow& row)
{
    return *row.key == '\0' ? wxString() : "\t" + wxString(row.key);
}

wxBitmapBundle PictureOf(const MenuRow& row, int size, wxSystemColour text)
{
    if (row.icon == nullptr)
        return {};
    return ImageLoader::LoadTinted("icons/" + wxString(row.icon) + ".svg", wxSize(size, size),
                                   wxSystemSettings::GetColour(text));
}

void AppendRow(TableMenuBar& bar, wxMenu& menu, const MenuRow& row, MainFrame& frame)
{
    if (row.text == nullptr) {
        menu.AppendSeparator();
        return;
    }
    const wxString text = i18n::Translated(row.text);
    auto* item = new wxMenuItem(&menu, row.fill != nullptr ? wxID_ANY : row.id, text + KeyText(row),
                                wxString(), row.checked != nullptr ? wxITEM_CHECK : wxITEM_NORMAL);
    // A check mark stands where the picture would.
    if (row.checked == nullptr)
        item->SetBitmap(PictureOf(row, kMenuIconSize, wxSYS_COLOUR_MENUTEXT));
    if (row.fill != nullptr) {
        auto* submenu = new wxMenu;
        row.fill(frame, *submenu);
        item->SetSubMenu(submenu);
        menu.Append(item);
        return;
    }
    menu.Append(item);
    const int id = item->GetId();
    // The menu that is being used may be replaced by what it does: the switch of the language.
    menu.Bind(
        wxEVT_MENU, [&frame, action = row.action](wxCommandEvent&) { action(frame); }, id);
    bar.Keep(id, row);
}

/// The rows that are tools, from left to right.
std::vector<const MenuRow*> Tools()
{
    std::vector<const MenuRow*> tools;
    for (const MenuTable& table : Menus()) {
        for (const MenuRow& row : table.rows) {
            if (row.tool > 0)
                tools.push_back(&row);
        }
    }
    std::ranges::sort(tools, {}, &MenuRow::tool);
    return tools;
}

/// "Save (Ctrl+S)".
wxString TipOf(const wxString& text, const MenuRow& row)
{
    wxString tip = wxMenuItem::GetLabelText(text);
    tip.Replace("...", "");
    if (*row.key != '\0')
        tip += " (" + wxString(row.key) + ")";
    return tip;
}

wxString TextOf(const MenuRow& row, const MainFrame& frame)
{
    return row.label != nullptr ? row.label(frame) : i18n::Translated(row.text);
}

void AddTool(TableToolBar& bar, const MenuRow& row, MainFrame& frame)
{
    const wxString tip = TipOf(i18n::Translated(row.text), row);
    const int id = bar.AddTool(wxID_ANY, tip, PictureOf(row, kToolIconSize, wxSYS_COLOUR_BTNTEXT), tip,
                               row.checked != nullptr ? wxITEM_CHECK : wxITEM_NORMAL)
                       ->GetId();
    bar.Bind(
        wxEVT_TOOL,
        [&frame, &row](wxCommandEvent&) {
            if (row.fill == nullptr) {
                row.action(frame);
                return;
            }
            wxMenu menu;
            row.fill(frame, menu);
            frame.PopupMenu(&menu);
        },
        id);
    bar.Keep(id, row);
}

}  // namespace

bool DoCommandOfKey(MainFrame& frame, const wxKeyEvent& event)
{
    constexpr std::array kOfTheText{wxID_CUT, wxID_COPY, wxID_PASTE, wxID_SELECTALL};
    if ((event.GetModifiers() & (wxMOD_CONTROL | wxMOD_ALT)) == 0)
        return false;
    // Both keys are usual.
    const bool isSecondRedo = event.GetModifiers() == wxMOD_CONTROL && event.GetKeyCode() == 'Y';
    for (const MenuTable& table : Menus()) {
        for (const MenuRow& row : table.rows) {
            if (*row.key == '\0' || row.action == nullptr ||
                std::ranges::find(kOfTheText, row.id) != kOfTheText.end())
                continue;
            wxAcceleratorEntry key;
            const bool isKey = key.FromString("\t" + wxString(row.key)) &&
                               key.GetFlags() == event.GetModifiers() &&
                               key.GetKeyCode() == event.GetKeyCode();
            if (!isKey && !(isSecondRedo && row.id == wxID_REDO))
                continue;
            if (row.enabled == nullptr || row.enabled(frame))
                row.action(frame);
            return true;
        }
    }
    return false;
}

void AppendItem(wxMenu& menu, const wxString& text, std::function<void()> action)
{
    const int id = menu.Append(wxID_ANY, text)->GetId();
    menu.Bind(
        wxEVT_MENU, [action = std::move(action)](wxCommandEvent&) { action(); }, id);
}

void AppendChoice(wxMenu& menu, const wxString& text, bool checked, std::function<void()> action)
{
    wxMenuItem* item = menu.AppendRadioItem(wxID_ANY, text);
    item->Check(checked);
    menu.Bind(
        wxEVT_MENU, [action = std::move(action)](wxCommandEvent&) { action(); }, item->GetId());
}

wxMenuBar* BuildMenuBar(MainFrame& frame)
{
    auto* bar = new TableMenuBar;
    for (const MenuTable& table : Menus()) {
        auto* menu = new wxMenu;
        for (const MenuRow& row : table.rows)
            AppendRow(*bar, *menu, row, frame);
        bar->Append(menu, i18n::Translated(table.title));
    }
    return bar;
}

wxToolBar* BuildToolBar(MainFrame& frame)
{
    auto* bar =
        new TableToolBar(&frame, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTB_HORIZONTAL | wxTB_FLAT);
    bar->SetToolBitmapSize(wxSize(kToolIconSize, kToolIconSize));
    int group = 0;
    for (const MenuRow* row : Tools()) {
        if (group != 0 && row->tool / kToolsOfAGroup != group)
            bar->AddSeparator();
        group = row->tool / kToolsOfAGroup;
        AddTool(*bar, *row, frame);
    }
    bar->Realize();
    return bar;
}

void UpdateCommand(const MainFrame& frame, wxUpdateUIEvent& event)
{
    // Whoever else asks may have an identifier of his own that is the same.
    const CommandRows* rows = nullptr;
    if (dynamic_cast<const wxMenu*>(event.GetEventObject()) != nullptr)
        rows = dynamic_cast<const TableMenuBar*>(frame.GetMenuBar());
    else if (event.GetEventObject() == frame.GetToolBar())
        rows = dynamic_cast<const TableToolBar*>(frame.GetToolBar());
    const MenuRow* row = rows != nullptr ? rows->Find(event.GetId()) : nullptr;
    if (row == nullptr) {
        event.Skip();
        return;
    }
    if (row->enabled != nullptr)
        event.Enable(row->enabled(frame));
    if (row->checked != nullptr)
        event.Check(row->checked(frame));
    if (row->label == nullptr)
        return;
    if (wxToolBar* bar = event.GetEventObject() == frame.GetToolBar() ? frame.GetToolBar() : nullptr) {
        const wxString tip = TipOf(TextOf(*row, frame), *row);
        if (bar->GetToolShortHelp(event.GetId()) != tip)
            bar->SetToolShortHelp(event.GetId(), tip);
    } else {
        event.SetText(TextOf(*row, frame) + KeyText(*row));
    }
}

}  // namespace app
