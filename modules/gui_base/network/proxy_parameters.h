// SPDX-License-Identifier: MIT
#pragma once

/// The user's proxy settings, as they stand in the user database.

#include "gui_base/gui_base_export.h"
#include "gui_base/network/proxy_info.h"

#include <wx/string.h>

struct GUI_BASE_EXPORT ProxyParameters
{
    bool useProxy = false;
    bool sameProxyForAll = false;  ///< the proxy of HTTP serves HTTPS as well
    bool useAuthentication = false;
    wxString httpHost;
    wxString httpPort;
    wxString httpsHost;
    wxString httpsPort;
    wxString user;
    wxString password;  ///< in the clear; stored through Cryptor alone

    /// Throws DatabaseError. A password that was encrypted elsewhere is empty.
    static ProxyParameters Load();
    /// All of them or none. Throws DatabaseError, and std::runtime_error where nothing can be encrypted.
    void Save() const;

    /// Takes what the system says; one entry for both protocols when both are equal. Without any the
    /// connection is direct.
    void Adopt(const ProxySettingEntries& system);

    /// What a transfer goes by: nothing found for a direct connection. HTTPS without a proxy of its own is
    /// reached directly.
    ProxySettingEntry For(bool isSecure) const;

    bool operator==(const ProxyParameters&) const = default;
};

/// The number of a port as it was typed, in range or not; 0 for what is no number.
GUI_BASE_EXPORT long ToPort(const wxString& text);
