// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/network/proxy_settings.h"

#include <functional>
#include <string>
#include <vector>

/// The proxies that libproxy knows of: those of the desktop, of a script that it names. Only where the
/// program was built with libproxy.
class GUI_BASE_EXPORT LibproxySettings : public ProxySettings
{
public:
    /// The ways to an address in the order in which they are to be tried, each as an address:
    /// "http://host:port", "direct://".
    using Ask = std::function<std::vector<std::string>(const std::string& url)>;

    /// By itself libproxy is asked.
    explicit LibproxySettings(Ask ask = {});

    /// What stands before a direct connection and is a proxy of HTTP.
    wxString GetProxyList(const wxString& url) override;

private:
    Ask m_ask;
};
