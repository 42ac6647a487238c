// SPDX-License-Identifier: MIT
#include "app/frame/menu_table.h"

#include "app/frame/main_frame.h"
#include "gui_base/support/translation.h"

#include <array>
#include <map>

namespace app {

namespace {

constexpr MenuRow kSeparator{};

bool HasWater(const MainFrame& frame)
{
    return frame.Waters().GetCurrent() != nullptr;
}

/// A row of a whole command.
constexpr MenuRow Row(const char* text, const char* key, void (*action)(MainFrame&), int id = wxID_ANY,
                      bool (*enabled)(const MainFrame&) = nullptr)
{
    return {.text = text, .key = key, .action = action, .id = id, .enabled = enabled};
}

constexpr MenuRow Submenu(const char* text, void (*fill)(MainFrame&, wxMenu&))
{
    return {.text = text, .fill = fill};
}

constexpr std::array kFileMenu{
    Row(
        wxTRANSLATE("&New project"), "Ctrl+N", [](MainFrame& frame) { frame.Files().New(); }, wxID_NEW),
    Row(wxTRANSLATE("New from &example..."), "Ctrl+Shift+N",
        [](MainFrame& frame) { frame.Files().NewFromExample(); }),
    Row(wxTRANSLATE("New p&lant..."), "Ctrl+Alt+N", [](MainFrame& frame) { frame.Files().NewPlant(); }),
    Row(
        wxTRANSLATE("&Open..."), "Ctrl+O", [](MainFrame& frame) { frame.Files().AskAndOpen(); }, wxID_OPEN),
    Submenu(wxTRANSLATE("Open &recent"),
            [](MainFrame& frame, wxMenu& menu) { frame.Files().FillRecentMenu(menu); }),
    Row(wxTRANSLATE("Unsaved &work..."), "", [](MainFrame& frame) { frame.Files().ShowRecovery(); }),
    kSeparator,
    Row(
        wxTRANSLATE("&Save"), "Ctrl+S", [](MainFrame& frame) { frame.Files().Save(); }, wxID_SAVE),
    Row(
        wxTRANSLATE("Save &as..."), "Ctrl+Shift+S", [](MainFrame& frame) { frame.Files().SaveAs(); },
        wxID_SAVEAS),
    kSeparator,
    Row(
        wxTRANSLATE("&Import analysis..."), "Ctrl+I", [](MainFrame& frame) { frame.Waters().Import(); },
        wxID_ANY, &HasWater),
    Row(
        wxTRANSLATE("Ex&port analysis..."), "Ctrl+E", [](MainFrame& frame) { frame.Waters().Export(); },
        wxID_ANY, &HasWater),
    Row(
        wxTRANSLATE("Print &to PDF..."), "Ctrl+P", [](MainFrame& frame) { frame.PrintReport(); }, wxID_PRINT),
    kSeparator,
    Row(
        wxTRANSLATE("&Close project"), "Ctrl+W", [](MainFrame& frame) { frame.Files().CloseProject(); },
        wxID_CLOSE),
    Row(
        wxTRANSLATE("E&xit"), "Ctrl+Q", [](MainFrame& frame) { frame.Close(); }, wxID_EXIT),
};

constexpr std::array kEditMenu{
    MenuRow{.text = wxTRANSLATE("&Undo"),
            .key = "Ctrl+Z",
            .action = [](MainFrame& frame) { frame.Undo(); },
            .id = wxID_UNDO,
            .enabled = [](const MainFrame& frame) { return frame.GetDocument().GetHistory().CanUndo(); },
            .label = [](const MainFrame& frame) { return frame.UndoText(); }},
    MenuRow{.text = wxTRANSLATE("&Redo"),
            .key = "Ctrl+Shift+Z",
            .action = [](MainFrame& frame) { frame.Redo(); },
            .id = wxID_REDO,
            .enabled = [](const MainFrame& frame) { return frame.GetDocument().GetHistory().CanRedo(); },
            .label = [](const MainFrame& frame) { return frame.RedoText(); }},
    kSeparator,
    Row(
        wxTRANSLATE("&Paste column..."), "Ctrl+Shift+V",
        [](MainFrame& frame) { frame.Waters().PasteColumn(); }, wxID_ANY, &HasWater),
    Row(
        wxTRANSLATE("&Copy results"), "Ctrl+Shift+C", [](MainFrame& frame) { frame.Waters().CopyResults(); },
        wxID_ANY, &HasWater),
    kSeparator,
    Row(
        wxTRANSLATE("Copy &water"), "Ctrl+Alt+C", [](MainFrame& frame) { frame.Waters().Copy(); }, wxID_ANY,
        &HasWater),
    Row(
        wxTRANSLATE("Paste w&ater"), "Ctrl+Alt+V", [](MainFrame& frame) { frame.Waters().Paste(); }, wxID_ANY,
        &HasWater),
};

constexpr std::array kViewMenu{
    Submenu(wxTRANSLATE("&Unit system"),
            [](MainFrame& frame, wxMenu& menu) { frame.View().FillUnitMenu(menu); }),
    Submenu(wxTRANSLATE("Units of &reports and copied results"),
            [](MainFrame& frame, wxMenu& menu) { frame.View().FillPrintoutUnitMenu(menu); }),
    Submenu(wxTRANSLATE("&Language"),
            [](MainFrame& frame, wxMenu& menu) { frame.View().FillLanguageMenu(menu); }),
    kSeparator,
    Row(
        wxTRANSLATE("&Settings..."), "Ctrl+,", [](MainFrame& frame) { frame.View().ShowSettings(); },
        wxID_PREFERENCES),
    Row(wxTRANSLATE("Clear &messages"), "", [](MainFrame& frame) { frame.ClearMessages(); }),
};

constexpr std::array kToolsMenu{
    Row(wxTRANSLATE("&Water library..."), "Ctrl+L", [](MainFrame& frame) { frame.Waters().ShowLibrary(); }),
    Row(
        wxTRANSLATE("&Save to water library"), "Ctrl+Shift+L",
        [](MainFrame& frame) { frame.Waters().SaveToLibrary(); }, wxID_ANY, &HasWater),
    kSeparator,
    Row(
        wxTRANSLATE("What-&if analysis..."), "Ctrl+Shift+W", [](MainFrame& frame) { frame.ShowWhatIf(); },
        wxID_ANY, [](const MainFrame& frame) { return frame.HasWhatIf(); }),
    Row(
        wxTRANSLATE("Change &plant..."), "Ctrl+Shift+P", [](MainFrame& frame) { frame.ChangePlant(); },
        wxID_ANY, [](const MainFrame& frame) { return frame.CanChangePlant(); }),
    kSeparator,
    Row(wxTRANSLATE("&Add water"), "", [](MainFrame& frame) { frame.Waters().Add(); }),
    Row(wxTRANSLATE("&Blend waters..."), "Ctrl+B", [](MainFrame& frame) { frame.Waters().Blend(); }),
    Row(
        wxTRANSLATE("Re&name water..."), "", [](MainFrame& frame) { frame.Waters().Rename(); }, wxID_ANY,
        &HasWater),
    Row(
        wxTRANSLATE("Move water &up"), "", [](MainFrame& frame) { frame.Waters().Move(-1); }, wxID_ANY,
        [](const MainFrame& frame) { return frame.Waters().CanMove(-1); }),
    Row(
        wxTRANSLATE("Move water &down"), "", [](MainFrame& frame) { frame.Waters().Move(1); }, wxID_ANY,
        [](const MainFrame& frame) { return frame.Waters().CanMove(1); }),
    Row(
        wxTRANSLATE("&Remove water"), "", [](MainFrame& frame) { frame.Waters().Remove(); }, wxID_ANY,
        &HasWater),
    kSeparator,
    Row(wxTRANSLATE("Data s&heets..."), "", [](MainFrame& frame) { frame.Services().ShowDataSheets(); }),
    Row(wxTRANSLATE("&Currency rates..."), "", [](MainFrame& frame) { frame.Services().ShowRates(); }),
    Row(wxTRANSLATE("C&onnection..."), "", [](MainFrame& frame) { frame.Services().ShowConnection(); }),
};

constexpr std::array kHelpMenu{
    Row(
        wxTRANSLATE("Help on this &page"), "F1", [](MainFrame& frame) { frame.ShowHelp(); }, wxID_HELP),
    Row(wxTRANSLATE("&Contents"), "", [](MainFrame& frame) { frame.ShowHelpContents(); }),
    kSeparator,
    Row(wxTRANSLATE("Check for &updates..."), "", [](MainFrame& frame) { frame.Services().ShowUpdates(); }),
    Row(
        wxTRANSLATE("&About Tarnvik"), "", [](MainFrame& frame) { frame.ShowAbout(); }, wxID_ABOUT),
};

/// Knows of its items by which row of the table each stands.
class TableMenuBar : public wxMenuBar
{
public:
    void Keep(int id, const MenuRow& row) { m_rows.emplace(id, &row); }
    const MenuRow* Find(int id) const
    {
        const auto found = m_rows.find(id);
        return found != m_rows.end() ? found->second : nullptr;
    }

private:
    std::map<int, const MenuRow*> m_rows;
};

wxString KeyText(const MenuRow& row)
{
    return *row.key == '\0' ? wxString() : "\t" + wxString(row.key);
}

void AppendRow(TableMenuBar& bar, wxMenu& menu, const MenuRow& row, MainFrame& frame)
{
    if (row.text == nullptr) {
        menu.AppendSeparator();
        return;
    }
    const wxString text = i18n::Translated(row.text);
    if (row.fill != nullptr) {
        auto* submenu = new wxMenu;
        row.fill(frame, *submenu);
        menu.AppendSubMenu(submenu, text);
        return;
    }
    const int id = menu.Append(row.id, text + KeyText(row))->GetId();
    // The menu that is being used may be replaced by what it does: the switch of the language.
    menu.Bind(
        wxEVT_MENU, [&frame, action = row.action](wxCommandEvent&) { action(frame); }, id);
    bar.Keep(id, row);
}

}  // namespace

std::span<const MenuTable> Menus()
{
    static const std::array menus{
        MenuTable{wxTRANSLATE("&File"), kFileMenu}, MenuTable{wxTRANSLATE("&Edit"), kEditMenu},
        MenuTable{wxTRANSLATE("&View"), kViewMenu}, MenuTable{wxTRANSLATE("&Tools"), kToolsMenu},
        MenuTable{wxTRANSLATE("&Help"), kHelpMenu},
    };
    return menus;
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

void UpdateMenuItem(const MainFrame& frame, wxUpdateUIEvent& event)
{
    const auto* bar = dynamic_cast<const TableMenuBar*>(frame.GetMenuBar());
    const bool isOfMenu = dynamic_cast<const wxMenu*>(event.GetEventObject()) != nullptr;
    const MenuRow* row = bar != nullptr && isOfMenu ? bar->Find(event.GetId()) : nullptr;
    if (row == nullptr) {
        event.Skip();
        return;
    }
    if (row->enabled != nullptr)
        event.Enable(row->enabled(frame));
    if (row->label != nullptr)
        event.SetText(row->label(frame) + KeyText(*row));
}

}  // namespace app
