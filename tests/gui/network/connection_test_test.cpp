// SPDX-License-Identifier: MIT
// How a way to the services is found: which requests are made in which order, and what is said and kept.
#include "gui_base/network/authentication_entry_dialog.h"
#include "gui_base/network/test_connection_thread.h"
#include "tests/gui/network/network_fixture.h"

#include <wx/textctrl.h>

#include <chrono>

namespace network_test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// What a server was asked, with the credentials that came along.
std::vector<std::string> Asked(const LoopbackServer& server)
{
    std::vector<std::string> texts;
    for (const HttpRequest& request : server.Requests()) {
        const auto header = request.headers.find("proxy-authorization");
        texts.push_back(header == request.headers.end() ? "plain" : header->second.substr(0, 5));
    }
    return texts;
}

class ConnectionTestTest : public NetworkTest
{
protected:
    /// The user types these into the dialog and closes it.
    void Types(const wxString& user, const wxString& password, int answer = wxID_OK)
    {
        m_dialogs.Expect([=](wxDialog& dialog) {
            EXPECT_EQ(dialog.GetName(), "AuthenticationEntryDialog");
            EXPECT_EQ(dialog.GetTitle(), "Proxy server authentication");
            auto& secret = gui_test::Find<wxTextCtrl>(dialog, "Password");
            EXPECT_TRUE(secret.HasFlag(wxTE_PASSWORD));
            gui_test::Find<wxTextCtrl>(dialog, "User ID").SetValue(user);
            secret.SetValue(password);
            return answer;
        });
    }
    bool Test(bool silent = true, bool force = false)
    {
        m_error.clear();
        m_protocol.clear();
        return Network::TestConnection(silent, force, &m_error, true, &m_protocol, nullptr);
    }

    wxString m_error;
    wxString m_protocol;
};

TEST_F(ConnectionTestTest, WhatWasReachedOnceIsNotAskedAgain)
{
    const LoopbackServer server(Answers(200));
    SetTestPage(server);
    EXPECT_TRUE(Test(true, true));
    EXPECT_TRUE(Test()) << "a forced test verifies nothing";
    EXPECT_EQ(server.Requests().size(), 2u);
    EXPECT_TRUE(Test());
    EXPECT_TRUE(m_protocol.empty());
    EXPECT_EQ(server.Requests().size(), 2u);
    EXPECT_TRUE(Test(true, true));
    EXPECT_EQ(server.Requests().size(), 3u);
    for (const int code : {403, 500, 200}) {
        Network::CheckConnectionReset(code);
        EXPECT_TRUE(Test());
    }
    EXPECT_EQ(server.Requests().size(), 3u);
    for (const int code : {0, 407}) {
        Network::CheckConnectionReset(code);
        EXPECT_TRUE(Test());
    }
    EXPECT_EQ(server.Requests().size(), 5u);
    EXPECT_EQ(server.Requests()[0].headers.at("user-agent"), "libcurl-agent/7.50.3");
    EXPECT_EQ(server.Requests()[0].target, "/connectiontest.html");
}

TEST_F(ConnectionTestTest, OtherCodesAreNotAccepted)
{
    for (const int code : {403, 404, 500, 204}) {
        const LoopbackServer server(Answers(code));
        SetTestPage(server);
        EXPECT_FALSE(Test());
        EXPECT_EQ(m_error, wxString::Format("Unexpected HTTP error code: %d.", code));
        EXPECT_EQ(server.Requests().size(), 1u);
    }
}

TEST_F(ConnectionTestTest, WithoutAnyAnswerThereIsNoNetwork)
{
    SetEndpoint(endpoints::kConnectionTest, "127.0.0.1:" + DeadPort() + "/connectiontest.html");
    EXPECT_FALSE(Test());
    EXPECT_EQ(m_error, "No network detected.");
    EXPECT_TRUE(
        m_protocol.StartsWith("* Tarnvik TestConnection (SSPI): Current settings\n"
                              " - Direct connection without proxy\n"
                              "*** Tarnvik TestConnection: Network activity protocol\n"
                              "*** Tarnvik TestConnection: Check with current settings\n"))
        << m_protocol;
    EXPECT_THAT(m_protocol.utf8_string(), HasSubstr("*** Tarnvik TestConnection: Recheck without proxy\n"));
    EXPECT_THAT(m_protocol.utf8_string(), HasSubstr("\n - cURL Msg detail: Failed to connect"));
    EXPECT_THAT(m_protocol.utf8_string(), HasSubstr(" - cURL Msg short: Couldn't connect to server"));
}

