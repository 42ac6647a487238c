// SPDX-License-Identifier: MIT
#include "gui_base/network/libproxy_settings.h"

#include "gui_base/network/environment_proxies.h"

#include <cstdlib>
#include <proxy.h>

namespace {

std::vector<std::string> AskLibproxy(const std::string& url)
{
    const std::unique_ptr<pxProxyFactory, decltype(&px_proxy_factory_free)> factory(px_proxy_factory_new(),
                                                                                    &px_proxy_factory_free);
    std::vector<std::string> ways;
    if (factory == nullptr)
        return ways;
    char** const list = px_proxy_factory_get_proxies(factory.get(), url.c_str());
    for (char** way = list; way != nullptr && *way != nullptr; ++way)
        ways.emplace_back(*way);
    // Not every version has a function for that.
    for (char** way = list; way != nullptr && *way != nullptr; ++way)
        std::free(*way);
    std::free(list);
    return ways;
}

}  // namespace

LibproxySettings::LibproxySettings(Ask ask) : m_ask(ask ? std::move(ask) : AskLibproxy) {}

wxString LibproxySettings::GetProxyList(const wxString& url)
{
    wxString list;
    for (const std::string& answer : m_ask(url.utf8_string())) {
        const wxString way = wxString::FromUTF8(answer);
        const wxString scheme = way.Contains("://") ? way.substr(0, way.find("://")) : wxString("http");
        if (scheme == "direct")
            break;
        // Transfers speak plain HTTP to their proxy.
        if (scheme == "http")
            list += (list.empty() ? "" : ";") + ProxyOfAddress(way);
    }
    return list;
}
