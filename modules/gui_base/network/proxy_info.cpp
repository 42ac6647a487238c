// SPDX-License-Identifier: MIT
#include "gui_base/network/proxy_info.h"

#include <wx/tokenzr.h>

#include <re2/re2.h>
#include <stdexcept>

namespace {

/// An item as the helpers take it apart: Windows usually writes "http=host:port", whose name of the protocol
/// is no part of the host.
wxString WithoutProtocolName(const wxString& item)
{
    wxString rest;
    const wxString name = item.BeforeFirst('=', &rest);
    return name.size() < item.size() && name.find_first_of(" :/") == wxString::npos ? rest : item;
}

/// Whether an item ends in a dotted IPv4 address without the digits of a port; a colon may stand there.
bool IsAddressWithoutPort(const wxString& item)
{
    static const RE2 kAddress(".+([0-9]{1,3}\\.[0-9]{1,3}\\.[0-9]{1,3}\\.[0-9]{1,3})\\:?([0-9]{1,5})?");
    std::string address;
    std::string port;
    return RE2::FullMatch(item.utf8_string(), kAddress, &address, &port) && port.empty();
}

}  // namespace

ProxyInfo::ProxyInfo(std::unique_ptr<ProxySettings> settings, const wxString& page)
    : m_settings(std::move(settings)), m_page(page)
{
    if (m_settings == nullptr)
        throw std::invalid_argument("proxysettings in nullptr");
}

ProxySettingEntries ProxyInfo::GetProxySettings() const
{
    return {GetProxySettingForUrl(GetTestURL()), GetProxySettingForUrl(GetTestURLSSL())};
}

bool ProxyInfo::IsProxyCheckByUserRequired(const bool& userUsesProxy) const
{
    return !userUsesProxy && IsProxyConfiguredInOs();
}

bool ProxyInfo::IsProxyConfiguredInOs() const
{
    const ProxySettingEntries entries = GetProxySettings();
    return entries.http.IsFound() || entries.https.IsFound();
}

ProxySettingEntry ProxyInfo::GetProxySettingForUrl(const wxString& url) const
{
    const wxString list = m_settings->GetProxyList(url);
    if (list.empty())
        return {};
    return GetProxySettingFromProxyList(list, url.StartsWith("https") ? "https" : "http");
}

ProxySettingEntry ProxyInfo::GetProxySettingFromProxyList(const wxString& list, const wxString& protocol)
{
    wxStringTokenizer items(list, ";", wxTOKEN_STRTOK);
    while (items.HasMoreTokens()) {
        const wxString item = items.GetNextToken().Trim().Trim(false);
        const wxString own = ExtractProtocol(item);
        if (!item.empty() && (own == protocol || own == "all"))
            return GetProxySettingFromProxyListItem(WithoutProtocolName(item), protocol);
    }
    return {};
}

ProxySettingEntry ProxyInfo::GetProxySettingFromProxyListItem(const wxString& item, const wxString& protocol)
{
    const wxString host = ExtractDomain(item);
    if (host.empty())
        return {};
    // An address is whole without a port: a colon with nothing behind it does not take the default away.
    return {host, ExtractPort(protocol, IsAddressWithoutPort(item) ? host : item)};
}

wxString ProxyInfo::ExtractProtocol(const wxString& item)
{
    if (item.StartsWith("HTTPS"))
        return "https";
    if (item.StartsWith("HTTP"))
        return "http";
    return item.Contains("=") ? item.BeforeFirst('=') : wxString("all");
}

wxString ProxyInfo::RemoveProtocolPrefix(const wxString& item)
{
    for (const char* prefix : {"PROXY ", "HTTPS ", "HTTP "}) {
        wxString rest;
        if (item.StartsWith(prefix, &rest))
            return rest;
    }
    return item;
}

wxString ProxyInfo::ExtractDomain(const wxString& item)
{
    const wxString rest = RemoveProtocolPrefix(item);
    const std::size_t colon = rest.rfind(':');
    const std::size_t slash = rest.rfind('/');
    if (colon == wxString::npos)
        return rest;
    if (slash == wxString::npos)
        return rest.substr(0, colon);
    return slash < colon ? rest.substr(slash + 1, colon - slash - 1) : wxString();
}

wxString ProxyInfo::ExtractPort(const wxString& protocol, const wxString& item)
{
    const std::size_t colon = item.rfind(':');
    if (colon != wxString::npos)
        return item.substr(colon + 1);
    return protocol == "https" ? "443" : "80";
}

wxString ProxyInfo::GetTestURL() const
{
    return "http://" + m_page;
}

wxString ProxyInfo::GetTestURLSSL() const
{
    return "https://" + m_page;
}
