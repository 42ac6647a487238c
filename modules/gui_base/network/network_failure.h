// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/string.h>
#include <wx/window.h>

/// What the user can do where a service cannot be used.
namespace network_failure {

/// "If the network is the cause, check the settings of the connection (proxy) or try again later."
GUI_BASE_EXPORT wxString NextStep();
/// Text of a button that leads to the settings of the connection.
GUI_BASE_EXPORT wxString SettingsLabel();
/// Lets the user change how the program reaches its services; whether new settings were stored.
GUI_BASE_EXPORT bool ChangeSettings(wxWindow* parent);

/// Says what failed, why, and what to do, with a button to the settings of the connection. Whether new
/// settings were stored, so that another try may help.
GUI_BASE_EXPORT bool Show(wxWindow* parent, const wxString& message, const wxString& title,
                          const wxString& cause, const wxString& nextStep = NextStep());

}  // namespace network_failure
