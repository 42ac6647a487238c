// SPDX-License-Identifier: MIT
#include "dbinterfaces/waiting_call.h"

#include "dbinterfaces/bounded_postgres.h"
#include "dbinterfaces/database_error.h"

namespace {

constexpr std::chrono::milliseconds kUnnoticed{500};
constexpr std::chrono::milliseconds kBetweenLooks{100};

}  // namespace

WaitIndicator::~WaitIndicator() = default;

WaitingCalls::~WaitingCalls()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ends = true;
    }
    m_changed.notify_all();
    if (m_worker.joinable())
        m_worker.join();
}

void WaitingCalls::SetIndicator(MakeWaitIndicator make)
{
    m_make = std::move(make);
    m_thread = std::this_thread::get_id();
}

void WaitingCalls::RequireNone() const
{
    if (m_isWaiting)
        throw DatabaseError(DatabaseError::Kind::Locked, "another call is waiting for the server");
}

void WaitingCalls::Wait(std::function<void()> task)
{
    m_isWaiting = true;
    {
        const std::lock_guard lock(m_mutex);
        m_task = std::move(task);
        if (!m_worker.joinable())
            m_worker = std::thread([this] { Work(); });
    }
    m_changed.notify_all();
    if (!EndsWithin(kUnnoticed)) {
        std::unique_ptr<WaitIndicator> indicator;
        try {
            indicator = m_make();
            while (!EndsWithin(kBetweenLooks)) {
                if (indicator && !indicator->Continue())
                    bounded_postgres::Cancel();
            }
        } catch (const std::exception&) {
            // Without an indicator the call goes on all the same, and so does its end.
        }
        while (!EndsWithin(kBetweenLooks)) {
        }
        bounded_postgres::EndCancel();
    }
    m_isWaiting = false;
}

bool WaitingCalls::EndsWithin(std::chrono::milliseconds time)
{
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, time, [this] { return !m_task; });
}

void WaitingCalls::Work()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_task || m_ends; });
        if (!m_task)
            return;
        const std::function<void()> task = m_task;
        lock.unlock();
        task();
        lock.lock();
        m_task = nullptr;
        m_changed.notify_all();
    }
}
