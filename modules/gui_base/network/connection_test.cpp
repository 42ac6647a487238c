// SPDX-License-Identifier: MIT
#include "gui_base/network/connection_test.h"

#include "gui_base/dialogs/questions.h"
#include "gui_base/network/authentication_entry_dialog.h"
#include "gui_base/network/network.h"
#include "gui_base/support/translation.h"

#include <wx/utils.h>

namespace {

constexpr int kOk = 200;
constexpr int kProxyWantsUser = 407;
constexpr int kRefusesUser = 401;

wxString Text(const ProxySettingEntry& proxy)
{
    return proxy.GetPort().empty() ? proxy.GetHost() : proxy.GetHost() + ":" + proxy.GetPort();
}

}  // namespace

ConnectionTest::ConnectionTest(const wxString& url, const ProxyParameters& settings, wxString* protocol)
    : m_url(url), m_knownUser(settings.user), m_settings(settings), m_protocol(protocol)
{}

void ConnectionTest::Write(const wxString& text) const
{
    if (m_protocol != nullptr)
        *m_protocol += text;
}

void ConnectionTest::WriteHeader() const
{
    Write("* Tarnvik TestConnection (SSPI): Current settings\n");
    if (m_settings.useProxy) {
        Write(" - Proxy for HTTP: " + Text(m_settings.For(false)) + "\n");
        if (m_settings.sameProxyForAll)
            Write(" - Proxy for HTTPS: Same proxy as for HTTP\n");
        else
            Write(" - Proxy for HTTPS: " + Text(m_settings.For(true)) + "\n");
        if (m_settings.useAuthentication)
            Write(" - Proxy authentication for user: " + m_settings.user + "\n");
        else
            Write(" - No proxy authentication\n");
    } else {
        Write(" - Direct connection without proxy\n");
    }
    Write("*** Tarnvik TestConnection: Network activity protocol\n");
    Write("*** Tarnvik TestConnection: Check with current settings\n");
}

int ConnectionTest::Request(const ProxySettingEntry& proxy, bool useAuth, const wxString& user,
                            const wxString& password)
{
    return Network::TestURL(m_url, proxy.IsFound(), proxy.GetHost(), proxy.GetPort(), useAuth, user, password,
                            m_protocol != nullptr, m_protocol);
}

int ConnectionTest::RequestWithSettings()
{
    return Request(m_settings.For(m_url.Lower().StartsWith("https")), m_settings.useAuthentication,
                   m_settings.user, m_settings.password);
}

int ConnectionTest::RequestBySystem()
{
    const ProxyParameters before = m_settings;
    m_settings.Adopt(ProxyInfo(SystemProxySettings()).GetProxySettings());
    if (m_settings.useProxy) {
        // The system's own log-on, if the proxy wants one at all.
        m_settings.useAuthentication = true;
        m_settings.user.clear();
        m_settings.password.clear();
    }
    m_hasChanged = m_settings != before;
    Write(m_settings.useProxy
              ? "*** Tarnvik TestConnection: Recheck with proxy (SSO or no authentication required)\n"
              : "*** Tarnvik TestConnection: Recheck without proxy\n");
    return RequestWithSettings();
}

int ConnectionTest::RequestWithCredentials(bool silent)
{
    if (silent) {
        const bool hasUser = m_settings.useAuthentication && !m_settings.user.empty();
        m_error = hasUser ? i18n::Translated("User ID or password invalid.")
                          : i18n::Translated(
                                "The proxy server asks for a user ID and a password. Enter them "
                                "under Tools, Connection.");
        return kProxyWantsUser;
    }
    const wxBusyCursorSuspender waiting;
    AuthenticationEntryDialog dialog(dialogs::DefaultParent(), m_knownUser);
    if (dialog.ShowModal() != wxID_OK) {
        m_error = i18n::Translated("The connection test was cancelled.");
        return kProxyWantsUser;
    }
    if (dialog.GetUser().empty() || dialog.GetPassword().empty()) {
        m_error = i18n::Translated("User ID or password empty.");
        return kProxyWantsUser;
    }
    m_settings.useAuthentication = true;
    m_settings.user = dialog.GetUser();
    m_settings.password = dialog.GetPassword();
    m_hasChanged = true;
    Write("*** Tarnvik TestConnection: Check with proxy and authentication\n");
    const int code = RequestWithSettings();
    // Some proxies refuse a user as a web server would.
    if (code == kProxyWantsUser || code == kRefusesUser)
        m_error = i18n::Translated("User ID or password invalid.");
    else if (code != kOk && code != 0)
        m_error = wxString::Format(i18n::Translated("Proxy authentication failed. HTTP error: %d"), code);
    return code;
}

wxString ConnectionTest::ErrorOf(int code) const
{
    if (!m_error.empty())
        return m_error;
    return code == 0 ? i18n::Translated("No network detected.")
                     : wxString::Format(i18n::Translated("Unexpected HTTP error code: %d."), code);
}

bool ConnectionTest::Run(bool silent)
{
    m_error.clear();
    if (m_protocol != nullptr)
        WriteHeader();
    int code = RequestWithSettings();
    if (code == 0)
        code = RequestBySystem();
    if (code == kProxyWantsUser)
        code = RequestWithCredentials(silent);
    if (code != kOk)
        m_error = ErrorOf(code);
    return code == kOk;
}
