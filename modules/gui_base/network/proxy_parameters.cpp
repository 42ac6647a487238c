// SPDX-License-Identifier: MIT
#include "gui_base/network/proxy_parameters.h"

#include "dbinterfaces/project_database.h"
#include "projectbase/security/cryptor.h"

#include <array>

namespace {

struct Flag
{
    const char* key;
    bool ProxyParameters::*value;
};

struct Text
{
    const char* key;
    wxString ProxyParameters::*value;
};

constexpr std::array kFlags{
    Flag{"proxy.use", &ProxyParameters::useProxy},
    Flag{"proxy.protocol.all", &ProxyParameters::sameProxyForAll},
    Flag{"proxy.auth", &ProxyParameters::useAuthentication},
};

constexpr std::array kTexts{
    Text{"proxy.server.http", &ProxyParameters::httpHost},
    Text{"proxy.port.http", &ProxyParameters::httpPort},
    Text{"proxy.server.https", &ProxyParameters::httpsHost},
    Text{"proxy.port.https", &ProxyParameters::httpsPort},
    Text{"proxy.user", &ProxyParameters::user},
};

constexpr const char* kPassword = "proxy.pswd";

}  // namespace

ProxyParameters ProxyParameters::Load()
{
    ProxyParameters parameters;
    for (const auto& [key, value] : kFlags)
        parameters.*value = ProjectDatabase::GetUserParameter(key, false);
    for (const auto& [key, value] : kTexts)
        parameters.*value = wxString::FromUTF8(ProjectDatabase::GetUserParameter(key));
    parameters.password =
        Cryptor::DecryptString(wxString::FromUTF8(ProjectDatabase::GetUserParameter(kPassword)));
    return parameters;
}

void ProxyParameters::Save() const
{
    const std::string encrypted = Cryptor::EncryptString(password).utf8_string();
    ProjectDatabase::Transaction transaction;
    for (const auto& [key, value] : kFlags)
        ProjectDatabase::SetUserParameter(key, this->*value);
    for (const auto& [key, value] : kTexts)
        ProjectDatabase::SetUserParameter(key, (this->*value).utf8_string());
    ProjectDatabase::SetUserParameter(kPassword, encrypted);
    transaction.Commit();
}

void ProxyParameters::Adopt(const ProxySettingEntries& system)
{
    const auto& [http, https] = system;
    useProxy = http.IsFound() || https.IsFound();
    if (!useProxy)
        return;
    sameProxyForAll = http.IsFound() && https.IsFound() && http == https;
    httpHost = http.GetHost();
    httpPort = http.GetPort();
    httpsHost = sameProxyForAll ? wxString() : https.GetHost();
    httpsPort = sameProxyForAll ? wxString() : https.GetPort();
}

ProxySettingEntry ProxyParameters::For(bool isSecure) const
{
    if (!useProxy)
        return {};
    if (!isSecure || sameProxyForAll)
        return httpHost.empty() ? ProxySettingEntry() : ProxySettingEntry(httpHost, httpPort);
    return httpsHost.empty() && httpsPort.empty() ? ProxySettingEntry()
                                                  : ProxySettingEntry(httpsHost, httpsPort);
}

long ToPort(const wxString& text)
{
    long port = 0;
    return text.ToLong(&port) ? port : 0;
}
