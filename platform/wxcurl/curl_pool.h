// SPDX-License-Identifier: MIT
#pragma once

/// Handles of libcurl that keep their connections alive between transfers. Internal to the library; any
/// thread.

#include <curl/curl.h>
#include <functional>

/// A handle for one transfer, with default options; it goes back to the others with its connections.
class CurlHandle
{
public:
    CurlHandle();
    ~CurlHandle();
    CurlHandle(const CurlHandle&) = delete;
    CurlHandle& operator=(const CurlHandle&) = delete;

    /// Null where the system has no memory for it.
    CURL* Get() const { return m_kept.easy; }
    /// Runs a transfer to its end. `wants` is asked at least every 50 ms, also while nothing comes; false
    /// ends the transfer as aborted.
    CURLcode Perform(const std::function<bool()>& wants) const;

    /// Closes the connections of all handles that are not in use.
    static void CloseAll();

    /// Connections live in the multi handle, so both stay together.
    struct Kept
    {
        CURL* easy = nullptr;
        CURLM* multi = nullptr;
    };

private:
    Kept m_kept;
};
