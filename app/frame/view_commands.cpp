// SPDX-License-Identifier: MIT
#include "app/frame/view_commands.h"

#include "app/frame/main_frame.h"
#include "app/frame/menu_table.h"
#include "app/frame/settings_dialog.h"
#include "app/frame/unit_system_name.h"
#include "app/language/language.h"
#include "dbinterfaces/project_database.h"
#include "gui_base/input/events.h"
#include "gui_base/input/validation/commit.h"
#include "gui_base/support/density.h"
#include "projectbase/settings/settings.h"
#include "projectbase/units/unit_system_manager.h"

namespace app {

ViewCommands::ViewCommands(MainFrame& frame) : m_frame(frame)
{
    m_frame.Bind(tvCHANGEUNITSYSTEMPRINTOUT_EVENT, [](wxCommandEvent& event) {
        Settings::GetSetting("unit.system.printout").SetValue(event.GetString());
    });
    m_frame.Bind(tvCHANGESETTINGS_EVENT, [this](wxCommandEvent&) { m_frame.ShowDiagram(); });
}

void ViewCommands::SetUnitSystem(const std::string& unitSystem)
{
    CommitFocusedField();
    Settings::GetSetting("unit.system").SetValue(unitSystem);
    m_frame.GetProject().SetUnitSystemDisplay(unitSystem);
    m_frame.ShowUnits();
}

void ViewCommands::SetLanguage(const wxString& code)
{
    CommitFocusedField();
    Settings::GetSetting("language").SetValue(code);
    SwitchLanguage(code);
    m_frame.Localize();
}

void ViewCommands::SetDensity(const std::string& code)
{
    CommitFocusedField();
    Settings::GetSetting("density").SetValue(code);
    density::Set(density::DensityOf(code));
}

void ViewCommands::FillUnitMenu(wxMenu& menu)
{
    for (const std::string& unitSystem : UnitSystemManager::GetUnitSystems())
        AppendChoice(menu, UnitSystemName(unitSystem),
                     unitSystem == m_frame.GetProject().GetUnitSystemDisplay(),
                     [this, unitSystem] { SetUnitSystem(unitSystem); });
}

void ViewCommands::FillPrintoutUnitMenu(wxMenu& menu)
{
    for (const std::string& unitSystem : UnitSystemManager::GetUnitSystems())
        AppendChoice(menu, UnitSystemName(unitSystem),
                     unitSystem == Settings::GetSetting("unit.system.printout").GetStdStringValue(),
                     [this, unitSystem] {
                         events::SendEvent(&m_frame, tvCHANGEUNITSYSTEMPRINTOUT_EVENT, m_frame.GetId(), 0,
                                           wxString::FromUTF8(unitSystem));
                     });
}

void ViewCommands::FillLanguageMenu(wxMenu& menu)
{
    for (const Language& language : AvailableLanguages())
        AppendChoice(menu, language.name, language.code == CurrentLanguage(), [this, code = language.code] {
            // The menu that is being used is replaced by the switch.
            m_frame.CallAfter([this, code] { SetLanguage(code); });
        });
}

void ViewCommands::ShowSettings()
{
    // A switch of the language replaces the menu that is being used.
    m_frame.CallAfter([this] {
        CommitFocusedField();
        const ProgramSettings before{CurrentLanguage(),
                                     m_frame.GetProject().GetUnitSystemDisplay(),
                                     Settings::GetSetting("density").GetStdStringValue(),
                                     Settings::GetSetting("autosave.minutes").GetLongValue(),
                                     Settings::GetSetting("database.connection").GetStdStringValue(),
                                     Settings::GetSetting("balance.rule").GetStdStringValue(),
                                     {}};
        SettingsDialog dialog(&m_frame, before);
        if (dialog.ShowModal() == wxID_OK)
            ApplySettings(before, dialog.GetSettings());
    });
}

void ViewCommands::ApplySettings(const ProgramSettings& before, const ProgramSettings& wanted)
{
    if (wanted.database != before.database && !OpenDatabase(wanted.database))
        return;
    Settings::GetSetting("autosave.minutes").SetValue(wanted.autosaveMinutes);
    if (wanted.density != before.density)
        SetDensity(wanted.density);
    m_frame.Files().RestartAutosave();
    Settings::GetSetting("balance.rule").SetValue(wanted.balanceRule);
    for (const auto& [name, limit] : wanted.limits)
        Settings::GetSetting(name).SetValue(limit);
    // Verdicts and advice follow.
    m_frame.ShowUnits();
    if (wanted.unitSystem != before.unitSystem) {
        SetUnitSystem(wanted.unitSystem);
        m_frame.BuildMenus();
    }
    if (wanted.language != before.language)
        SetLanguage(wanted.language);
}

bool ViewCommands::OpenDatabase(const std::string& connection)
{
    try {
        ProjectDatabase::Open(connection);
        m_frame.GetBook().RefreshDatabase();
        Settings::GetSetting("database.connection").SetValue(connection);
        Settings::Save();
        return true;
    } catch (const std::exception& error) {
        m_frame.ReportError(error);
        return false;
    }
}

}  // namespace app
