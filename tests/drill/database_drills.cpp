// SPDX-License-Identifier: MIT
// The user database: kills in the middle, disks that fail, two writers at once, servers that start anew.
#include "dbinterfaces/database_error.h"
#include "dbinterfaces/project_database.h"
#include "tests/drill/drill.h"
#include "tests/drill/failing_vfs.h"
#include "tests/support/postgres_server.h"
#include "tests/support/temp_folder.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace drill {

namespace {

constexpr int kKills = 200;
constexpr int kMostMilliseconds = 40;
constexpr int kRowsOfAWriter = 100;
constexpr int kRestarts = 8;

std::string NameOf(int number)
{
    return fmt::format("drill {:06}", number);
}

/// Two compounds that belong together, in one transaction.
std::vector<DBObjects::Compound> Pair(int number)
{
    std::vector<DBObjects::Compound> pair(2);
    pair[0].name = NameOf(number) + " a";
    pair[1].name = NameOf(number) + " b";
    pair[0].formula = pair[1].formula = "NaCl";
    return pair;
}

/// How many pairs there are; -1 when one is not whole.
int CountPairs()
{
    int a = 0;
    int b = 0;
    for (const auto& compound : ProjectDatabase::GetCompounds({}, {}, "drill"))
        ++(compound.name.ends_with('a') ? a : b);
    return a == b ? a : -1;
}

Result KillsWhileWriting()
{
    const support::TempFolder folder;
    const std::string file = (folder / "user.db").string();
    Result result;
    int stored = 0;
    for (int i = 0; i < kKills; ++i) {
        const int first = stored;
        const int last = KillAtSomeMoment(
            [&](const auto& tell) {
                ProjectDatabase::Open(file);
                for (int number = first;;) {
                    ProjectDatabase::InsertOrReplaceCompounds(Pair(number));
                    tell(++number);
                }
            },
            kMostMilliseconds);
        ProjectDatabase::Open(file);
        stored = CountPairs();
        ProjectDatabase::Close();
        result.Count(stored == last || stored == last + 1,
                     fmt::format("kill {}: {} pairs instead of {}", i, stored, last));
    }
    return result;
}

Result FailingDisks()
{
    const support::TempFolder folder;
    const std::string file = (folder / "user.db").string();
    Result result;
    int stored = 0;
    // Until a write needs no more calls than are let through.
    for (int call = 1;; ++call) {
        ProjectDatabase::Open(file);
        FailDiskCall(call);
        bool failed = false;
        try {
            ProjectDatabase::InsertOrReplaceCompounds(Pair(stored));
        } catch (const DatabaseError&) {
            failed = true;
        }
        const bool reached = DiskCalls() >= call;
        ProjectDatabase::Close();
        FailDiskCall(0);
        ProjectDatabase::Open(file);
        const int found = CountPairs();
        ProjectDatabase::Close();
        result.Count(found == stored + 1 || (failed && found == stored),
                     fmt::format("call {}: {} pairs, {} before", call, found, stored));
        stored = found;
        if (!reached)
            return result;
    }
}

Result TwoWriters(const std::string& text, Result result = {})
{
    std::vector<pid_t> writers;
    for (int writer = 0; writer < 2; ++writer) {
        const pid_t child = fork();
        if (child == 0) {
            int failures = 0;
            for (int i = 0; i < kRowsOfAWriter; ++i) {
                try {
                    if (i == 0)
                        ProjectDatabase::Open(text);
                    ProjectDatabase::InsertOrReplaceCompounds(Pair(1000 * (writer + 1) + i));
                } catch (const std::exception&) {
                    ++failures;
                }
            }
            _exit(failures == 0 ? 0 : 1);
        }
        writers.push_back(child);
    }
    for (const pid_t writer : writers) {
        int status = -1;
        waitpid(writer, &status, 0);
        result.Count(status == 0, "a writer was refused");
    }
    ProjectDatabase::Open(text);
    const auto all = ProjectDatabase::GetCompounds({}, {}, "drill");
    for (int writer = 0; writer < 2; ++writer) {
        for (int i = 0; i < kRowsOfAWriter; ++i) {
            const auto pair = Pair(1000 * (writer + 1) + i);
            const auto count = std::ranges::count_if(all, [&](const DBObjects::Compound& compound) {
                return compound.name == pair[0].name || compound.name == pair[1].name;
            });
            result.Count(count == 2, fmt::format("writer {}, row {}: {} of 2", writer, i, count));
        }
    }
    ProjectDatabase::Close();
    return result;
}

Result TwoWritersOfAFile()
{
    const support::TempFolder folder;
    return TwoWriters((folder / "user.db").string());
}

Result TwoWritersOfAServer()
{
    return TwoWriters(support::PostgresConnectionText());
}

/// Writes until the server has started anew that many times; what was refused is tried again, as a user
/// would.
Result RestartingServer()
{
    const std::string& text = support::PostgresConnectionText();
    Result result;
    ProjectDatabase::Open(text);
    int stored = 0;
    for (int restart = 0; restart < kRestarts; ++restart) {
        std::thread server([] { support::RestartPostgres(); });
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(2);
        for (int tries = 0; std::chrono::steady_clock::now() < end && tries < 10'000; ++tries) {
            try {
                ProjectDatabase::SetUserParameter(NameOf(stored), std::to_string(stored));
                ++stored;
            } catch (const DatabaseError&) {
                std::this_thread::sleep_for(std::chrono::milliseconds(20));
            }
        }
        server.join();
        result.Count(stored > 0, "nothing could be written");
    }
    for (int i = 0; i < stored; ++i)
        result.Count(ProjectDatabase::GetUserParameter(NameOf(i)) == std::to_string(i), NameOf(i));
    ProjectDatabase::Close();
    return result;
}

}  // namespace

std::vector<Drill> DatabaseDrills()
{
    UseFailingDisk();
    return {{"kills while writing the user database", KillsWhileWriting},
            {"every failing write of its disk", FailingDisks},
            {"two writers of one file", TwoWritersOfAFile},
            {"two writers of one server", TwoWritersOfAServer},
            {"a server that starts anew while it is written", RestartingServer}};
}

}  // namespace drill
