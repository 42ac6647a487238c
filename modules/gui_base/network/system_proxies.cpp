// SPDX-License-Identifier: MIT
// Which source of proxies the program has on its system.
#include "gui_base/network/bounded_proxies.h"
#include "gui_base/network/environment_proxies.h"
#if defined(_WIN32)
#include "gui_base/network/proxy_settings_msw.h"
#elif defined(TARNVIK_WITH_LIBPROXY)
#include "gui_base/network/libproxy_settings.h"
#endif

namespace {

std::shared_ptr<ProxySettings> Source()
{
#if defined(_WIN32)
    return std::make_shared<ProxySettingsMSW>();
#else
    auto environment = std::make_shared<EnvironmentProxies>();
#if defined(TARNVIK_WITH_LIBPROXY)
    // What was said to this program alone goes before what holds for the desktop.
    if (!environment->HasProxies())
        return std::make_shared<LibproxySettings>();
#endif
    return environment;
#endif
}

}  // namespace

std::unique_ptr<ProxySettings> SystemProxySettings()
{
    return std::make_unique<BoundedProxies>(Source());
}
