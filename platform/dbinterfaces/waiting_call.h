// SPDX-License-Identifier: MIT
#pragma once

/// Calls that run on another thread while the one that made them shows that it waits. Internal to this
/// library.

#include "dbinterfaces/wait_indicator.h"

#include <condition_variable>
#include <future>
#include <memory>
#include <mutex>
#include <thread>

class WaitingCalls
{
public:
    WaitingCalls() = default;
    ~WaitingCalls();
    WaitingCalls(const WaitingCalls&) = delete;
    WaitingCalls& operator=(const WaitingCalls&) = delete;

    /// From now on, for calls of this thread; nothing ends it.
    void SetIndicator(MakeWaitIndicator make);
    bool AreMadeHere() const { return m_make && m_thread == std::this_thread::get_id(); }
    /// Throws DatabaseError (Locked) when a call waits already.
    void RequireNone() const;

    /// The result of the call, or what it throws.
    template <typename Call>
    auto Run(Call call)
    {
        std::packaged_task<decltype(call())()> task(std::move(call));
        auto result = task.get_future();
        Wait([&task] { task(); });
        return result.get();
    }

private:
    void Wait(std::function<void()> task);
    bool EndsWithin(std::chrono::milliseconds time);
    void Work();

    MakeWaitIndicator m_make;
    std::thread::id m_thread;
    bool m_isWaiting = false;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::function<void()> m_task;  ///< until it has ended
    bool m_ends = false;
    std::thread m_worker;
};
