// SPDX-License-Identifier: MIT
// Which source of proxies the program has on its system.
#include "gui_base/network/environment_proxies.h"
#if defined(_WIN32)
#include "gui_base/network/proxy_settings_msw.h"
#elif defined(TARNVIK_WITH_LIBPROXY)
#include "gui_base/network/libproxy_settings.h"
#endif

std::unique_ptr<ProxySettings> SystemProxySettings()
{
#if defined(_WIN32)
    return std::make_unique<ProxySettingsMSW>();
#else
    auto environment = std::make_unique<EnvironmentProxies>();
#if defined(TARNVIK_WITH_LIBPROXY)
    // What was said to this program alone goes before what holds for the desktop.
    if (!environment->HasProxies())
        return std::make_unique<LibproxySettings>();
#endif
    return environment;
#endif
}
