// SPDX-License-Identifier: MIT
// What an operating system, a script of the network or the environment says of proxies.
#include "gui_base/network/environment_proxies.h"
#include "gui_base/network/proxy_info.h"
#include "gui_base/network/proxy_parameters.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

class Fixed : public ProxySettings
{
public:
    explicit Fixed(wxString list) : m_list(std::move(list)) {}
    wxString GetProxyList(const wxString&) override { return m_list; }

private:
    wxString m_list;
};

void Check(bool holds)
{
    if (!holds)
        std::abort();
}

/// A proxy has a host and comes from one item of the list.
void CheckEntry(const ProxySettingEntry& entry, const wxString& list)
{
    Check(entry.IsFound() == !entry.GetHost().empty());
    if (!entry.IsFound()) {
        Check(entry.GetPort().empty());
        return;
    }
    Check(!entry.GetHost().Contains(";") && list.Contains(entry.GetHost()));
    Check(entry.GetPort() == "80" || entry.GetPort() == "443" || list.Contains(":" + entry.GetPort()));
    ToPort(entry.GetPort());
}

/// What was adopted is what transfers go by, and reads the same as a list again.
void CheckAdopted(const ProxySettingEntries& entries)
{
    ProxyParameters parameters;
    parameters.Adopt(entries);
    Check(parameters.useProxy == (entries.http.IsFound() || entries.https.IsFound()));
    if (parameters.useProxy) {
        Check(parameters.For(false) == entries.http);
        Check(parameters.For(true) == entries.https);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    // Windows gives any sequence of characters; variables may be no UTF-8 at all.
    wxString list = wxString::FromUTF8(bytes);
    if (list.empty())
        list = wxString::From8BitData(bytes.data(), bytes.size());
    const ProxyInfo info(std::make_unique<Fixed>(list));
    const ProxySettingEntries entries = info.GetProxySettings();
    CheckEntry(entries.http, list);
    CheckEntry(entries.https, list);
    Check(!info.IsProxyCheckByUserRequired(true));
    Check(info.IsProxyCheckByUserRequired(false) == (entries.http.IsFound() || entries.https.IsFound()));
    CheckAdopted(entries);

    EnvironmentProxies environment([&list](const char*) { return list; });
    Check(environment.HasProxies() == !list.empty());
    Check(environment.GetProxyList(list).find_first_of("/?#") == wxString::npos);
    return 0;
}