TEST_F(ConnectionTestTest, NothingButTheWebIsReached)
{
    wxString protocol;
    for (const wxString& url : {wxString("file:///etc/hostname"), wxString("ftp://127.0.0.1/"), wxString()}) {
        EXPECT_EQ(Network::TestURL(url, false, {}, {}, false, {}, {}, true, &protocol), 0) << url;
        EXPECT_FALSE(Network::TestConnection(true, true, nullptr, false, nullptr, &url)) << url;
    }
}

TEST_F(ConnectionTestTest, AProxyThatIsGoneIsReplacedByADirectWay)
{
    const LoopbackServer server(Answers(200));
    SetTestPage(server);
    ProxyParameters settings{.useProxy = true,
                             .sameProxyForAll = false,
                             .useAuthentication = true,
                             .httpHost = "127.0.0.1",
                             .httpPort = DeadPort(),
                             .httpsHost = "secure.invalid",
                             .httpsPort = "3129",
                             .user = "ann",
                             .password = "word"};
    settings.Save();
    EXPECT_TRUE(Test());
    EXPECT_TRUE(m_protocol.StartsWith(
        "* Tarnvik TestConnection (SSPI): Current settings\n - Proxy for HTTP: 127.0.0.1:" +
        settings.httpPort +
        "\n - Proxy for HTTPS: secure.invalid:3129\n"
        " - Proxy authentication for user: ann\n"))
        << m_protocol;
    EXPECT_THAT(m_protocol.utf8_string(), HasSubstr("*** Tarnvik TestConnection: Recheck without proxy\n"));
    EXPECT_THAT(m_protocol.utf8_string(), Not(HasSubstr("word")));
    settings.useProxy = false;
    EXPECT_EQ(ProxyParameters::Load(), settings) << "what was typed is kept";
}

TEST_F(ConnectionTestTest, TheSystemsProxiesAreTakenOnceTheyWork)
{
    const LoopbackServer proxy(Answers(200));
    SetEndpoint(endpoints::kConnectionTest, "services.invalid/connectiontest.html");
    const wxString address = "http://127.0.0.1:" + PortOf(proxy);
    wxSetEnv("http_proxy", address);
    wxSetEnv("https_proxy", address);
    EXPECT_TRUE(Test());
    EXPECT_THAT(
        m_protocol.utf8_string(),
        HasSubstr("*** Tarnvik TestConnection: Recheck with proxy (SSO or no authentication required)\n"));
    EXPECT_THAT(Asked(proxy), ElementsAre("plain"));
    EXPECT_EQ(proxy.Requests()[0].target, "http://services.invalid/connectiontest.html");
    const ProxyParameters adopted = ProxyParameters::Load();
    EXPECT_TRUE(adopted.useProxy && adopted.sameProxyForAll);
    EXPECT_EQ(adopted.httpHost + ":" + adopted.httpPort, "127.0.0.1:" + PortOf(proxy));
    EXPECT_TRUE(adopted.httpsHost.empty() && adopted.httpsPort.empty());

    // Two different ones, of which the one for http is dead.
    Network::Initialize();
    ProxyParameters().Save();
    wxSetEnv("http_proxy", "127.0.0.1:" + DeadPort());
    EXPECT_FALSE(Test());
    EXPECT_EQ(m_error, "No network detected.");
    EXPECT_EQ(ProxyParameters::Load(), ProxyParameters()) << "what did not work is not kept";
}

