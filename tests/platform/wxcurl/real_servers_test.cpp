// SPDX-License-Identifier: MIT
// Transfers through servers and proxies as companies have them: certificates, tunnels, credentials,
// redirects.
#include "tests/platform/wxcurl/transfer.h"
#include "tests/support/web_servers.h"

namespace {

using support::WebServers;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class RealServers : public testing::Test
{
protected:
    std::unique_ptr<wxCurlHTTP> Session(const std::string& url) const
    {
        auto session = std::make_unique<wxCurlHTTP>(wxString::FromUTF8(url));
        session->SetCaBundle(wxString::FromUTF8(m_servers.CaBundle()));
        return session;
    }
    std::unique_ptr<wxCurlHTTP> SessionByProxy(const std::string& url, int port, const char* user = nullptr,
                                               const char* password = nullptr) const
    {
        auto session = Session(url);
        session->UseProxy(true);
        session->SetProxyHost("127.0.0.1");
        session->SetProxyPort(port);
        if (user != nullptr) {
            session->SetProxyUsername(user);
            session->SetProxyPassword(password);
        }
        return session;
    }

    const WebServers& m_servers = WebServers::Get();
    const support::RequestLog m_web = m_servers.WebLog();
};

TEST_F(RealServers, ACertificateMustBeGoodForTheHostNowAndFromAKnownRoot)
{
    const std::string byName = [this] {
        std::string url = m_servers.Https();
        return url.replace(url.find("127.0.0.1"), 9, "localhost");
    }();
    for (const std::string& url : {m_servers.Https(), byName}) {
        const Transfer result = Get(*Session(url));
        EXPECT_TRUE(result.ok) << result.error;
        EXPECT_EQ(result.code, 200) << url;
        EXPECT_THAT(result.text, HasSubstr("The connection works."));
    }
    const std::pair<std::string, const char*> bad[] = {
        {m_servers.Expired(), "certificate has expired"},
        {m_servers.WrongHost(), "does not match target host name|no alternative certificate subject name"},
        {m_servers.UnknownRoot(), "unable to get local issuer certificate"},
    };
    for (const auto& [url, error] : bad) {
        for (const auto& session : {Session(url), SessionByProxy(url, m_servers.ProxyPort())}) {
            const Transfer result = Get(*session);
            EXPECT_FALSE(result.ok) << url;
            EXPECT_EQ(result.code, 0) << url;
            EXPECT_THAT(result.error, testing::ContainsRegex(error)) << url;
            EXPECT_EQ(result.text, "") << url;
        }
    }
    wxCurlHTTP withoutBundle(wxString::FromUTF8(m_servers.Https()));
    EXPECT_EQ(Get(withoutBundle).code, 0) << "the system does not know the root";
    wxCurlHTTP withoutFile(wxString::FromUTF8(m_servers.Https()));
    withoutFile.SetCaBundle("/nowhere/ca.pem");
    EXPECT_EQ(Get(withoutFile).code, 0);
    EXPECT_THAT(withoutFile.GetDetailedErrorString().utf8_string(), HasSubstr("/nowhere/ca.pem"));
    EXPECT_EQ(m_web.Requests(2).size(), 2U) << "nothing was asked of those that cannot be trusted";
}

TEST_F(RealServers, AProxyTunnelsHttpsAndPassesHttpOn)
{
    const auto proxy = m_servers.ProxyLog();
    EXPECT_EQ(Get(*SessionByProxy(m_servers.Https(), m_servers.ProxyPort())).code, 200);
    EXPECT_EQ(Get(*SessionByProxy(m_servers.Http(), m_servers.ProxyPort())).code, 200);
    const std::string host = m_servers.Https("").substr(8);
    EXPECT_THAT(proxy.Requests(2), ElementsAre("CONNECT " + host, "GET " + m_servers.Http()));
    EXPECT_THAT(m_web.Requests(2),
                ElementsAre("GET " + m_servers.Https() + " 200", "GET " + m_servers.Http() + " 200"));
}

TEST_F(RealServers, AProxyThatWantsCredentialsSaysSoForHttpAndHttps)
{
    struct Case
    {
        const char* user;
        const char* password;
        long code;
        std::size_t asked;  ///< once as it is, and once more for those that offer something
    };
    // To credentials that it does not take this proxy answers 401.
    const Case cases[] = {
        {nullptr, nullptr, 407, 1},    {"", "", 407, 1},           {"user", "wrong", 401, 2},
        {"someone", "sesame", 401, 2}, {"user", "sesame", 200, 2},
    };
    for (const auto& [user, password, code, asked] : cases) {
        for (const std::string& url : {m_servers.Http(), m_servers.Https()}) {
            const auto log = m_servers.AuthProxyLog();
            const auto web = m_servers.WebLog();
            const auto session = SessionByProxy(url, m_servers.AuthProxyPort(), user, password);
            session->SetVerbose(true);
            const Transfer result = Get(*session);
            const std::string what = url + " " + (user == nullptr ? "(none)" : user);
            EXPECT_EQ(result.code, code) << what;
            EXPECT_EQ(result.text.find("The connection works.") != std::string::npos, code == 200) << what;
            EXPECT_EQ(log.Requests(asked).size(), asked) << what;
            EXPECT_EQ(web.Requests(code == 200 ? 1 : 0).size(), code == 200 ? 1U : 0U) << what;
            EXPECT_THAT(session->GetVerboseString().utf8_string(), Not(HasSubstr("dXNlcjpzZXNhbWU=")))
                << what;
        }
    }
}

TEST_F(RealServers, RedirectsAreFollowedWithinBoundsAndOnTheWebOnly)
{
    const Transfer followed = Get(*Session(m_servers.Http("/redirect")));
    EXPECT_EQ(followed.code, 200);
    EXPECT_THAT(followed.text, HasSubstr("The connection works."));
    EXPECT_EQ(Get(*Session(m_servers.Http("/to-https"))).code, 200);
    EXPECT_THAT(
        m_web.Requests(4),
        ElementsAre("GET " + m_servers.Http("/redirect") + " 302", "GET " + m_servers.Http() + " 200",
                    "GET " + m_servers.Http("/to-https") + " 302", "GET " + m_servers.Https() + " 200"));

    const auto log = m_servers.WebLog();
    const Transfer loop = Get(*Session(m_servers.Https("/loop")));
    EXPECT_FALSE(loop.ok);
    EXPECT_THAT(loop.error, HasSubstr("Maximum (5) redirects followed"));
    EXPECT_EQ(log.Requests(6).size(), 6U);

    for (const std::string& url : {m_servers.Http("/to-file"), m_servers.Https("/to-file")}) {
        const Transfer file = Get(*Session(url));
        EXPECT_FALSE(file.ok) << url;
        EXPECT_THAT(file.error, HasSubstr("rotocol \"file\"")) << url;
        EXPECT_THAT(file.text, Not(HasSubstr("root:"))) << url;
    }
}

TEST_F(RealServers, CodesAndLongAnswersComeAsTheyAre)
{
    const std::pair<const char*, long> codes[] = {{"/forbidden", 403}, {"/nowhere", 404}, {"/broken", 500}};
    for (const auto& [path, code] : codes) {
        const Transfer result = Get(*Session(m_servers.Https(path)));
        EXPECT_TRUE(result.ok) << result.error;
        EXPECT_EQ(result.code, code);
    }
    const Transfer whole = Get(*Session(m_servers.Https("/small.bin")));
    EXPECT_EQ(whole.text, std::string(300'000, 'x'));
    // 1 GiB would not fit into memory: it ends at the bound, long before.
    const Transfer big = Get(*Session(m_servers.Https("/big.bin")));
    EXPECT_FALSE(big.ok);
    EXPECT_LE(big.text.size(), std::size_t{16} << 20);
    EXPECT_THAT(big.error, HasSubstr("the answer has more than 16777216 bytes"));
}

}  // namespace
