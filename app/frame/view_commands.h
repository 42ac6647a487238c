// SPDX-License-Identifier: MIT
#pragma once

/// How the main window shows things: unit system, language and settings, all switched while it is open.

#include <wx/menu.h>
#include <wx/string.h>

#include <string>

namespace app {

class MainFrame;
struct ProgramSettings;

class ViewCommands
{
public:
    /// The frame is not owned; it outlives this part of it.
    explicit ViewCommands(MainFrame& frame);

    void SetUnitSystem(const std::string& unitSystem);
    /// "compact" or "comfortable".
    void SetDensity(const std::string& code);
    void SetLanguage(const wxString& code);
    void ShowSettings();
    /// Puts what the settings dialog gave into effect; a database that cannot be opened is reported and
    /// changes nothing.
    void ApplySettings(const ProgramSettings& before, const ProgramSettings& wanted);

    void FillUnitMenu(wxMenu& menu);
    void FillPrintoutUnitMenu(wxMenu& menu);
    void FillLanguageMenu(wxMenu& menu);

private:
    bool OpenDatabase(const std::string& connection);

    MainFrame& m_frame;
};

}  // namespace app
