// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/network/proxy_settings.h"

#include <functional>

/// The proxies that the environment names: "http_proxy" for http, "https_proxy" for https, each also in
/// capitals except "HTTP_PROXY", which a web server's caller could set. Hosts of "no_proxy" (names, domains,
/// "*") are reached directly.
class GUI_BASE_EXPORT EnvironmentProxies : public ProxySettings
{
public:
    using Lookup = std::function<wxString(const char* name)>;

    /// By itself that of the process.
    explicit EnvironmentProxies(Lookup lookup = {});

    wxString GetProxyList(const wxString& url) override;

private:
    bool IsExcepted(const wxString& host) const;

    Lookup m_lookup;
};
