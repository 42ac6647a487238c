// SPDX-License-Identifier: MIT
// Transfers: connections that are used again, downloads beside the plain curl program, and how soon a
// cancelled one ends.
#include "gui_base/network/download_thread.h"
#include "tests/support/loopback_server.h"
#include "tests/support/temp_folder.h"
#include "tests/support/web_servers.h"

#include <benchmark/benchmark.h>
#include <wx/init.h>
#include <wx/mstream.h>
#include <wx/wfstream.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <sys/resource.h>
#include <thread>
#include <vector>

namespace {

using support::HttpRequest;
using support::LoopbackServer;
using support::ServerConnection;
using support::WebServers;
using Clock = std::chrono::steady_clock;

constexpr double kGiB = 1 << 30;

double SecondsSince(Clock::time_point begun)
{
    return std::chrono::duration<double>(Clock::now() - begun).count();
}

double PeakMegabytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

void BM_TenRequestsToOneHost(benchmark::State& state)
{
    const LoopbackServer server(
        [](ServerConnection& connection, const HttpRequest&) { connection.Answer(200, "page"); });
    for (auto _ : state) {
        for (int i = 0; i < 10; ++i) {
            wxCurlHTTP session(wxString::FromUTF8(server.Url()));
            wxMemoryOutputStream answer;
            if (!session.Get(answer))
                state.SkipWithError("a request failed");
        }
    }
    state.counters["connections"] = server.Connections();
    if (server.Connections() != 1)
        state.SkipWithError("the connection was not used again");
}
BENCHMARK(BM_TenRequestsToOneHost)->Unit(benchmark::kMillisecond)->UseRealTime();

double SecondsOfCurl(const std::string& url, const std::string& file)
{
    const auto begun = Clock::now();
    const bool isDone = std::system(("curl -s -o '" + file + "' " + url).c_str()) == 0;
    return isDone ? SecondsSince(begun) : 0.0;
}

double SecondsOfThread(const std::string& url, const std::string& file)
{
    const auto begun = Clock::now();
    wxFileOutputStream out(wxString::FromUTF8(file));
    DownloadThread thread(nullptr, wxID_ANY, wxString::FromUTF8(url), &out);
    thread.SetCurlSession(new wxCurlHTTP(wxString()), wxCP_HTTP);
    thread.Download();
    thread.Wait();
    return thread.GetResult() == wxCTE_NO_ERROR && out.GetLength() == static_cast<wxFileOffset>(kGiB)
               ? SecondsSince(begun)
               : 0.0;
}

/// 1 GiB from a server on loopback into a file, by turns; the better of three each.
void BM_DownloadBesideCurl(benchmark::State& state)
{
    const std::string url = WebServers::Get().Http("/big.bin");
    const support::TempFolder folder;
    const std::string file = (folder / "big.bin").string();
    for (auto _ : state) {
        double ofCurl = 1e9;
        double ofThread = 1e9;
        const double before = PeakMegabytes();
        for (int turn = 0; turn < 3; ++turn) {
            ofCurl = std::min(ofCurl, SecondsOfCurl(url, file));
            std::filesystem::remove(file);
            ofThread = std::min(ofThread, SecondsOfThread(url, file));
            std::filesystem::remove(file);
        }
        if (ofCurl == 0.0 || ofThread == 0.0)
            state.SkipWithError("a download failed");
        state.SetIterationTime(ofThread);
        state.counters["curl_s"] = ofCurl;
        state.counters["thread_s"] = ofThread;
        state.counters["speed_ratio"] = ofCurl / ofThread;
        state.counters["memory_grown_MB"] = PeakMegabytes() - before;
    }
}
BENCHMARK(BM_DownloadBesideCurl)->Iterations(1)->UseManualTime()->Unit(benchmark::kSecond);

/// From the cancel of a download to the end of its thread: 0 while bytes come, 1 while the server says
/// nothing, 2 while nothing comes in the middle.
void BM_CancelADownload(benchmark::State& state)
{
    const auto kind = state.range(0);
    const LoopbackServer server([kind](ServerConnection& connection, const HttpRequest&) {
        if (kind != 1)
            connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 100000000000\r\n\r\nbegin");
        while (kind == 0 ? connection.Send(std::string(1 << 16, 'x')) : connection.Wait(1000)) {
        }
    });
    for (auto _ : state) {
        std::vector<double> times;
        for (int i = 0; i < 20; ++i) {
            wxFileOutputStream out("/dev/null");
            DownloadThread thread(nullptr, wxID_ANY, wxString::FromUTF8(server.Url()), &out);
            thread.SetCurlSession(new wxCurlHTTP(wxString()), wxCP_HTTP);
            thread.Download();
            std::this_thread::sleep_for(std::chrono::milliseconds(100 + i));
            const auto begun = Clock::now();
            thread.Cancel();
            thread.Wait();
            times.push_back(1000.0 * SecondsSince(begun));
            if (thread.GetResult() != wxCTE_ABORTED)
                state.SkipWithError("a download was not cancelled");
        }
        std::ranges::sort(times);
        state.SetIterationTime(times[times.size() / 2] / 1000.0);
        state.counters["median_ms"] = times[times.size() / 2];
        state.counters["worst_ms"] = times.back();
    }
}
BENCHMARK(BM_CancelADownload)
    ->Arg(0)
    ->Arg(1)
    ->Arg(2)
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv)
{
    const wxInitializer toolkit;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
