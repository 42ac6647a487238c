// SPDX-License-Identifier: MIT
// The commands of the main window.
#include "app/frame/edit_focused.h"
#include "app/frame/main_frame.h"
#include "app/frame/menu_table.h"
#include "gui_base/input/panel/aui_notebook.h"

#include <array>

namespace app {

namespace {

constexpr MenuRow kSeparator{};

// Nobody changes a project behind the start page.
bool IsProjectShown(const MainFrame& frame)
{
    return !frame.IsStartShown();
}

bool HasWater(const MainFrame& frame)
{
    return IsProjectShown(frame) && frame.Waters().GetCurrent() != nullptr;
}

bool HasFullAnalysis(const MainFrame& frame)
{
    return IsProjectShown(frame) && frame.Waters().HasFullAnalysis();
}

constexpr std::array kFileMenu{
    MenuRow{.text = wxTRANSLATE("&New project"),
            .key = "Ctrl+N",
            .action = [](MainFrame& frame) { frame.Files().New(); },
            .id = wxID_NEW,
            .icon = "new",
            .tool = 11},
    MenuRow{.text = wxTRANSLATE("New from &example..."),
            .key = "Ctrl+Shift+N",
            .action = [](MainFrame& frame) { frame.Files().NewFromExample(); },
            .icon = "example"},
    MenuRow{.text = wxTRANSLATE("New p&lant..."),
            .key = "Ctrl+Alt+N",
            .action = [](MainFrame& frame) { frame.Files().NewPlant(); },
            .icon = "plant"},
    MenuRow{.text = wxTRANSLATE("&Open..."),
            .key = "Ctrl+O",
            .action = [](MainFrame& frame) { frame.Files().AskAndOpen(); },
            .id = wxID_OPEN,
            .icon = "open",
            .tool = 12},
    MenuRow{.text = wxTRANSLATE("Open &recent"),
            .fill = [](MainFrame& frame, wxMenu& menu) { frame.Files().FillRecentMenu(menu); },
            .icon = "recent"},
    MenuRow{.text = wxTRANSLATE("Unsaved &work..."),
            .action = [](MainFrame& frame) { frame.Files().ShowRecovery(); },
            .icon = "recovery"},
    MenuRow{.text = wxTRANSLATE("S&tart page"),
            .key = "Alt+Home",
            .action = [](MainFrame& frame) { frame.ShowStart(); },
            .icon = "home"},
    kSeparator,
    MenuRow{.text = wxTRANSLATE("&Save"),
            .key = "Ctrl+S",
            .action = [](MainFrame& frame) { frame.Files().Save(); },
            .id = wxID_SAVE,
            .icon = "save",
            .tool = 13},
    MenuRow{.text = wxTRANSLATE("Save &as..."),
            .key = "Ctrl+Shift+S",
            .action = [](MainFrame& frame) { frame.Files().SaveAs(); },
            .id = wxID_SAVEAS,
            .icon = "save_as"},
    kSeparator,
    MenuRow{.text = wxTRANSLATE("&Import analysis..."),
            .key = "Ctrl+I",
            .action = [](MainFrame& frame) { frame.Waters().Import(); },
            .enabled = &HasWater,
            .icon = "import",
            .tool = 32},
    MenuRow{.text = wxTRANSLATE("Ex&port analysis..."),
            .key = "Ctrl+E",
            .action = [](MainFrame& frame) { frame.Waters().Export(); },
            .enabled = &HasWater,
            .icon = "export"},
    MenuRow{.text = wxTRANSLATE("Print to PD&F..."),
            .key = "Ctrl+P",
            .action = [](MainFrame& frame) { frame.PrintReport(); },
            .id = wxID_PRINT,
            .icon = "pdf",
            .tool = 52},
    kSeparator,
    MenuRow{.text = wxTRANSLATE("&Close project"),
            .key = "Ctrl+W",
            .action = [](MainFrame& frame) { frame.Files().CloseProject(); },
            .id = wxID_CLOSE,
            .icon = "close"},
    MenuRow{.text = wxTRANSLATE("E&xit"),
            .key = "Ctrl+Q",
            .action = [](MainFrame& frame) { frame.Close(); },
            .id = wxID_EXIT,
            .icon = "exit"},
};

constexpr std::array kEditMenu{
    MenuRow{.text = wxTRANSLATE("&Undo"),
            .key = "Ctrl+Z",
            .action = [](MainFrame& frame) { frame.Undo(); },
            .id = wxID_UNDO,
            .enabled =
                [](const MainFrame& frame) {
                    return IsProjectShown(frame) && frame.GetDocument().GetHistory().CanUndo();
                },
            .label = [](const MainFrame& frame) { return frame.UndoText(); },
            .icon = "undo",
            .tool = 21},
    MenuRow{.text = wxTRANSLATE("&Redo"),
            .key = "Ctrl+Shift+Z",
            .action = [](MainFrame& frame) { frame.Redo(); },
            .id = wxID_REDO,
            .enabled =
                [](const MainFrame& frame) {
                    return IsProjectShown(frame) && frame.GetDocument().GetHistory().CanRedo();
                },
            .label = [](const MainFrame& frame) { return frame.RedoText(); },
            .icon = "redo",
            .tool = 22},
    kSeparator,
    MenuRow{.text = wxTRANSLATE("Cu&t"),
            .key = "Ctrl+X",
            .action = [](MainFrame&) { EditFocused(wxID_CUT); },
            .id = wxID_CUT,
            .icon = "cut"},
    MenuRow{.text = wxTRANSLATE("C&opy"),
            .key = "Ctrl+C",
            .action = [](MainFrame&) { EditFocused(wxID_COPY); },
            .id = wxID_COPY,
            .icon = "copy"},
    MenuRow{.text = wxTRANSLATE("Pa&ste"),
            .key = "Ctrl+V",
            .action = [](MainFrame&) { EditFocused(wxID_PASTE); },
            .id = wxID_PASTE,
            .icon = "paste"},
    MenuRow{.text = wxTRANSLATE("Select a&ll"),
            .key = "Ctrl+A",
            .action = [](MainFrame&) { EditFocused(wxID_SELECTALL); },
            .id = wxID_SELECTALL,
            .icon = "select_all"},
    kSeparator,
    MenuRow{.text = wxTRANSLATE("&Paste column..."),
            .key = "Ctrl+Shift+V",
            .action = [](MainFrame& frame) { frame.Waters().PasteColumn(); },
            .enabled = &HasWater,
            .icon = "paste_column",
            .tool = 33},
    MenuRow{.text = wxTRANSLATE("U&nit of all ions..."),
            .key = "Ctrl+U",
            .action = [](MainFrame& frame) { frame.Waters().ChooseUnitForAll(); },
            .enabled = &HasFullAnalysis,
            .icon = "unit_of_ions"},
    MenuRow{.text = wxTRANSLATE("&Copy results"),
            .key = "Ctrl+Shift+C",
            .action = [](MainFrame& frame) { frame.Waters().CopyResults(); },
            .enabled = &HasWater,
            .icon = "copy_results"},
    kSeparator,
    MenuRow{.text = wxTRANSLATE("Copy &water"),
            .key = "Ctrl+Alt+C",
            .action = [](MainFrame& frame) { frame.Waters().Copy(); },
            .enabled = &HasWater,
            .icon = "copy_water"},
    MenuRow{.text = wxTRANSLATE("Paste w&ater"),
            .key = "Ctrl+Alt+V",
            .action = [](MainFrame& frame) { frame.Waters().Paste(); },
            .enabled = &HasWater,
            .icon = "paste_water"},
};

/// A pane of the window that can be closed and shown again.
template <WorkPane pane>
constexpr MenuRow PaneRow(const char* text, const char* key)
{
    return {.text = text,
            .key = key,
            .action =
                [](MainFrame& frame) {
                    frame.GetWorkArea().ShowPane(pane, !frame.GetWorkArea().IsPaneShown(pane));
                },
            .checked = [](const MainFrame& frame) { return frame.GetWorkArea().IsPaneShown(pane); }};
}

constexpr std::array kViewMenu{
    MenuRow{.text = wxTRANSLATE("&Unit system"),
            .fill = [](MainFrame& frame, wxMenu& menu) { frame.View().FillUnitMenu(menu); },
            .icon = "units",
            .tool = 51},
    MenuRow{.text = wxTRANSLATE("Units of &reports and copied results"),
            .fill = [](MainFrame& frame, wxMenu& menu) { frame.View().FillPrintoutUnitMenu(menu); },
            .icon = "units_of_reports"},
    MenuRow{.text = wxTRANSLATE("&Language"),
            .fill = [](MainFrame& frame, wxMenu& menu) { frame.View().FillLanguageMenu(menu); },
            .icon = "language"},
    kSeparator,
    PaneRow<WorkPane::Navigator>(wxTRANSLATE("&Navigator"), "F6"),
    PaneRow<WorkPane::Results>(wxTRANSLATE("Resul&ts"), "F7"),
    PaneRow<WorkPane::Diagram>(wxTRANSLATE("&Diagram"), "F8"),
    MenuRow{.text = wxTRANSLATE("&Problems and notes"),
            .key = "F9",
            .action =
                [](MainFrame& frame) {
                    MessageStrip& messages = frame.GetWorkArea().GetMessages();
                    messages.Toggle();
                    if (messages.IsExpanded() && messages.GetList().GetItemCount() > 0)
                        messages.GetList().SetFocus();
                },
            .checked = [](const MainFrame& frame) { return frame.GetWorkArea().GetMessages().IsExpanded(); }},
    MenuRow{.text = wxTRANSLATE("R&ead the results"),
            .key = "Shift+F7",
            .action = [](MainFrame& frame) { frame.FocusResults(); },
            .icon = "read_results"},
    kSeparator,
    MenuRow{.text = wxTRANSLATE("Ne&xt page"),
            .key = "Ctrl+PgDn",
            .action = [](MainFrame& frame) { frame.GetBook().ShowBeside(1); },
            .enabled = [](const MainFrame& frame) { return frame.GetBook().GetCurrentPanel() != nullptr; },
            .icon = "page_next"},
    MenuRow{.text = wxTRANSLATE("Pre&vious page"),
            .key = "Ctrl+PgUp",
            .action = [](MainFrame& frame) { frame.GetBook().ShowBeside(-1); },
            .enabled = [](const MainFrame& frame) { return frame.GetBook().GetCurrentPanel() != nullptr; },
            .icon = "page_previous"},
    MenuRow{.text = wxTRANSLATE("&Go to page..."),
            .key = "Ctrl+G",
            // The menu that it was chosen from closes first.
            .action = [](MainFrame& frame) { frame.CallAfter([&] { frame.GetNotebook().ShowPageList(); }); },
            .enabled = [](const MainFrame& frame) { return frame.GetBook().GetCurrentPanel() != nullptr; },
            .icon = "pages"},
    kSeparator,
    MenuRow{.text = wxTRANSLATE("Usual &arrangement"),
            .action = [](MainFrame& frame) { frame.GetWorkArea().ArrangeAsUsual(); },
            .icon = "arrangement"},
    kSeparator,
    MenuRow{.text = wxTRANSLATE("&Settings..."),
            .key = "Ctrl+,",
            .action = [](MainFrame& frame) { frame.View().ShowSettings(); },
            .id = wxID_PREFERENCES,
            .icon = "settings"},
    MenuRow{.text = wxTRANSLATE("Clear &messages"),
            .action = [](MainFrame& frame) { frame.ClearMessages(); },
            .icon = "clear"},
};

constexpr std::array kToolsMenu{
    MenuRow{.text = wxTRANSLATE("&Water library..."),
            .key = "Ctrl+L",
            .action = [](MainFrame& frame) { frame.Waters().ShowLibrary(); },
            .icon = "library",
            .tool = 31},
    MenuRow{.text = wxTRANSLATE("&Save to water library"),
            .key = "Ctrl+Shift+L",
            .action = [](MainFrame& frame) { frame.Waters().SaveToLibrary(); },
            .enabled = &HasWater,
            .icon = "library_add"},
    kSeparator,
    MenuRow{.text = wxTRANSLATE("Balance automaticall&y"),
            .key = "Ctrl+Shift+B",
            .action = [](MainFrame& frame) { frame.Waters().ToggleBalance(); },
            .enabled = &HasFullAnalysis,
            .icon = "balance",
            .tool = 41,
            .checked = [](const MainFrame& frame) { return frame.Waters().IsBalanced(); }},
    MenuRow{.text = wxTRANSLATE("CO2 calcula&tor..."),
            .key = "Ctrl+K",
            .action = [](MainFrame& frame) { frame.Waters().CalculateCo2(); },
            .enabled = &HasWater,
            .icon = "co2",
            .tool = 42},
    MenuRow{.text = wxTRANSLATE("Al&kalise..."),
            .key = "Ctrl+Shift+K",
            .action = [](MainFrame& frame) { frame.Waters().Alkalise(); },
            .enabled = &HasWater,
            .icon = "alkalise",
            .tool = 43},
    MenuRow{.text = wxTRANSLATE("&Blend waters..."),
            .key = "Ctrl+B",
            .action = [](MainFrame& frame) { frame.Waters().Blend(); },
            .enabled = &IsProjectShown,
            .icon = "blend",
            .tool = 44},
    kSeparator,
    MenuRow{.text = wxTRANSLATE("What-&if analysis..."),
            .key = "Ctrl+Shift+W",
            .action = [](MainFrame& frame) { frame.ShowWhatIf(); },
            .enabled = [](const MainFrame& frame) { return frame.HasWhatIf(); },
            .icon = "whatif"},
    MenuRow{.text = wxTRANSLATE("Change &plant..."),
            .key = "Ctrl+Shift+P",
            .action = [](MainFrame& frame) { frame.ChangePlant(); },
            .enabled = [](const MainFrame& frame) { return frame.CanChangePlant(); },
            .icon = "plant"},
    kSeparator,
    MenuRow{.text = wxTRANSLATE("&Add water"),
            .key = "Ctrl+Shift+A",
            .action = [](MainFrame& frame) { frame.Waters().Add(); },
            .icon = "add"},
    MenuRow{.text = wxTRANSLATE("&Duplicate water"),
            .key = "Ctrl+D",
            .action = [](MainFrame& frame) { frame.Waters().Duplicate(); },
            .enabled = &HasWater,
            .icon = "copy"},
    MenuRow{.text = wxTRANSLATE("Re&name water..."),
            .action = [](MainFrame& frame) { frame.Waters().Rename(); },
            .enabled = &HasWater,
            .icon = "rename"},
    MenuRow{.text = wxTRANSLATE("Move water &up"),
            .key = "Ctrl+Shift+Up",
            .action = [](MainFrame& frame) { frame.Waters().Move(-1); },
            .enabled = [](const MainFrame& frame) { return frame.Waters().CanMove(-1); },
            .icon = "up"},
    MenuRow{.text = wxTRANSLATE("Mo&ve water down"),
            .key = "Ctrl+Shift+Down",
            .action = [](MainFrame& frame) { frame.Waters().Move(1); },
            .enabled = [](const MainFrame& frame) { return frame.Waters().CanMove(1); },
            .icon = "down"},
    MenuRow{.text = wxTRANSLATE("&Remove water"),
            .action = [](MainFrame& frame) { frame.Waters().Remove(); },
            .enabled = &HasWater,
            .icon = "delete"},
    kSeparator,
    MenuRow{.text = wxTRANSLATE("Data s&heets..."),
            .action = [](MainFrame& frame) { frame.Services().ShowDataSheets(); },
            .icon = "sheets"},
    MenuRow{.text = wxTRANSLATE("&Currency rates..."),
            .action = [](MainFrame& frame) { frame.Services().ShowRates(); },
            .icon = "currency"},
    MenuRow{.text = wxTRANSLATE("C&onnection..."),
            .action = [](MainFrame& frame) { frame.Services().ShowConnection(); },
            .icon = "network"},
};

constexpr std::array kHelpMenu{
    MenuRow{.text = wxTRANSLATE("Help on this &page"),
            .key = "F1",
            .action = [](MainFrame& frame) { frame.ShowHelp(); },
            .id = wxID_HELP,
            .icon = "help"},
    MenuRow{.text = wxTRANSLATE("&Contents"),
            .action = [](MainFrame& frame) { frame.ShowHelpContents(); },
            .icon = "contents"},
    kSeparator,
    MenuRow{.text = wxTRANSLATE("Check for &updates..."),
            .action = [](MainFrame& frame) { frame.Services().ShowUpdates(); },
            .icon = "update"},
    MenuRow{.text = wxTRANSLATE("&About Tarnvik"),
            .action = [](MainFrame& frame) { frame.ShowAbout(); },
            .id = wxID_ABOUT,
            .icon = "info"},
};

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

}  // namespace app
