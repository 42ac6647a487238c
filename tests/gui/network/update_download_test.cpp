// SPDX-License-Identifier: MIT
// Files of the update site: what comes whole becomes the file, anything else leaves what was there.
#include "gui_base/network/download_thread.h"
#include "tests/gui/network/network_fixture.h"
#include "wxcurl/curl_events.h"

#include <chrono>
#include <memory>

namespace network_test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Clock = std::chrono::steady_clock;

constexpr const char* kOld = "what was there before";
constexpr const char* kNew = "the new file";

class UpdateTest : public NetworkTest
{
protected:
    UpdateTest() { support::WriteBytes(m_folder / "target", kOld); }

    /// The connection test passes; what the file's address answers is the test's.
    static LoopbackServer::Handler Site(const LoopbackServer::Handler& file)
    {
        return [file](ServerConnection& connection, const HttpRequest& request) {
            if (request.target == "/connectiontest.html")
                connection.Answer(200);
            else
                file(connection, request);
        };
    }
    static void SetSite(const LoopbackServer& server)
    {
        SetTestPage(server);
        SetEndpoint(endpoints::kUpdates, wxString::FromUTF8(server.Url("/update")));
        SetEndpoint(endpoints::kSetup, wxString::FromUTF8(server.Url("/setup")));
    }
    bool Load() { return Network::LoadUpdateFile("data.xml", Path("target"), false, nullptr, &m_error); }

    wxString m_error;
};

TEST_F(UpdateTest, AFileIsAskedForByAFormAndReplacesTheOldOne)
{
    const LoopbackServer server(Site(Answers(200, kNew)));
    SetSite(server);
    EXPECT_TRUE(Load());
    EXPECT_EQ(Network::LoadSetupFile("setup.run", Path("setup"), nullptr, &m_error), wxCTE_NO_ERROR);
    EXPECT_EQ(Read("target"), kNew);
    EXPECT_EQ(Read("setup"), kNew);
    const auto requests = server.Requests();
    ASSERT_EQ(requests.size(), 3u);
    EXPECT_EQ(requests[0].method + " " + requests[0].target, "GET /connectiontest.html");
    EXPECT_EQ(requests[1].method + " " + requests[1].target, "POST /update");
    EXPECT_EQ(requests[2].method + " " + requests[2].target, "POST /setup");
    EXPECT_THAT(requests[1].body, HasSubstr("name=\"file\"\r\n\r\ndata.xml\r\n"));
    EXPECT_THAT(requests[2].body, HasSubstr("name=\"file\"\r\n\r\nsetup.run\r\n"));
    for (const HttpRequest& request : requests)
        EXPECT_EQ(request.headers.at("user-agent"), "libcurl-agent/7.50.3");
}

TEST_F(UpdateTest, WhatIsNoFileLeavesTheOldOne)
{
    const std::string document =
        "<?xml version=\"1.0\"?>\n<!-- none -->\n<tarnvik-error><text>no</text></tarnvik-error>";
    const struct
    {
        const char* name;
        LoopbackServer::Handler answer;
        const char* error;
        bool isReset;  ///< the connection is tested again
    } cases[] = {
        {"403", Answers(403, "no"), "Access to Tarnvik update site denied.", false},
        {"404", Answers(404), "File not found on Tarnvik update site.", false},
        {"404 with a document", Answers(404, document), "File not found on Tarnvik update site.", false},
        {"200 with a document", Answers(200, document), "HTTP error code: 200", false},
        {"500 with a document", Answers(500, document), "HTTP error code: 500", false},
        {"500", Answers(500, "sorry"), "Failed to connect to Tarnvik update site.", false},
        {"reset in the header",
         [](ServerConnection& connection, const HttpRequest&) {
             connection.Send("HTTP/1.1 200 O");
             connection.Reset();
         },
         "Failed to connect to Tarnvik update site.", true},
        {"reset in the body",
         [](ServerConnection& connection, const HttpRequest&) {
             connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nthe first");
             connection.Reset();
         },
         "Failed to connect to Tarnvik update site.", false},
        {"too short",
         [](ServerConnection& connection, const HttpRequest&) {
             connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nthe first");
             connection.Close();
         },
         "Failed to connect to Tarnvik update site.", false},
        {"no HTTP at all",
         [](ServerConnection& connection, const HttpRequest&) {
             connection.Send("220 welcome to something else\r\n");
             connection.Close();
         },
         "Failed to connect to Tarnvik update site.", true},
        {"round in circles",
         [](ServerConnection& connection, const HttpRequest&) {
             connection.Answer(302, {}, "Location: /update\r\n");
         },
         "Failed to connect to Tarnvik update site.", false},
        {"to a file of this machine",
         [](ServerConnection& connection, const HttpRequest&) {
             connection.Answer(302, {}, "Location: file:///etc/hostname\r\n");
         },
         "Failed to connect to Tarnvik update site.", false},
    };
    for (const auto& [name, answer, error, isReset] : cases) {
        SCOPED_TRACE(name);
        Network::Initialize();
        const LoopbackServer server(Site(answer));
        SetSite(server);
        EXPECT_FALSE(Load());
        EXPECT_EQ(m_error, error);
        EXPECT_EQ(Read("target"), kOld);
        EXPECT_THAT(Files(), ElementsAre("target"));
        const auto before = server.Requests().size();
        Network::TestConnection(true, false, nullptr, false, nullptr, nullptr);
        EXPECT_EQ(server.Requests().size(), before + (isReset ? 1 : 0));
    }
}

