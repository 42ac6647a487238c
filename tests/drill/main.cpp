// SPDX-License-Identifier: MIT
// Runs the drills and prints a table:  drill [PART OF A NAME]
#include "tests/drill/drill.h"

#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace drill {

unsigned Next()
{
    static std::minstd_rand random(1);
    return static_cast<unsigned>(random());
}

int KillAtSomeMoment(const std::function<void(const std::function<void(int)>&)>& work, int most)
{
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0)
        return -1;
    const pid_t child = fork();
    if (child == 0) {
        work([&ends](int number) { static_cast<void>(write(ends[1], &number, sizeof number)); });
        _exit(0);
    }
    close(ends[1]);
    // From its first step on: before, there is nothing to disturb.
    int last = 0;
    static_cast<void>(read(ends[0], &last, sizeof last));
    std::this_thread::sleep_for(std::chrono::microseconds(Next() % (1000U * static_cast<unsigned>(most))));
    kill(child, SIGKILL);
    while (read(ends[0], &last, sizeof last) == sizeof last)
        continue;
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return last;
}

bool EndsWell(const std::function<void()>& work, unsigned seconds)
{
    const pid_t child = fork();
    if (child == 0) {
        alarm(seconds);
        work();
        _exit(0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace drill

int main(int argc, char** argv)
{
    int lost = 0;
    std::printf("%-52s %8s %9s %6s %8s\n", "drill", "faults", "survived", "lost", "seconds");
    for (const auto& drills : {drill::FileDrills(), drill::DamageDrills(), drill::DatabaseDrills()}) {
        for (const drill::Drill& drill : drills) {
            if (argc > 1 && std::strstr(drill.name, argv[1]) == nullptr)
                continue;
            const auto start = std::chrono::steady_clock::now();
            drill::Result result;
            try {
                result = drill.run();
            } catch (const std::exception& error) {
                result.Count(false, error.what());
            }
            const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
            std::printf("%-52s %8d %9d %6zu %8.1f\n", drill.name, result.tried, result.survived,
                        result.lost.size(), took.count());
            for (const std::string& what : result.lost)
                std::printf("    lost: %s\n", what.c_str());
            std::fflush(stdout);
            // A drill that tries nothing finds nothing.
            lost += static_cast<int>(result.lost.size()) + (result.tried == 0 ? 1 : 0);
        }
    }
    return lost == 0 ? 0 : 1;
}
