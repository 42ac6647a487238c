// SPDX-License-Identifier: MIT
#include "gui_base/network/win_http_proxy.h"

#include <memory>
#include <optional>
#include <windows.h>
#include <winhttp.h>

namespace win_http {

namespace {

constexpr int kTimeout = 5'000;  // ms, for each of name, connection, request and answer

struct Session
{
    using pointer = HINTERNET;
    void operator()(HINTERNET handle) const { WinHttpCloseHandle(handle); }
};

/// A text that Windows gave away.
class OwnedText
{
public:
    OwnedText() = default;
    ~OwnedText()
    {
        if (m_text != nullptr)
            GlobalFree(m_text);
    }
    OwnedText(const OwnedText&) = delete;
    OwnedText& operator=(const OwnedText&) = delete;

    void Take(LPWSTR text) { m_text = text; }
    LPCWSTR Get() const { return m_text; }
    bool IsEmpty() const { return m_text == nullptr || *m_text == L'\0'; }
    std::wstring Copy() const { return IsEmpty() ? std::wstring() : std::wstring(m_text); }

private:
    LPWSTR m_text = nullptr;
};

/// The Internet settings of the current user.
struct UserSettings
{
    bool isAutomatic = false;  ///< looks for a script in the network
    OwnedText script;
    OwnedText proxies;
    OwnedText exceptions;

    UserSettings()
    {
        WINHTTP_CURRENT_USER_IE_PROXY_CONFIG config{};
        if (!WinHttpGetIEProxyConfigForCurrentUser(&config))
            return;
        isAutomatic = config.fAutoDetect != FALSE;
        script.Take(config.lpszAutoConfigUrl);
        proxies.Take(config.lpszProxy);
        exceptions.Take(config.lpszProxyBypass);
    }
};

/// What detection and script say: an empty list for a direct connection, nothing where neither could be had.
std::optional<std::wstring> AutomaticList(const UserSettings& settings, const std::wstring& url)
{
    const std::unique_ptr<HINTERNET, Session> session(WinHttpOpen(
        L"proxy settings", WINHTTP_ACCESS_TYPE_NO_PROXY, WINHTTP_NO_PROXY_NAME, WINHTTP_NO_PROXY_BYPASS, 0));
    if (session == nullptr)
        return std::nullopt;
    WinHttpSetTimeouts(session.get(), kTimeout, kTimeout, kTimeout, kTimeout);
    WINHTTP_AUTOPROXY_OPTIONS options{};
    if (settings.isAutomatic) {
        options.dwFlags |= WINHTTP_AUTOPROXY_AUTO_DETECT;
        options.dwAutoDetectFlags = WINHTTP_AUTO_DETECT_TYPE_DHCP | WINHTTP_AUTO_DETECT_TYPE_DNS_A;
    }
    if (!settings.script.IsEmpty()) {
        options.dwFlags |= WINHTTP_AUTOPROXY_CONFIG_URL;
        options.lpszAutoConfigUrl = settings.script.Get();
    }
    WINHTTP_PROXY_INFO info{};
    BOOL isFound = WinHttpGetProxyForUrl(session.get(), url.c_str(), &options, &info);
    if (!isFound && GetLastError() == ERROR_WINHTTP_LOGIN_FAILURE) {
        // Who keeps the script wants to know the user. Offering that at once would bypass a cache.
        options.fAutoLogonIfChallenged = TRUE;
        isFound = WinHttpGetProxyForUrl(session.get(), url.c_str(), &options, &info);
    }
    if (!isFound)
        return std::nullopt;
    OwnedText list;
    OwnedText exceptions;
    list.Take(info.lpszProxy);
    exceptions.Take(info.lpszProxyBypass);
    return info.dwAccessType == WINHTTP_ACCESS_TYPE_NAMED_PROXY ? list.Copy() : std::wstring();
}

}  // namespace

std::wstring ProxyListFor(const std::wstring& url) noexcept
try {
    const UserSettings settings;
    if (settings.isAutomatic || !settings.script.IsEmpty()) {
        if (auto list = AutomaticList(settings, url))
            return std::move(*list);
    }
    // Also where the network has no script, as browsers do.
    return settings.proxies.Copy();
} catch (...) {
    return {};
}

}  // namespace win_http
