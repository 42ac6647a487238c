// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/gui_base_export.h"

#include <wx/string.h>

#include <memory>

/// Where the operating system says which proxies lead to an address.
class GUI_BASE_EXPORT ProxySettings
{
public:
    virtual ~ProxySettings() = default;

    /// The list of proxies for an address, its items separated by ";", each as the system writes it:
    /// "http=host:port", "PROXY host:port", "host:port". Empty for a direct connection. May take as long as
    /// a script that the network provides.
    virtual wxString GetProxyList(const wxString& url) = 0;
};

/// That of the system that the program runs on: WinHTTP on Windows, else the variables http_proxy,
/// https_proxy and no_proxy of the environment, and where these name none, what libproxy finds if the program
/// was built with it.
GUI_BASE_EXPORT std::unique_ptr<ProxySettings> SystemProxySettings();
