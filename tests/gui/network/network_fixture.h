// SPDX-License-Identifier: MIT
#pragma once

/// What tests of the network services share: settings and a user database of their own, no proxies of the
/// environment, and servers and proxies that answer as a test says.

#include "dbinterfaces/project_database.h"
#include "gui_base/network/endpoints.h"
#include "gui_base/network/network.h"
#include "gui_base/network/proxy_parameters.h"
#include "projectbase/settings/settings.h"
#include "tests/support/gui_test.h"
#include "tests/support/loopback_server.h"
#include "tests/support/temp_folder.h"

#include <wx/base64.h>
#include <wx/utils.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace network_test {

using support::HttpRequest;
using support::LoopbackServer;
using support::ServerConnection;

class NetworkTest : public gui_test::GuiTest
{
protected:
    NetworkTest()
    {
        for (const char* name : {"http_proxy", "https_proxy", "HTTPS_PROXY", "no_proxy", "NO_PROXY"})
            wxUnsetEnv(name);
        ProjectDatabase::Open("sqlite3://" + (m_folder / "user.db").string());
        Settings::Reset();
        Network::Initialize();
    }
    ~NetworkTest() override
    {
        for (const char* name : {"http_proxy", "https_proxy"})
            wxUnsetEnv(name);
        Network::Terminate();
        Settings::Reset();
        ProjectDatabase::Close();
    }

    static void SetEndpoint(const char* setting, const wxString& url)
    {
        Settings::GetSetting(setting).SetValue(url);
    }
    /// The connection test page: "host:port/connectiontest.html".
    static void SetTestPage(const LoopbackServer& server)
    {
        SetEndpoint(endpoints::kConnectionTest, PageOf(server));
    }
    static wxString PageOf(const LoopbackServer& server)
    {
        return wxString::FromUTF8(server.Url("/connectiontest.html")).AfterFirst('/').Mid(1);
    }
    static wxString PortOf(const LoopbackServer& server) { return wxString::Format("%d", server.Port()); }
    static void Use(const LoopbackServer& proxy, const wxString& user = {}, const wxString& password = {})
    {
        ProxyParameters settings{.useProxy = true,
                                 .sameProxyForAll = true,
                                 .useAuthentication = !user.empty(),
                                 .httpHost = "127.0.0.1",
                                 .httpPort = PortOf(proxy),
                                 .httpsHost = {},
                                 .httpsPort = {},
                                 .user = user,
                                 .password = password};
        settings.Save();
    }
    /// A port on which nobody listens.
    static wxString DeadPort()
    {
        const LoopbackServer gone([](ServerConnection&, const HttpRequest&) {});
        return PortOf(gone);
    }
    /// All files of the test's folder but the database's.
    std::vector<std::string> Files() const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_folder / ""))
            if (const std::string name = entry.path().filename().string(); !name.starts_with("user.db"))
                names.push_back(name);
        std::ranges::sort(names);
        return names;
    }
    wxString Path(const std::string& name) const { return wxString::FromUTF8((m_folder / name).string()); }
    std::string Read(const std::string& name) const { return support::ReadBytes(m_folder / name); }

    support::TempFolder m_folder;
};

/// A web server for everything, with that code.
inline LoopbackServer::Handler Answers(int code, const std::string& body = "ok")
{
    return [code, body](ServerConnection& connection, const HttpRequest&) { connection.Answer(code, body); };
}

/// A proxy that lets nobody through without Basic authentication by that user; it answers by itself.
inline LoopbackServer::Handler AsksFor(const std::string& user, const std::string& password)
{
    const std::string pair = user + ":" + password;
    const std::string wanted = "Basic " + wxBase64Encode(pair.data(), pair.size()).utf8_string();
    return [wanted](ServerConnection& connection, const HttpRequest& request) {
        const auto header = request.headers.find("proxy-authorization");
        if (header != request.headers.end() && header->second == wanted)
            connection.Answer(200, "through");
        else
            connection.Answer(407, "who?", "Proxy-Authenticate: Basic realm=\"test\"\r\n");
    };
}

}  // namespace network_test