TEST_F(UpdateTest, WithoutAConnectionNothingIsAskedFor)
{
    const LoopbackServer server(Answers(503));
    SetSite(server);
    EXPECT_FALSE(Load());
    EXPECT_EQ(m_error, "Unexpected HTTP error code: 503.");
    EXPECT_EQ(server.Requests().size(), 1u);
}

TEST_F(UpdateTest, AFolderThatTakesNoFilesIsNamed)
{
    const LoopbackServer server(Site(Answers(200, kNew)));
    SetSite(server);
    EXPECT_FALSE(Network::LoadUpdateFile("data.xml", Path("no folder/target"), false, nullptr, &m_error));
    EXPECT_EQ(m_error, wxString::Format("The file %s cannot be written.", Path("no folder/target")));
    std::filesystem::create_directories(m_folder / "taken" / "inner");
    EXPECT_FALSE(Network::LoadUpdateFile("data.xml", Path("taken"), false, nullptr, &m_error));
    EXPECT_THAT(m_error.utf8_string(), HasSubstr("cannot be written."));
    EXPECT_THAT(Files(), ElementsAre("taken", "target"));
}

// By a thread

class DownloadTest : public UpdateTest
{
protected:
    static constexpr int kId = 4712;

    DownloadTest()
    {
        m_handler.Bind(wxCURL_DOWNLOAD_EVENT, [this](wxCurlDownloadEvent& event) {
            EXPECT_EQ(event.GetId(), kId);
            m_done = event.GetDownloadedBytes();
            m_total = event.GetTotalBytes();
        });
        m_handler.Bind(wxCURL_END_PERFORM_EVENT, [this](wxCurlEndPerformEvent& event) {
            EXPECT_EQ(event.GetId(), kId);
            ++m_ends;
        });
    }
    /// Sends `size` bytes, one block each time that the test allows one.
    LoopbackServer::Handler Slowly(std::size_t size, std::size_t block)
    {
        return [=, this](ServerConnection& connection, const HttpRequest&) {
            connection.Send("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(size) + "\r\n\r\n");
            for (std::size_t sent = 0; sent < size && connection.Wait(5);) {
                if (m_blocks == 0)
                    continue;
                --m_blocks;
                if (!connection.Send(std::string(block, 'x')))
                    break;
                sent += block;
            }
        };
    }
    bool Start(DownloadThread& thread)
    {
        return Network::LoadUpdateFile("setup.run", Path("target"), false, &thread, &m_error);
    }
    bool AwaitEnd()
    {
        return gui_test::PumpUntil([this] { return m_ends > 0; });
    }

    wxEvtHandler m_handler;
    std::int64_t m_done = 0;
    std::int64_t m_total = 0;
    int m_ends = 0;
    std::atomic<int> m_blocks = 0;
};

TEST_F(DownloadTest, ProgressIsToldAndTheFileIsThereAfterTheEnd)
{
    const LoopbackServer server(Site(Slowly(3'000'000, 1'000'000)));
    SetSite(server);
    DownloadThread thread(&m_handler, kId);
    ASSERT_TRUE(Start(thread));
    EXPECT_EQ(thread.Download(), wxCTE_ALREADY_RUNNING);
    for (int block = 1; block < 3; ++block) {
        ++m_blocks;
        EXPECT_TRUE(gui_test::PumpUntil([&] { return m_done >= block * 1'000'000; }));
        EXPECT_EQ(m_total, 3'000'000);
        EXPECT_EQ(Read("target"), kOld);
    }
    ++m_blocks;
    ASSERT_TRUE(AwaitEnd());
    EXPECT_TRUE(Network::FinishDownload(thread, &m_error)) << m_error;
    EXPECT_EQ(Read("target"), std::string(3'000'000, 'x'));
    EXPECT_THAT(Files(), ElementsAre("target"));
    EXPECT_EQ(m_ends, 1);
}

TEST_F(DownloadTest, WhatIsCancelledLeavesNothing)
{
    for (const bool isStalled : {false, true}) {
        SCOPED_TRACE(isStalled);
        const LoopbackServer server(Site(Slowly(1'000'000'000, 1'000'000)));
        SetSite(server);
        DownloadThread thread(&m_handler, kId);
        m_blocks = isStalled ? 1 : 1'000'000;
        ASSERT_TRUE(Start(thread));
        ASSERT_TRUE(gui_test::PumpUntil([this] { return m_done > 0; }));
        const auto begun = Clock::now();
        thread.Cancel();
        EXPECT_FALSE(Network::FinishDownload(thread, &m_error));
        EXPECT_LT(Clock::now() - begun, std::chrono::milliseconds(400));
        EXPECT_EQ(m_error, "The download was cancelled.");
        EXPECT_EQ(thread.GetResult(), wxCTE_ABORTED);
        EXPECT_EQ(Read("target"), kOld);
        EXPECT_THAT(Files(), ElementsAre("target"));
        m_done = 0;
    }
}

TEST_F(DownloadTest, AThreadThatIsAskedToStopTakesNothingMore)
{
    const LoopbackServer server(Site(Slowly(1'000'000'000, 1'000'000)));
    SetSite(server);
    m_blocks = 1'000'000;
    DownloadThread thread(&m_handler, kId);
    ASSERT_TRUE(Start(thread));
    ASSERT_TRUE(gui_test::PumpUntil([this] { return m_done > 0; }));
    thread.Delete();
    EXPECT_FALSE(Network::FinishDownload(thread, &m_error));
    EXPECT_EQ(Read("target"), kOld);
}

TEST_F(DownloadTest, WhatIsCheckedAndFoundBadNeverBecomesTheFile)
{
    const LoopbackServer server(Site(Answers(200, kNew)));
    SetSite(server);
    DownloadThread thread(&m_handler, kId);
    ASSERT_TRUE(Start(thread));
    ASSERT_TRUE(AwaitEnd());
    wxString checked;
    EXPECT_FALSE(Network::FinishDownload(thread, &m_error, [&](const wxString& path) {
        checked = path;
        EXPECT_EQ(support::ReadBytes(path.utf8_string()), kNew);
        return wxString("not that one");
    }));
    EXPECT_EQ(m_error, "not that one");
    EXPECT_TRUE(checked.StartsWith(Path("target.part-"))) << checked;
    EXPECT_EQ(Read("target"), kOld);
    EXPECT_THAT(Files(), ElementsAre("target"));
}

TEST_F(DownloadTest, AWindowThatGoesIsToldNothing)
{
    const LoopbackServer server(Site(Slowly(1'000'000'000, 1'000'000)));
    SetSite(server);
    auto handler = std::make_unique<wxEvtHandler>();
    auto thread = std::make_unique<DownloadThread>(handler.get(), kId);
    m_blocks = 1;
    ASSERT_TRUE(Start(*thread));
    gui_test::PumpUntil([this] { return m_blocks == 0; });
    thread->Forget();
    handler.reset();
    m_blocks = 100;
    thread.reset();
    gui_test::Pump();
    EXPECT_THAT(Files(), ElementsAre("target"));
}

TEST_F(DownloadTest, ErrorsOfAThreadAreThoseWithoutOne)
{
    const struct
    {
        int code;
        const char* error;
    } cases[] = {{403, "Access to Tarnvik update site denied."},
                 {404, "File not found on Tarnvik update site."},
                 {500, "Failed to connect to Tarnvik update site."}};
    for (const auto& [code, error] : cases) {
        const LoopbackServer server(Site(Answers(code)));
        SetSite(server);
        m_ends = 0;
        DownloadThread thread(&m_handler, kId);
        ASSERT_EQ(Network::LoadSetupFile("a", Path("target"), &thread, &m_error), wxCTE_NO_ERROR);
        ASSERT_TRUE(AwaitEnd());
        EXPECT_FALSE(Network::FinishDownload(thread, &m_error));
        EXPECT_EQ(m_error, error);
        EXPECT_EQ(Read("target"), kOld);
    }
}

TEST_F(DownloadTest, WhatADownloadLacksIsNamed)
{
    const LoopbackServer server(Answers(200, kNew));
    const wxString url = wxString::FromUTF8(server.Url("/file"));
    PartFile file(Path("target"));
    DownloadThread thread(nullptr, kId, url);
    EXPECT_FALSE(thread.IsOk());
    EXPECT_EQ(thread.Download(), wxCTE_NO_RESOURCE);
    EXPECT_EQ(thread.SetCurlSession(nullptr, wxCP_HTTP), wxCTE_NO_RESOURCE);
    EXPECT_EQ(thread.SetCurlSession(new wxCurlHTTP({}), wxCP_INVALID), wxCTE_INVALID_PROTOCOL);
    EXPECT_EQ(thread.SetCurlSession(new wxCurlHTTP({}), wxCP_HTTP), wxCTE_NO_ERROR);
    EXPECT_EQ(thread.Download(), wxCTE_NO_VALID_STREAM);
    EXPECT_EQ(thread.SetOutputStream(nullptr), wxCTE_NO_VALID_STREAM);
    EXPECT_EQ(thread.Download("file:///etc/hostname", &file.GetStream()), wxCTE_INVALID_PROTOCOL);
    EXPECT_EQ(thread.Download(url), wxCTE_NO_ERROR);
    thread.Wait();
    EXPECT_EQ(file.GetHead(100), kNew);
    EXPECT_EQ(thread.GetOutputStream(), &file.GetStream());
    EXPECT_EQ(Read("target"), kOld) << "not committed";
}

}  // namespace

}  // namespace network_test
