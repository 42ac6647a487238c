// SPDX-License-Identifier: MIT
#pragma once

/// The way from the settings as they are to a connection that works, step by step. Internal to the network
/// services; main thread.

#include "gui_base/network/proxy_parameters.h"

#include <wx/string.h>

class ConnectionTest
{
public:
    /// Begins with `settings`. `protocol` collects what happens; null for none.
    ConnectionTest(const wxString& url, const ProxyParameters& settings, wxString* protocol);

    /// Whether the page was reached; if not, GetError says why. Asks for credentials unless `silent`.
    bool Run(bool silent);

    const wxString& GetError() const { return m_error; }
    /// The settings that worked in the end.
    const ProxyParameters& GetSettings() const { return m_settings; }
    bool HasChanged() const { return m_hasChanged; }

private:
    void WriteHeader() const;
    void Write(const wxString& text) const;
    int Request(const ProxySettingEntry& proxy, bool useAuth, const wxString& user, const wxString& password);
    int RequestWithSettings();
    /// After no answer at all: with what the system says of proxies.
    int RequestBySystem();
    /// After 407: with credentials of the user. Sets the error where there is no use in going on.
    int RequestWithCredentials(bool silent);
    wxString ErrorOf(int code) const;

    wxString m_url;
    wxString m_knownUser;  ///< proposed where the user is asked
    ProxyParameters m_settings;
    wxString* m_protocol;
    bool m_hasChanged = false;
    wxString m_error;
};
