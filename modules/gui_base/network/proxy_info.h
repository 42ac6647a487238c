// SPDX-License-Identifier: MIT
#pragma once

/// Which proxies the operating system has for the program's services.

#include "gui_base/network/endpoints.h"
#include "gui_base/network/proxy_settings.h"

#include <memory>

/// A proxy, or none.
class GUI_BASE_EXPORT ProxySettingEntry
{
public:
    ProxySettingEntry() = default;
    ProxySettingEntry(const wxString& host, const wxString& port)
        : m_host(host), m_port(port), m_isFound(true)
    {}

    const wxString& GetHost() const { return m_host; }
    /// As it was written: a text that is no number is the caller's to convert.
    const wxString& GetPort() const { return m_port; }
    bool IsFound() const { return m_isFound; }

    /// Host and port alone count; upper and lower case differ.
    bool operator==(const ProxySettingEntry& other) const
    {
        return m_host == other.m_host && m_port == other.m_port;
    }

private:
    wxString m_host;
    wxString m_port;
    bool m_isFound = false;
};

struct ProxySettingEntries
{
    ProxySettingEntry http;
    ProxySettingEntry https;
};

class GUI_BASE_EXPORT ProxyInfo
{
public:
    /// Throws std::invalid_argument for null.
    explicit ProxyInfo(std::unique_ptr<ProxySettings> settings,
                       const wxString& page = endpoints::Get(endpoints::kConnectionTest));

    ProxySettingEntries GetProxySettings() const;
    /// Whether a user should look at the settings: the system has a proxy and the user's settings have none.
    bool IsProxyCheckByUserRequired(const bool& userUsesProxy) const;

private:
    friend class ProxyInfoTest;

    ProxySettingEntry GetProxySettingForUrl(const wxString& url) const;
    static ProxySettingEntry GetProxySettingFromProxyList(const wxString& list, const wxString& protocol);
    static ProxySettingEntry GetProxySettingFromProxyListItem(const wxString& item, const wxString& protocol);
    static wxString ExtractProtocol(const wxString& item);
    static wxString ExtractDomain(const wxString& item);
    static wxString ExtractPort(const wxString& protocol, const wxString& item);
    static wxString RemoveProtocolPrefix(const wxString& item);
    wxString GetTestURL() const;
    wxString GetTestURLSSL() const;
    bool IsProxyConfiguredInOs() const;

    std::unique_ptr<ProxySettings> m_settings;
    wxString m_page;  ///< to be reached, without a scheme
};
