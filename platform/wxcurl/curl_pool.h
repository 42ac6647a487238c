// SPDX-License-Identifier: MIT
#pragma once

/// Handles of libcurl that keep their connections alive between transfers. Internal to the library; any
/// thread.

#include <curl/curl.h>

/// A handle for one transfer, with default options; it goes back to the others with its connections.
class CurlHandle
{
public:
    CurlHandle();
    ~CurlHandle();
    CurlHandle(const CurlHandle&) = delete;
    CurlHandle& operator=(const CurlHandle&) = delete;

    /// Null where the system has no memory for it.
    CURL* Get() const { return m_curl; }

    /// Closes the connections of all handles that are not in use.
    static void CloseAll();

private:
    CURL* m_curl;
};
