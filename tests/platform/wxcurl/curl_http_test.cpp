// SPDX-License-Identifier: MIT
// Transfers against servers that answer well, badly or not at all.
#include "wxcurl/curl_http.h"

#include "tests/platform/wxcurl/transfer.h"
#include "tests/support/loopback_server.h"
#include "wxcurl/secrets.h"

#include <wx/app.h>
#include <wx/init.h>

#include <thread>

namespace {

/// A transfer asks the toolkit for its thread.
class Toolkit : public testing::Environment
{
    wxInitializer m_initializer;
};

const auto* const toolkit = testing::AddGlobalTestEnvironment(new Toolkit);

using support::HttpRequest;
using support::LoopbackServer;
using support::ServerConnection;
using testing::HasSubstr;
using testing::Not;

TEST(CurlHttp, TenRequestsToOneHostAreOneConnection)
{
    const LoopbackServer server([](ServerConnection& connection, const HttpRequest& request) {
        connection.Answer(200, "you asked for " + request.target);
    });
    for (int i = 0; i < 10; ++i) {
        const std::string path = "/" + std::to_string(i);
        const Transfer result = Get(server.Url(path));
        EXPECT_TRUE(result.ok) << result.error;
        EXPECT_EQ(result.code, 200);
        EXPECT_EQ(result.text, "you asked for " + path);
    }
    EXPECT_EQ(server.Connections(), 1);
}

TEST(CurlHttp, AFormIsSentWithItsFields)
{
    const LoopbackServer server(
        [](ServerConnection& connection, const HttpRequest&) { connection.Answer(404, "no such file"); });
    wxCurlHTTP session(wxString::FromUTF8(server.Url("/update")));
    session.SetUserAgent("libcurl-agent/7.50.3");
    session.AddFormField("file", wxString::FromUTF8("Größe \"1\".zip"));
    session.AddFormField("language", "de");
    wxMemoryOutputStream stream;
    EXPECT_TRUE(session.Post(stream)) << "an answer came, whatever it says";
    EXPECT_EQ(session.GetResponseCode(), 404);
    EXPECT_EQ(TextOf(stream), "no such file");
    ASSERT_EQ(server.Requests().size(), 1U);
    const HttpRequest request = server.Requests().front();
    EXPECT_EQ(request.method, "POST");
    EXPECT_EQ(request.headers.at("user-agent"), "libcurl-agent/7.50.3");
    EXPECT_THAT(request.headers.at("content-type"), HasSubstr("multipart/form-data"));
    EXPECT_THAT(request.body, HasSubstr("name=\"file\"\r\n\r\nGr\u00f6\u00dfe \"1\".zip\r\n"));
    EXPECT_THAT(request.body, HasSubstr("name=\"language\"\r\n\r\nde\r\n"));
}

TEST(CurlHttp, ServersThatFailAreToldAndBounded)
{
    const LoopbackServer server([](ServerConnection& connection, const HttpRequest& request) {
        const std::string& what = request.target;
        if (what == "/reset") {
            connection.Reset();
        } else if (what == "/reset-in-body") {
            connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf");
            connection.Wait(50);
            connection.Reset();
        } else if (what == "/short") {
            connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf");
            connection.Close();
        } else if (what == "/stalls") {
            connection.Wait(20'000);
            connection.Close();
        } else if (what == "/slow") {
            connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n");
            while (connection.Wait(1000) && connection.Send("x")) {
            }
        } else if (what == "/trickle") {
            // Enough not to count as a stall.
            connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\n");
            for (int i = 0; i < 80 && connection.Wait(100); ++i)
                connection.Send("twenty bytes of text");
            connection.Close();
        } else if (what == "/endless") {
            connection.Send("HTTP/1.1 200 OK\r\n\r\n");
            while (connection.Send(std::string(1 << 16, 'x'))) {
            }
        } else if (what == "/loop") {
            connection.Answer(302, {}, "Location: /loop\r\n");
        } else if (what == "/file") {
            connection.Answer(302, {}, "Location: file:///etc/passwd\r\n");
        } else if (what == "/nonsense") {
            connection.Send("what is this?\r\n\r\n");
            connection.Close();
        }
    });
    struct Case
    {
        const char* path;
        long code;
        const char* error;
    };
    const Case cases[] = {
        {"/reset", 0, ""},
        {"/reset-in-body", 200, ""},
        {"/short", 200, "transfer closed with 96 bytes remaining"},
        {"/stalls", 0, "Operation too slow"},
        {"/slow", 200, "Operation too slow"},
        {"/trickle", 200, "Operation timed out after 4"},
        {"/endless", 200, "the answer has more than 1000000 bytes"},
        {"/loop", 302, "Maximum (5) redirects followed"},
        {"/file", 302, "rotocol \"file\""},
        {"/nonsense", 0, "HTTP/0.9"},
    };
    for (const auto& [path, code, error] : cases) {
        const Transfer result =
            Get(server.Url(path), {.connect = 1000, .stall = 2000, .answer = 1'000'000, .whole = 4000});
        EXPECT_FALSE(result.ok) << path;
        EXPECT_EQ(result.code, code) << path;
        EXPECT_THAT(result.error, HasSubstr(error)) << path;
        EXPECT_FALSE(result.error == " ") << path;
        EXPECT_THAT(result.text, Not(HasSubstr("root:"))) << path;
        EXPECT_LE(result.text.size(), 1'000'000U) << path;
        EXPECT_LT(result.seconds, 8.0) << path;
    }
    // Ports that nobody listens to, other schemes and what is no address.
    for (const char* url :
         {"http://127.0.0.1:1/", "file:///etc/passwd", "ftp://127.0.0.1/", "", "http://[::"}) {
        const Transfer result = Get(url, {.connect = 1000, .stall = 2000});
        EXPECT_FALSE(result.ok) << url;
        EXPECT_EQ(result.code, 0) << url;
        EXPECT_FALSE(result.error == " ") << url;
    }
}

TEST(CurlHttp, ABoundForAnswersInMemoryIsNoneForFiles)
{
    const LoopbackServer server([](ServerConnection& connection, const HttpRequest&) {
        connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 5000\r\n\r\n");
        for (int part = 0; part < 5 && connection.Send(std::string(1000, 'x')); ++part)
            connection.Wait(100);
    });
    wxCurlHTTP session(wxString::FromUTF8(server.Url()));
    session.SetBounds({.answer = 1000, .whole = 200});
    EXPECT_FALSE(Get(session).ok);
    wxMemoryOutputStream file;
    EXPECT_TRUE(session.GetFile(file)) << session.GetDetailedErrorString();
    EXPECT_EQ(file.GetSize(), 5000U);
}

TEST(CurlHttp, AnAddressWithoutASchemeIsHttpWhateverItsHostIsCalled)
{
    const LoopbackServer proxy([](ServerConnection& connection, const HttpRequest& request) {
        connection.Answer(200, request.target);
    });
    for (const char* url : {"ftp.example/page", "imap.example/page", "https.example/page"}) {
        wxCurlHTTP session(url);
        EXPECT_EQ(session.GetProtocol(), wxCP_HTTP) << url;
        session.UseProxy(true);
        session.SetProxyHost("127.0.0.1");
        session.SetProxyPort(proxy.Port());
        EXPECT_EQ(Get(session).text, "http://" + std::string(url));
    }
    EXPECT_EQ(wxCurlHTTP("HTTPS://host/").GetProtocol(), wxCP_HTTPS);
    EXPECT_EQ(wxCurlHTTP("file:///etc/passwd").GetProtocol(), wxCP_INVALID);
}

/// Collects the events of transfers.
class Recorder : public wxEvtHandler
{
public:
    bool TryBefore(wxEvent& event) override
    {
        if (const auto* download = dynamic_cast<const wxCurlDownloadEvent*>(&event))
            progress.push_back(download->GetDownloadedBytes());
        if (const auto* end = dynamic_cast<const wxCurlEndPerformEvent*>(&event))
            ends.push_back(end->IsSuccessful());
        ids.push_back(event.GetId());
        return true;
    }
    std::vector<std::int64_t> progress;
    std::vector<bool> ends;
    std::vector<int> ids;
};

TEST(CurlHttp, TellsOfProgressAndEndAndCanBeCancelled)
{
    const LoopbackServer server([](ServerConnection& connection, const HttpRequest& request) {
        if (request.target == "/endless") {
            connection.Send("HTTP/1.1 200 OK\r\n\r\n");
            while (connection.Send(std::string(1 << 16, 'x')) && connection.Wait(5)) {
            }
            return;
        }
        connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 300000\r\n\r\n");
        for (int part = 0; part < 3 && connection.Send(std::string(100'000, 'x')); ++part)
            connection.Wait(250);
    });
    // Events wait in the application.
    wxAppConsole application;
    wxAppConsole::SetInstance(&application);
    Recorder recorder;
    wxCurlHTTP session(wxString::FromUTF8(server.Url("/three")));
    session.SetEvtHandler(&recorder, 42);
    session.SetFlags(wxCURL_SEND_EVENTS);
    EXPECT_TRUE(Get(session).ok);
    application.ProcessPendingEvents();
    ASSERT_GE(recorder.progress.size(), 2U);
    EXPECT_TRUE(std::ranges::is_sorted(recorder.progress));
    EXPECT_EQ(recorder.ends, std::vector<bool>{true});
    EXPECT_TRUE(std::ranges::all_of(recorder.ids, [](int id) { return id == 42; }));
    session.SetEvtHandler(nullptr);
    EXPECT_TRUE(Get(session).ok);
    application.ProcessPendingEvents();
    EXPECT_EQ(recorder.ends.size(), 1U) << "a handler that went is told no more";
    wxAppConsole::SetInstance(nullptr);

    wxCurlHTTP endless(wxString::FromUTF8(server.Url("/endless")));
    std::thread canceller([&endless] {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        endless.Cancel();
    });
    const Transfer result = Get(endless);
    canceller.join();
    EXPECT_FALSE(result.ok);
    EXPECT_LT(result.seconds, 0.5) << "at most 200 ms after the cancel";
}

TEST(Secrets, AreStruckOut)
{
    const std::pair<const char*, const char*> cases[] = {
        {"> Proxy-Authorization: Basic dXNlcg==\r\n> Host: x\r\n",
         "> Proxy-Authorization: ***\n> Host: x\r\n"},
        {"< set-COOKIE: id=7; Path=/", "< set-COOKIE: ***"},
        {"* Uses proxy http://me:p@ss@proxy:3128/", "* Uses proxy http://***@proxy:3128/"},
        {"see https://host/a@b and http://u@h", "see https://host/a@b and http://***@h"},
        {"* Server auth using Basic with user 'me'", "* Server auth using Basic with user 'me'"},
        {"", ""},
        {"no end\n", "no end\n"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(secrets::StrikeOut(text), expected) << text;
}

}  // namespace
