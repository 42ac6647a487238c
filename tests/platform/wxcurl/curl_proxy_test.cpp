// SPDX-License-Identifier: MIT
// Transfers by proxies: which one is used, what it is told, and what it may answer.
#include "tests/platform/wxcurl/transfer.h"
#include "tests/support/loopback_server.h"

#include <cstdlib>

namespace {

using support::HttpRequest;
using support::LoopbackServer;
using support::ServerConnection;
using testing::HasSubstr;
using testing::Not;

/// Sets a variable of the environment for the life of the object.
class EnvironmentScope
{
public:
    EnvironmentScope(const char* name, const std::string& value) : m_name(name)
    {
        setenv(name, value.c_str(), 1);
    }
    ~EnvironmentScope() { unsetenv(m_name); }
    EnvironmentScope(const EnvironmentScope&) = delete;
    EnvironmentScope& operator=(const EnvironmentScope&) = delete;

private:
    const char* m_name;
};

/// A session for an address by a proxy on loopback.
std::unique_ptr<wxCurlHTTP> SessionByProxy(const LoopbackServer& proxy, const std::string& url)
{
    auto session = std::make_unique<wxCurlHTTP>(wxString::FromUTF8(url));
    session->UseProxy(true);
    session->SetProxyHost("127.0.0.1");
    session->SetProxyPort(proxy.Port());
    session->SetBounds({.connect = 1000, .stall = 2000, .whole = 4000});
    return session;
}

TEST(CurlProxy, AProxyThatCanBeNoneIsRefusedBeforeAnythingIsSent)
{
    const LoopbackServer server(
        [](ServerConnection& connection, const HttpRequest&) { connection.Answer(200, "direct"); });
    struct Case
    {
        const char* host;
        long port;
        const char* error;
    };
    const Case cases[] = {
        {"127.0.0.1", 0, "the port of the proxy is 0 and not one of 1 to 65535"},
        {"127.0.0.1", -1, "the port of the proxy is -1"},
        {"127.0.0.1", 65536, "the port of the proxy is 65536"},
        {"127.0.0.1", 65536L + 80, "the port of the proxy is 65616"},
        {"", 3128, "the proxy has no host"},
    };
    for (const auto& [host, port, error] : cases) {
        wxCurlHTTP session(wxString::FromUTF8(server.Url()));
        session.UseProxy(true);
        session.SetProxyHost(host);
        session.SetProxyPort(port);
        const Transfer result = Get(session);
        EXPECT_FALSE(result.ok) << error;
        EXPECT_EQ(result.code, 0) << error;
        EXPECT_THAT(result.error, HasSubstr(error));
        session.UseProxy(false);
        EXPECT_EQ(Get(session).text, "direct") << "what is not used does not matter";
    }
}

TEST(CurlProxy, TheSettingsAloneDecideAboutProxies)
{
    const LoopbackServer proxy([](ServerConnection& connection, const HttpRequest& request) {
        if (request.headers.count("proxy-authorization") == 0 || request.method == "CONNECT")
            connection.Answer(407, {}, "Proxy-Authenticate: Basic realm=\"proxy\"\r\n");
        else
            connection.Answer(200, "by proxy");
    });
    const LoopbackServer server(
        [](ServerConnection& connection, const HttpRequest&) { connection.Answer(200, "direct"); });
    const EnvironmentScope variable("http_proxy", proxy.Url());
    const EnvironmentScope exceptions("no_proxy", "*");
    EXPECT_EQ(Get(server.Url()).text, "direct");

    const auto byProxy = [&proxy](const std::string& url) {
        auto session = std::make_unique<wxCurlHTTP>(wxString::FromUTF8(url));
        session->UseProxy(true);
        session->SetProxyHost("127.0.0.1");
        session->SetProxyPort(proxy.Port());
        session->SetVerbose(true);
        return session;
    };
    auto session = byProxy(server.Url());
    EXPECT_EQ(Get(*session).code, 407);
    session->SetProxyUsername("user");
    session->SetProxyPassword("sesame");
    const Transfer result = Get(*session);
    EXPECT_EQ(result.text, "by proxy");
    const std::string text = session->GetVerboseString().utf8_string();
    EXPECT_THAT(text, HasSubstr("Proxy-Authorization: ***"));
    EXPECT_THAT(text, Not(HasSubstr("dXNlcjpzZXNhbWU=")));
    EXPECT_THAT(text, Not(HasSubstr("sesame")));
    // A tunnel that is refused has its code, too.
    EXPECT_EQ(Get(*byProxy("https://127.0.0.1:1/")).code, 407);
}

TEST(CurlProxy, AProxyMayAskByAnyScheme)
{
    // The one whose answer can be given without a system that knows the user says so.
    struct Case
    {
        const char* challenge;
        const char* accepted;  ///< how the authorization begins that opens it; null for none
    };
    const Case cases[] = {
        {"Basic realm=\"p\"", "Basic dXNlcjpzZXNhbWU="},
        {"Digest realm=\"p\", nonce=\"abc\", qop=\"auth\"", "Digest username=\"user\""},
        {"Digest realm=\"p\", nonce=\"abc\", algorithm=SHA-256", "Digest username=\"user\""},
        {"Negotiate", nullptr},
        {"NTLM", nullptr},
        {"Bearer realm=\"p\"", nullptr},
        {"", nullptr},
    };
    for (const auto& [challenge, accepted] : cases) {
        const LoopbackServer proxy([challenge = std::string(challenge), accepted](
                                       ServerConnection& connection, const HttpRequest& request) {
            const auto found = request.headers.find("proxy-authorization");
            if (accepted != nullptr && found != request.headers.end() && found->second.starts_with(accepted))
                connection.Answer(200, "by proxy");
            else
                connection.Answer(407, "who?", "Proxy-Authenticate: " + challenge + "\r\n");
        });
        for (const char* url : {"http://host.example/", "https://host.example/"}) {
            const auto session = SessionByProxy(proxy, url);
            EXPECT_EQ(Get(*session).code, 407) << challenge;
            session->SetProxyUsername("");
            session->SetProxyPassword("");
            EXPECT_EQ(Get(*session).code, 407) << challenge << ": nobody has logged on";
            session->SetProxyUsername("user");
            session->SetProxyPassword("sesame");
            session->SetVerbose(true);
            const Transfer result = Get(*session);
            const bool isTunnel = session->GetProtocol() == wxCP_HTTPS;
            // Behind the tunnel nobody speaks TLS.
            EXPECT_EQ(result.code, accepted == nullptr ? 407 : isTunnel ? 0 : 200) << challenge << url;
            EXPECT_THAT(session->GetVerboseString().utf8_string(), Not(HasSubstr("dXNlcjpzZXNhbWU=")));
        }
        for (const HttpRequest& request : proxy.Requests()) {
            for (const auto& [name, value] : request.headers)
                EXPECT_THAT(value, Not(HasSubstr("sesame"))) << name;
        }
    }
}

TEST(CurlProxy, ProxiesThatLieAreNoSuccess)
{
    const std::pair<const char*, long> cases[] = {
        {"no TLS behind it", 0}, {"closes behind it", 0}, {"closes at once", 0},    {"nonsense", 0},
        {"says nothing", 0},     {"never ends", 0},       {"sends elsewhere", 302}, {"wrong length", 0},
    };
    for (const auto& [what, code] : cases) {
        const LoopbackServer proxy(
            [what = std::string(what)](ServerConnection& connection, const HttpRequest&) {
                if (what == "no TLS behind it") {
                    connection.Send("HTTP/1.1 200 OK\r\n\r\n<html>Please log on</html>");
                    connection.Wait(50);
                } else if (what == "closes behind it") {
                    connection.Send("HTTP/1.1 200 OK\r\n\r\n");
                } else if (what == "nonsense") {
                    connection.Send("what is this?\r\n\r\n");
                } else if (what == "says nothing") {
                    connection.Wait(20'000);
                } else if (what == "never ends") {
                    connection.Send("HTTP/1.1 200 OK\r\n");
                    while (connection.Send("X-Header: " + std::string(1000, 'x') + "\r\n")) {
                    }
                } else if (what == "sends elsewhere") {
                    connection.Answer(302, {}, "Location: file:///etc/passwd\r\n");
                } else if (what == "wrong length") {
                    connection.Send("HTTP/1.1 200 OK\r\nContent-Length: -1\r\n\r\n");
                }
                connection.Close();
            });
        const auto session = SessionByProxy(proxy, "https://host.example/");
        const Transfer result = Get(*session);
        EXPECT_FALSE(result.ok) << what;
        EXPECT_EQ(result.code, code) << what << result.error;
        EXPECT_FALSE(result.error == " ") << what;
        EXPECT_EQ(result.text, "") << what;
        EXPECT_LT(result.seconds, 5.0) << what;
    }
}

}  // namespace
