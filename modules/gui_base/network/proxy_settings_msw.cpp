// SPDX-License-Identifier: MIT
#include "gui_base/network/proxy_settings_msw.h"

#include "gui_base/network/win_http_proxy.h"

wxString ProxySettingsMSW::GetProxyList(const wxString& url)
{
    return wxString(win_http::ProxyListFor(url.ToStdWstring()));
}
