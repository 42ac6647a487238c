// SPDX-License-Identifier: MIT
// The menus of the main window and what they do.
#include "app/document/recent_files.h"
#include "app/document/templates.h"
#include "app/frame/main_frame.h"
#include "app/frame/message_log.h"
#include "app/frame/results_text.h"
#include "app/frame/settings_dialog.h"
#include "app/frame/template_dialog.h"
#include "app/frame/unit_system_name.h"
#include "app/language/language.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/input/events.h"
#include "gui_base/input/panel/aui_notebook.h"
#include "gui_base/input/validation/commit.h"
#include "gui_base/ionexchange/feed/feed_composition_panel_controller.h"
#include "gui_base/support/translation.h"
#include "gui_base/water/analysis/paste_column.h"
#include "gui_base/water/analysis/wateranalysis_panel.h"
#include "projectbase/settings/settings.h"
#include "projectbase/units/unit_system_manager.h"

#include <wx/aboutdlg.h>
#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/filedlg.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>

namespace app {
namespace {

wxString Tr(const char* source)
{
    return i18n::Translated(source);
}

wxString Wildcard()
{
    return Tr("Tarnvik projects") + " (*.tarnvik)|*.tarnvik|" + Tr("All files") + "|*";
}

template <typename Handler>
void Append(wxMenu& menu, const wxString& text, Handler handler, int id = wxID_ANY)
{
    wxMenuItem* item = menu.Append(id, text);
    menu.Bind(
        wxEVT_MENU, [handler](wxCommandEvent&) { handler(); }, item->GetId());
}

/// A radio item of a choice, checked when it is the one in effect.
template <typename Handler>
void AppendRadio(wxMenu& menu, const wxString& text, bool checked, Handler handler)
{
    wxMenuItem* item = menu.AppendRadioItem(wxID_ANY, text);
    item->Check(checked);
    menu.Bind(
        wxEVT_MENU, [handler](wxCommandEvent&) { handler(); }, item->GetId());
}

}  // namespace

void MainFrame::BuildMenus()
{
    auto* bar = new wxMenuBar;
    bar->Append(BuildFileMenu(), Tr("&File"));
    bar->Append(BuildEditMenu(), Tr("&Edit"));
    bar->Append(BuildViewMenu(), Tr("&View"));
    bar->Append(BuildToolsMenu(), Tr("&Tools"));
    bar->Append(BuildHelpMenu(), Tr("&Help"));
    wxMenuBar* old = GetMenuBar();
    SetMenuBar(bar);
    delete old;
}

wxMenu* MainFrame::BuildFileMenu()
{
    auto* menu = new wxMenu;
    Append(
        *menu, Tr("&New project") + "\tCtrl+N", [this] { NewProject(); }, wxID_NEW);
    Append(*menu, Tr("New from &example...") + "\tCtrl+Shift+N", [this] { ShowTemplateDialog(); });
    Append(
        *menu, Tr("&Open...") + "\tCtrl+O", [this] { AskAndOpen(); }, wxID_OPEN);
    m_recentMenu = new wxMenu;
    menu->AppendSubMenu(m_recentMenu, Tr("Open &recent"));
    FillRecentMenu();
    menu->AppendSeparator();
    Append(
        *menu, Tr("&Save") + "\tCtrl+S", [this] { SaveCurrent(); }, wxID_SAVE);
    Append(
        *menu, Tr("Save &as...") + "\tCtrl+Shift+S", [this] { AskAndSaveAs(); }, wxID_SAVEAS);
    menu->AppendSeparator();
    AppendAnalysisItems(*menu);
    Append(
        *menu, Tr("&Print to PDF...") + "\tCtrl+P", [this] { PrintReport(); }, wxID_PRINT);
    menu->AppendSeparator();
    Append(
        *menu, Tr("&Close project") + "\tCtrl+W",
        [this] { events::SendEvent(this, tvCLOSEPROJECT_EVENT, GetId(), 0, wxString()); }, wxID_CLOSE);
    Append(
        *menu, Tr("E&xit") + "\tCtrl+Q", [this] { Close(); }, wxID_EXIT);
    return menu;
}

wxMenu* MainFrame::BuildEditMenu()
{
    auto* menu = new wxMenu;
    Append(
        *menu, Tr("&Undo") + "\tCtrl+Z", [this] { Undo(); }, wxID_UNDO);
    Append(
        *menu, Tr("&Redo") + "\tCtrl+Shift+Z", [this] { Redo(); }, wxID_REDO);
    menu->AppendSeparator();
    Append(*menu, Tr("&Paste column...") + "\tCtrl+Shift+V", [this] { PasteColumn(); });
    Append(*menu, Tr("&Copy results") + "\tCtrl+Shift+C", [this] { CopyResults(); });
    AppendWaterItems(*menu);
    return menu;
}

wxMenu* MainFrame::BuildViewMenu()
{
    auto* menu = new wxMenu;
    auto* units = new wxMenu;
    for (const std::string& unitSystem : UnitSystemManager::GetUnitSystems())
        AppendRadio(*units, UnitSystemName(unitSystem),
                    unitSystem == m_document->GetProject().GetUnitSystemDisplay(),
                    [this, unitSystem] { SetUnitSystem(unitSystem); });
    menu->AppendSubMenu(units, Tr("&Unit system"));
    auto* printoutUnits = new wxMenu;
    for (const std::string& unitSystem : UnitSystemManager::GetUnitSystems())
        AppendRadio(*printoutUnits, UnitSystemName(unitSystem),
                    unitSystem == Settings::GetSetting("unit.system.printout").GetStdStringValue(),
                    [this, unitSystem] {
                        events::SendEvent(this, tvCHANGEUNITSYSTEMPRINTOUT_EVENT, GetId(), 0,
                                          wxString::FromUTF8(unitSystem));
                    });
    menu->AppendSubMenu(printoutUnits, Tr("Units of &reports and copied results"));
    auto* languages = new wxMenu;
    for (const Language& language : AvailableLanguages())
        AppendRadio(*languages, language.name, language.code == CurrentLanguage(),
                    [this, code = language.code] {
                        // The menu that is being used is replaced by the switch.
                        CallAfter([this, code] { SetLanguage(code); });
                    });
    menu->AppendSubMenu(languages, Tr("&Language"));
    menu->AppendSeparator();
    Append(
        *menu, Tr("&Settings...") + "\tCtrl+,",
        [this] {
            // A switch of the language replaces the menu that is being used.
            CallAfter([this] { ShowSettings(); });
        },
        wxID_PREFERENCES);
    Append(*menu, Tr("Clear &messages"), [this] {
        m_messages->ClearMessages();
        UpdateRangeMessages();
    });
    return menu;
}

wxMenu* MainFrame::BuildHelpMenu()
{
    auto* menu = new wxMenu;
    Append(
        *menu, Tr("Help on this &page") + "\tF1", [this] { ShowHelp(); }, wxID_HELP);
    Append(*menu, Tr("&Contents"), [this] {
        if (m_help)
            m_help->DisplayHelpContent();
    });
    menu->AppendSeparator();
    Append(
        *menu, Tr("&About Tarnvik"), [this] { ShowAbout(); }, wxID_ABOUT);
    return menu;
}

void MainFrame::FillRecentMenu()
{
    while (m_recentMenu->GetMenuItemCount() > 0)
        m_recentMenu->Destroy(m_recentMenu->FindItemByPosition(0));
    std::vector<std::filesystem::path> files;
    try {
        files = RecentFiles();
    } catch (const std::exception& error) {
        ReportError(wxString::FromUTF8(error.what()));
    }
    int number = 0;
    for (const auto& file : files) {
        wxString name = wxString::FromUTF8(file.string());
        name.Replace("&", "&&");
        Append(*m_recentMenu, wxString::Format("&%d  %s", ++number, name), [this, file] {
            CommitFocusedField();
            if (ConfirmDiscard())
                OpenFile(file);
        });
    }
    if (files.empty())
        m_recentMenu->Append(wxID_ANY, Tr("No files yet"))->Enable(false);
}

void MainFrame::NewProject()
{
    CommitFocusedField();
    if (!ConfirmDiscard())
        return;
    ShowNew(NewEmptyProject());
}

void MainFrame::ShowNew(std::unique_ptr<Project> project)
{
    project->SetUnitSystemDisplay(m_document->GetProject().GetUnitSystemDisplay());
    SetDocument(std::make_unique<Document>(std::move(project)));
}

void MainFrame::ShowTemplateDialog()
{
    CommitFocusedField();
    if (!ConfirmDiscard())
        return;
    TemplateDialog dialog(this, WaterTemplates());
    if (dialog.ShowModal() != wxID_OK)
        return;
    if (const WaterTemplate* chosen = dialog.GetChosen())
        ShowNew(NewProjectFrom(*chosen));
}

void MainFrame::AskAndOpen()
{
    CommitFocusedField();
    if (!ConfirmDiscard())
        return;
    wxFileDialog dialog(this, Tr("Open project"), wxString(), wxString(), Wildcard(),
                        wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    if (dialog.ShowModal() == wxID_OK)
        OpenFile(dialog.GetPath().utf8_string());
}

bool MainFrame::SaveCurrent()
{
    CommitFocusedField();
    return m_document->GetPath().empty() ? AskAndSaveAs() : SaveFile(m_document->GetPath());
}

bool MainFrame::AskAndSaveAs()
{
    CommitFocusedField();
    wxFileDialog dialog(this, Tr("Save project"), wxString(), Tr("Water") + ".tarnvik", Wildcard(),
                        wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    if (dialog.ShowModal() != wxID_OK)
        return false;
    std::filesystem::path path = dialog.GetPath().utf8_string();
    if (path.extension().empty())
        path += ".tarnvik";
    return SaveFile(path);
}

bool MainFrame::ConfirmDiscard()
{
    if (!m_document->GetProject().IsChanged())
        return true;
    wxMessageDialog dialog(this, Tr("The project has unsaved changes. Save them?"), Tr("Confirm"),
                           wxYES_NO | wxCANCEL | wxCENTRE | wxICON_QUESTION);
    dialog.SetYesNoCancelLabels(Tr("&Save"), Tr("&Discard"), Tr("&Cancel"));
    switch (dialog.ShowModal()) {
        case wxID_YES:
            return SaveCurrent();
        case wxID_NO:
            return true;
        default:
            return false;
    }
}

void MainFrame::OnCloseProject(wxCommandEvent&)
{
    NewProject();
}

void MainFrame::PasteColumn()
{
    CommitFocusedField();
    auto* panel = dynamic_cast<WaterAnalysisPanel*>(CurrentPanel());
    if (panel != nullptr)
        wateranalysis::PasteColumn(*panel);
}

void MainFrame::ShowSettings()
{
    CommitFocusedField();
    const ProgramSettings before{CurrentLanguage(), m_document->GetProject().GetUnitSystemDisplay(),
                                 Settings::GetSetting("autosave.minutes").GetLongValue(),
                                 Settings::GetSetting("database.connection").GetStdStringValue()};
    SettingsDialog dialog(this, before);
    if (dialog.ShowModal() == wxID_OK)
        ApplySettings(before, dialog.GetSettings());
}

void MainFrame::ApplySettings(const ProgramSettings& before, const ProgramSettings& wanted)
{
    if (wanted.database != before.database && !OpenDatabase(wanted.database))
        return;
    Settings::GetSetting("autosave.minutes").SetValue(wanted.autosaveMinutes);
    RestartAutosave();
    if (wanted.unitSystem != before.unitSystem) {
        SetUnitSystem(wanted.unitSystem);
        BuildMenus();
    }
    if (wanted.language != before.language)
        SetLanguage(wanted.language);
}

bool MainFrame::OpenDatabase(const std::string& connection)
{
    try {
        ProjectDatabase::Open(connection);
        if (m_feed)
            m_feed->RefreshCompounds();
        Settings::GetSetting("database.connection").SetValue(connection);
        Settings::Save();
        return true;
    } catch (const std::exception& error) {
        ReportError(wxString::FromUTF8(error.what()));
        return false;
    }
}

void MainFrame::CopyResults()
{
    CommitFocusedField();
    const auto* panel = dynamic_cast<WaterAnalysisPanel*>(CurrentPanel());
    if (panel == nullptr || !wxTheClipboard->Open())
        return;
    wxTheClipboard->SetData(new wxTextDataObject(
        ResultsText(panel->GetLiquid(), Settings::GetSetting("unit.system.printout").GetStdStringValue())));
    wxTheClipboard->Close();
}

void MainFrame::ShowHelp()
{
    if (const auto* panel = dynamic_cast<WaterAnalysisPanel*>(CurrentPanel()))
        panel->ShowHelp();
    else if (m_help && m_feedPanel != nullptr && CurrentPanel() == m_feedPanel)
        m_help->DisplayHelpSection("feedcomposition.html");
    else if (m_help)
        m_help->DisplayHelpContent();
}

void MainFrame::ShowAbout()
{
    wxAboutDialogInfo info;
    info.SetName("Tarnvik");
    info.SetVersion(TARNVIK_VERSION);
    info.SetDescription(Tr("Design of ion-exchange water-treatment plants"));
    info.SetLicence("MIT");
    wxAboutBox(info, this);
}

}  // namespace app
