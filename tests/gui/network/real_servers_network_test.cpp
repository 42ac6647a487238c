// SPDX-License-Identifier: MIT
// The services behind a web server with TLS and proxies as companies have them; what these were asked is
// compared.
#include "tests/gui/network/network_fixture.h"
#include "tests/support/web_servers.h"

#include <map>

namespace network_test {

namespace {

using support::RequestLog;
using support::WebServers;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class RealServersNetworkTest : public NetworkTest
{
protected:
    RealServersNetworkTest()
    {
        support::WriteBytes(m_servers.Pages() / "rates.xml", "<UN_OPERATIONAL_RATES_DATASET>" +
                                                                 Row("EUR", "0.8") + Row("JPY", "160") +
                                                                 "</UN_OPERATIONAL_RATES_DATASET>");
        SetEndpoint(endpoints::kConnectionTest, wxString::FromUTF8(m_servers.Http()).Mid(7));
        SetEndpoint(endpoints::kCaBundle, wxString::FromUTF8(m_servers.CaBundle()));
        SetRates(m_servers.Https("/rates.xml"));
        ProjectDatabase::SetConversionRates({{"EUR", 1.0}, {"JPY", 150.0}});
    }

    static std::string Row(const std::string& currency, const std::string& rate)
    {
        return "<UN_OPERATIONAL_RATES><f_curr_code>" + currency + "</f_curr_code><rate>" + rate +
               "</rate></UN_OPERATIONAL_RATES>";
    }
    static void SetRates(const std::string& url)
    {
        SetEndpoint(endpoints::kCurrencyRates, wxString::FromUTF8(url));
    }
    static double Yen()
    {
        for (const auto& row : ProjectDatabase::GetConversionRates()) {
            if (row.currency == "JPY")
                return row.rate;
        }
        return 0.0;
    }
    static ProxyParameters Proxy(long port, const wxString& user = {}, const wxString& password = {})
    {
        ProxyParameters settings;
        settings.useProxy = true;
        settings.sameProxyForAll = true;
        settings.httpHost = "127.0.0.1";
        settings.httpPort = wxString::Format("%ld", port);
        settings.useAuthentication = !user.empty();
        settings.user = user;
        settings.password = password;
        return settings;
    }
    bool Test() { return Network::TestConnection(true, true, &m_error, false, nullptr, nullptr); }

    const WebServers& m_servers = WebServers::Get();
    const RequestLog m_web = m_servers.WebLog();
    const RequestLog m_proxy = m_servers.ProxyLog();
    const RequestLog m_authProxy = m_servers.AuthProxyLog();
    const std::string m_page = m_servers.Http();
    wxString m_error;
};

TEST_F(RealServersNetworkTest, RatesComeByTlsAfterAConnectionTest)
{
    EXPECT_TRUE(Network::UpdateCurrencyConversionRates(&m_error)) << m_error;
    EXPECT_DOUBLE_EQ(Yen(), 200.0);
    EXPECT_TRUE(Network::UpdateCurrencyConversionRates(&m_error)) << m_error;
    const std::string rates = "GET " + m_servers.Https("/rates.xml") + " 200";
    EXPECT_THAT(m_web.Requests(3), ElementsAre("GET " + m_page + " 200", rates, rates));
}

TEST_F(RealServersNetworkTest, ABadCertificateLeavesTheOldRates)
{
    for (const std::string& url : {m_servers.Expired("/rates.xml"), m_servers.WrongHost("/rates.xml"),
                                   m_servers.UnknownRoot("/rates.xml")}) {
        for (const bool byProxy : {false, true}) {
            if (byProxy)
                Proxy(m_servers.ProxyPort()).Save();
            else
                ProxyParameters().Save();
            Network::Initialize();
            SetRates(url);
            m_error.clear();
            EXPECT_FALSE(Network::UpdateCurrencyConversionRates(&m_error)) << url;
            EXPECT_EQ(m_error, "Failed to connect to the currency server.") << url;
            EXPECT_EQ(Yen(), 150.0) << url;
            wxString test = wxString::FromUTF8(url);
            EXPECT_FALSE(Network::TestConnection(true, true, &m_error, false, nullptr, &test));
            EXPECT_EQ(m_error, "No network detected.") << url;
        }
    }
    for (const std::string& request : m_web.Requests(6))
        EXPECT_EQ(request, "GET " + m_page + " 200") << "of what cannot be trusted nothing was asked";
}

TEST_F(RealServersNetworkTest, AProxyWithCredentialsIsAskedForPagesAndTunnels)
{
    Proxy(m_servers.AuthProxyPort(), "user", "sesame").Save();
    EXPECT_TRUE(Network::UpdateCurrencyConversionRates(&m_error)) << m_error;
    EXPECT_DOUBLE_EQ(Yen(), 200.0);
    // Each request shows nothing of the user before the proxy has asked.
    const std::string tunnel = "CONNECT " + m_servers.Https("").substr(8);
    EXPECT_THAT(m_authProxy.Requests(4), ElementsAre("GET " + m_page, "GET " + m_page, tunnel, tunnel));
    EXPECT_THAT(m_web.Requests(2),
                ElementsAre("GET " + m_page + " 200", "GET " + m_servers.Https("/rates.xml") + " 200"));
}

TEST_F(RealServersNetworkTest, WithoutCredentialsTheUserIsToldAndNothingPasses)
{
    Proxy(m_servers.AuthProxyPort()).Save();
    EXPECT_FALSE(Test());
    EXPECT_THAT(m_error.utf8_string(), HasSubstr("The proxy server asks for a user ID and a password."));
    EXPECT_THAT(m_authProxy.Requests(1), ElementsAre("GET " + m_page));
    EXPECT_FALSE(Network::UpdateCurrencyConversionRates(&m_error));
    EXPECT_EQ(Yen(), 150.0);
    EXPECT_THAT(m_web.Requests(), IsEmpty());
}

TEST_F(RealServersNetworkTest, TheSystemsProxyIsTakenWhereTheSettingsLeadNowhere)
{
    Proxy(ToPort(DeadPort())).Save();
    // Nobody has logged on to the system: the proxy asks, and what did not work is not kept.
    wxSetEnv("http_proxy", wxString::Format("http://127.0.0.1:%d", m_servers.AuthProxyPort()));
    EXPECT_FALSE(Test());
    EXPECT_THAT(m_error.utf8_string(), HasSubstr("The proxy server asks for a user ID and a password."));
    EXPECT_THAT(m_authProxy.Requests(1), ElementsAre("GET " + m_page));
    EXPECT_NE(ProxyParameters::Load().httpPort, wxString::Format("%d", m_servers.AuthProxyPort()));

    wxSetEnv("http_proxy", wxString::Format("http://127.0.0.1:%d", m_servers.ProxyPort()));
    EXPECT_TRUE(Test()) << m_error;
    EXPECT_THAT(m_proxy.Requests(1), ElementsAre("GET " + m_page));
    EXPECT_THAT(m_web.Requests(1), ElementsAre("GET " + m_page + " 200"));
    EXPECT_EQ(ProxyParameters::Load().httpPort, wxString::Format("%d", m_servers.ProxyPort()));
}

}  // namespace

}  // namespace network_test
