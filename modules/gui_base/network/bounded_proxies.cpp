// SPDX-License-Identifier: MIT
#include "gui_base/network/bounded_proxies.h"

#include <wx/thread.h>

#include <algorithm>
#include <exception>
#include <future>
#include <string>
#include <thread>

wxString BoundedProxies::GetProxyList(const wxString& url)
{
    using namespace std::chrono_literals;
    if (m_isLost)
        return {};
    // Owned by the thread as well, which may outlive this object.
    const auto answer = std::make_shared<std::promise<std::string>>();
    std::future<std::string> list = answer->get_future();
    std::thread([answer, source = m_source, address = url.utf8_string()] {
        std::string found;
        try {
            found = source->GetProxyList(wxString::FromUTF8(address)).utf8_string();
        } catch (const std::exception&) {
            found.clear();
        }
        answer->set_value(found);
    }).detach();
    const auto end = std::chrono::steady_clock::now() + m_patience;
    wxThread* const thread = wxThread::This();
    while (list.wait_for(std::min<std::chrono::milliseconds>(m_patience, 50ms)) !=
           std::future_status::ready) {
        m_isLost = std::chrono::steady_clock::now() >= end || (thread != nullptr && thread->TestDestroy());
        if (m_isLost)
            return {};
    }
    return wxString::FromUTF8(list.get());
}
