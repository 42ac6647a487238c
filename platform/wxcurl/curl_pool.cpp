// SPDX-License-Identifier: MIT
#include "wxcurl/curl_pool.h"

#include <mutex>
#include <vector>

namespace {

/// More are closed when they come back.
constexpr std::size_t kMostKept = 8;

/// Between two questions whether a transfer is still wanted.
constexpr int kStep = 50;  // ms

CurlHandle::Kept Make()
{
    CurlHandle::Kept made{curl_easy_init(), curl_multi_init()};
    if (made.easy != nullptr && made.multi != nullptr)
        return made;
    curl_easy_cleanup(made.easy);
    curl_multi_cleanup(made.multi);
    return {};
}

void Close(const CurlHandle::Kept& kept)
{
    curl_easy_cleanup(kept.easy);
    curl_multi_cleanup(kept.multi);
}

struct Pool
{
    Pool() { curl_global_init(CURL_GLOBAL_DEFAULT); }
    ~Pool()
    {
        for (const CurlHandle::Kept& kept : idle)
            Close(kept);
        curl_global_cleanup();
    }

    std::mutex mutex;
    std::vector<CurlHandle::Kept> idle;  ///< the last used one at the end
};

Pool& ThePool()
{
    static Pool pool;
    return pool;
}

}  // namespace

CurlHandle::CurlHandle()
{
    Pool& pool = ThePool();
    const std::lock_guard lock(pool.mutex);
    if (pool.idle.empty()) {
        m_kept = Make();
    } else {
        m_kept = pool.idle.back();
        pool.idle.pop_back();
    }
}

CurlHandle::~CurlHandle()
{
    if (m_kept.easy == nullptr)
        return;
    // Options go, connections stay.
    curl_easy_reset(m_kept.easy);
    Pool& pool = ThePool();
    const std::lock_guard lock(pool.mutex);
    if (pool.idle.size() < kMostKept)
        pool.idle.push_back(m_kept);
    else
        Close(m_kept);
}

CURLcode CurlHandle::Perform(const std::function<bool()>& wants) const
{
    if (curl_multi_add_handle(m_kept.multi, m_kept.easy) != CURLM_OK)
        return CURLE_FAILED_INIT;
    CURLcode result = CURLE_ABORTED_BY_CALLBACK;
    int running = 1;
    while (running > 0 && wants()) {
        if (curl_multi_perform(m_kept.multi, &running) != CURLM_OK ||
            (running > 0 && curl_multi_poll(m_kept.multi, nullptr, 0, kStep, nullptr) != CURLM_OK)) {
            result = CURLE_FAILED_INIT;
            break;
        }
    }
    int left = 0;
    if (const CURLMsg* message = curl_multi_info_read(m_kept.multi, &left); message != nullptr)
        result = message->data.result;
    curl_multi_remove_handle(m_kept.multi, m_kept.easy);
    return result;
}

void CurlHandle::CloseAll()
{
    Pool& pool = ThePool();
    const std::lock_guard lock(pool.mutex);
    for (const Kept& kept : pool.idle)
        Close(kept);
    pool.idle.clear();
}
