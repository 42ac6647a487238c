// SPDX-License-Identifier: MIT
#pragma once

#include "core/core_export.h"

#include <atomic>
#include <exception>
#include <stop_token>

/// Thrown out of work that nobody wants any more.
class CORE_EXPORT WorkCancelled : public std::exception
{
public:
    const char* what() const noexcept override;
};

/// How long work, on whichever thread, tells how far it is and learns that it shall end. What it points to
/// outlives the work.
struct WorkWatch
{
    std::stop_token stop = {};
    std::atomic<double>* done = nullptr;  ///< share of the work, 0 to 1; null where nobody asks

    /// To be called every few milliseconds; throws WorkCancelled.
    void Tell(double share) const
    {
        if (stop.stop_requested())
            throw WorkCancelled();
        if (done != nullptr)
            done->store(share, std::memory_order_relaxed);
    }
};
