// SPDX-License-Identifier: MIT
#pragma once

/// What refusing a hostile file may cost: a second of work and 200 MB, as docs/limits.md promises.

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace support {

/// How many times as much it may be under the sanitizers, and without the optimization that users get.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr double kSlower = 5.0;
#elif defined(__NO_INLINE__)
inline constexpr double kSlower = 3.0;
#else
inline constexpr double kSlower = 1.0;
#endif

struct Work
{
    bool succeeded = false;
    double seconds = 0.0;    ///< of the processor
    double megabytes = 0.0;  ///< most that was in memory, the test program itself included
};

/// Runs `call` in a process of its own, which is ended when it takes much too long.
inline Work MeasureWork(const std::function<bool()>& call)
{
    constexpr std::chrono::seconds kMuchTooLong{20};
    const pid_t child = fork();
    if (child == 0)
        _exit(call() ? 0 : 1);
    const auto deadline = std::chrono::steady_clock::now() + kMuchTooLong;
    int status = -1;
    rusage usage{};
    while (wait4(child, &status, WNOHANG, &usage) == 0) {
        if (std::chrono::steady_clock::now() > deadline)
            kill(child, SIGKILL);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
    };
    return {.succeeded = WIFEXITED(status) && WEXITSTATUS(status) == 0,
            .seconds = seconds(usage.ru_utime) + seconds(usage.ru_stime),
            .megabytes = static_cast<double>(usage.ru_maxrss) / 1024};
}

/// `call` says whether the file was refused.
inline void ExpectRefusedCheaply(const std::function<bool()>& call)
{
    const Work work = MeasureWork(call);
    EXPECT_TRUE(work.succeeded);
    EXPECT_LE(work.seconds, 1.0 * kSlower);
    EXPECT_LE(work.megabytes, 200.0 * kSlower);
}

}  // namespace support
