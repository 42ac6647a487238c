// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/network/proxy_settings.h"

/// The proxies of the current user's Internet settings: detected in the network, named by a script, or
/// written there. Windows only.
class GUI_BASE_EXPORT ProxySettingsMSW : public ProxySettings
{
public:
    wxString GetProxyList(const wxString& url) override;
};
