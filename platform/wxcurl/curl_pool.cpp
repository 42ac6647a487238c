// SPDX-License-Identifier: MIT
#include "wxcurl/curl_pool.h"

#include <mutex>
#include <vector>

namespace {

/// More are closed when they come back.
constexpr std::size_t kMostKept = 8;

struct Pool
{
    Pool() { curl_global_init(CURL_GLOBAL_DEFAULT); }
    ~Pool()
    {
        for (CURL* curl : idle)
            curl_easy_cleanup(curl);
        curl_global_cleanup();
    }

    std::mutex mutex;
    std::vector<CURL*> idle;  ///< the last used one at the end
};

Pool& ThePool()
{
    static Pool pool;
    return pool;
}

}  // namespace

CurlHandle::CurlHandle() : m_curl(nullptr)
{
    Pool& pool = ThePool();
    const std::lock_guard lock(pool.mutex);
    if (pool.idle.empty()) {
        m_curl = curl_easy_init();
    } else {
        m_curl = pool.idle.back();
        pool.idle.pop_back();
    }
}

CurlHandle::~CurlHandle()
{
    if (m_curl == nullptr)
        return;
    // Options go, connections stay.
    curl_easy_reset(m_curl);
    Pool& pool = ThePool();
    const std::lock_guard lock(pool.mutex);
    if (pool.idle.size() < kMostKept)
        pool.idle.push_back(m_curl);
    else
        curl_easy_cleanup(m_curl);
}

void CurlHandle::CloseAll()
{
    Pool& pool = ThePool();
    const std::lock_guard lock(pool.mutex);
    for (CURL* curl : pool.idle)
        curl_easy_cleanup(curl);
    pool.idle.clear();
}