TEST_F(ConnectionTestTest, AProxyThatWantsCredentialsGetsThoseOfTheUser)
{
    const LoopbackServer proxy(AsksFor("ann", "s3cret"));
    SetEndpoint(endpoints::kConnectionTest, "services.invalid/connectiontest.html");
    Use(proxy);
    const ProxyParameters before = ProxyParameters::Load();

    EXPECT_FALSE(Test()) << "silent: no dialog";
    EXPECT_THAT(m_error.utf8_string(), HasSubstr("user ID and a password"));
    Types("ann", "s3cret", wxID_CANCEL);
    EXPECT_FALSE(Test(false));
    for (const auto& [user, password] : {std::pair("", "s3cret"), std::pair("ann", "")}) {
        Types(user, password);
        EXPECT_FALSE(Test(false));
        EXPECT_EQ(m_error, "User ID or password empty.");
    }
    EXPECT_EQ(proxy.Requests().size(), 4u) << "nothing is sent without both";
    Types("ann", "wrong");
    EXPECT_FALSE(Test(false));
    EXPECT_EQ(m_error, "User ID or password invalid.");
    EXPECT_EQ(ProxyParameters::Load(), before);

    Types("ann", "s3cret");
    EXPECT_TRUE(Test(false));
    EXPECT_THAT(m_protocol.utf8_string(),
                HasSubstr("*** Tarnvik TestConnection: Check with proxy and authentication\n"));
    EXPECT_THAT(m_protocol.utf8_string(), Not(HasSubstr("s3cret")));
    EXPECT_THAT(m_protocol.utf8_string(), Not(HasSubstr(wxBase64Encode("ann:s3cret", 10).utf8_string())));
    const ProxyParameters after = ProxyParameters::Load();
    EXPECT_EQ(after.user, "ann");
    EXPECT_EQ(after.password, "s3cret");
    EXPECT_THAT(ProjectDatabase::GetUserParameter("proxy.pswd"), Not(HasSubstr("s3cret")));

    // From now on it is silent.
    Network::Initialize();
    EXPECT_TRUE(Test());
}

TEST_F(ConnectionTestTest, AProxyThatFailsAfterTheCredentialsSaysHow)
{
    const LoopbackServer proxy([](ServerConnection& connection, const HttpRequest& request) {
        const bool isKnown = request.headers.contains("proxy-authorization");
        connection.Answer(isKnown ? 502 : 407, {}, "Proxy-Authenticate: Basic realm=\"test\"\r\n");
    });
    SetEndpoint(endpoints::kConnectionTest, "services.invalid/connectiontest.html");
    Use(proxy);
    Types("ann", "s3cret");
    EXPECT_FALSE(Test(false));
    EXPECT_EQ(m_error, "Proxy authentication failed. HTTP error: 502");
}

TEST_F(ConnectionTestTest, APasswordOfAnotherMachineIsAskedForOnce)
{
    const LoopbackServer proxy(AsksFor("ann", "s3cret"));
    SetEndpoint(endpoints::kConnectionTest, "services.invalid/connectiontest.html");
    Use(proxy, "ann", "s3cret");
    ProjectDatabase::SetUserParameter("proxy.pswd", "s1:bm90IG91cnM=");
    Types("ann", "");
    EXPECT_FALSE(Test(false));
    EXPECT_EQ(m_error, "User ID or password empty.");
}

TEST_F(ConnectionTestTest, SettingsThatCannotBeReadMeanADirectWay)
{
    const LoopbackServer server(Answers(200));
    SetTestPage(server);
    ProjectDatabase::Close();
    // A folder in the place of the database: each call of it throws.
    ProjectDatabase::Open("sqlite3://" + (m_folder / "gone.db").string());
    std::filesystem::remove(m_folder / "gone.db");
    std::filesystem::create_directory(m_folder / "gone.db");
    EXPECT_TRUE(Test());
    EXPECT_THAT(m_error.utf8_string(), HasSubstr("The proxy settings cannot be read."));
}

TEST_F(ConnectionTestTest, EachProtocolGoesItsOwnWay)
{
    const ProxyParameters both{.useProxy = true,
                               .sameProxyForAll = false,
                               .useAuthentication = false,
                               .httpHost = "plain",
                               .httpPort = "1",
                               .httpsHost = "secure",
                               .httpsPort = "2",
                               .user = {},
                               .password = {}};
    ProxyParameters all = both;
    all.sameProxyForAll = true;
    ProxyParameters plainOnly = both;
    plainOnly.httpsHost.clear();
    plainOnly.httpsPort.clear();
    const struct
    {
        const ProxyParameters& settings;
        const char* plain;
        const char* secure;
    } cases[] = {{both, "plain", "secure"},
                 {all, "plain", "plain"},
                 {plainOnly, "plain", ""},
                 {ProxyParameters(), "", ""}};
    for (const auto& [settings, plain, secure] : cases) {
        EXPECT_EQ(settings.For(false).GetHost(), plain);
        EXPECT_EQ(settings.For(true).GetHost(), secure);
        EXPECT_EQ(settings.For(true).IsFound(), *secure != '\0');
    }
}

// The test beside the window

class TestThreadTest : public ConnectionTestTest
{
protected:
    /// Runs the thread to its event; false when none came.
    bool Run(TestConnectionThread& thread)
    {
        bool hasEnded = false;
        m_frame->Bind(
            wxEVT_BUTTON, [&hasEnded](wxCommandEvent&) { hasEnded = true; }, kId);
        if (thread.Run() != wxTHREAD_NO_ERROR)
            return false;
        gui_test::PumpUntil([&hasEnded] { return hasEnded; });
        thread.Wait();
        return hasEnded;
    }

    static constexpr int kId = 4711;
};

TEST_F(TestThreadTest, AProposedWayIsTestedWithoutTheStore)
{
    const LoopbackServer proxy(AsksFor("ann", "s3cret"));
    SetEndpoint(endpoints::kConnectionTest, "services.invalid/connectiontest.html");
    TestConnectionThread thread(m_frame, kId);
    thread.SetSettings({.useProxy = true,
                        .sameProxyForAll = true,
                        .useAuthentication = false,
                        .httpHost = "127.0.0.1",
                        .httpPort = PortOf(proxy),
                        .httpsHost = {},
                        .httpsPort = {},
                        .user = "ann",
                        .password = "s3cret"});
    ASSERT_TRUE(Run(thread));
    EXPECT_TRUE(thread.IsSuccessful() && thread.HasChangedSettings());
    EXPECT_TRUE(thread.GetSettings().useAuthentication);
    EXPECT_EQ(ProxyParameters::Load(), ProxyParameters());
    thread.SaveSettings();
    EXPECT_EQ(ProxyParameters::Load(), thread.GetSettings());
    TestConnectionThread next(nullptr, 0);
    next.LoadSettings();
    EXPECT_EQ(next.GetSettings(), thread.GetSettings());
}

TEST_F(TestThreadTest, WithoutAnAnswerTheSystemIsAsked)
{
    const LoopbackServer proxy(Answers(200));
    const LoopbackServer server(Answers(200));
    const struct
    {
        wxString httpProxy;
        wxString httpsProxy;
        wxString page;
        bool isSuccess;
        bool usesProxy;
        bool isSame;
    } cases[] = {
        {{}, {}, PageOf(server), true, false, false},
        {"127.0.0.1:" + PortOf(proxy), "127.0.0.1:" + PortOf(proxy), "services.invalid/a", true, true, true},
        {"127.0.0.1:" + PortOf(proxy), "127.0.0.1:1", "services.invalid/a", true, true, false},
        {{}, {}, "127.0.0.1:" + DeadPort() + "/a", false, false, false},
    };
    for (const auto& [httpProxy, httpsProxy, page, isSuccess, usesProxy, isSame] : cases) {
        SCOPED_TRACE(page + " " + httpsProxy);
        wxSetEnv("http_proxy", httpProxy);
        wxSetEnv("https_proxy", httpsProxy);
        SetEndpoint(endpoints::kConnectionTest, page);
        TestConnectionThread thread(m_frame, kId);
        thread.SetSettings({.useProxy = true,
                            .sameProxyForAll = false,
                            .useAuthentication = false,
                            .httpHost = "127.0.0.1",
                            .httpPort = DeadPort(),
                            .httpsHost = {},
                            .httpsPort = {},
                            .user = {},
                            .password = {}});
        ASSERT_TRUE(Run(thread));
        EXPECT_EQ(thread.IsSuccessful(), isSuccess);
        EXPECT_TRUE(thread.HasChangedSettings());
        EXPECT_EQ(thread.GetSettings().useProxy, usesProxy);
        EXPECT_EQ(thread.GetSettings().sameProxyForAll, isSame);
        // Later transfers offer the system's log-on as the one that worked.
        EXPECT_EQ(thread.GetSettings().useAuthentication, isSuccess && usesProxy);
    }
}

TEST_F(TestThreadTest, AWindowThatGoesEndsItsTestAtOnce)
{
    const LoopbackServer server(
        [](ServerConnection& connection, const HttpRequest&) { connection.Wait(60'000); });
    SetTestPage(server);
    auto thread = std::make_unique<TestConnectionThread>(m_frame, kId);
    ASSERT_EQ(thread->Run(), wxTHREAD_NO_ERROR);
    gui_test::PumpUntil([&server] { return !server.Requests().empty(); });
    m_frame->Bind(
        wxEVT_BUTTON, [](wxCommandEvent&) { ADD_FAILURE() << "told of what it gave up"; }, kId);
    const auto begun = std::chrono::steady_clock::now();
    thread.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::milliseconds(500));
    gui_test::Pump();
}

}  // namespace

}  // namespace network_test
