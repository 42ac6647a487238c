// SPDX-License-Identifier: MIT
#pragma once

#include "gui_base/network/proxy_settings.h"

#include <chrono>
#include <memory>

/// Another source of proxies, asked on a thread of its own: scripts and detection ask the network and may
/// never come back. A source that takes longer counts as one without proxies, and is not asked again; it is
/// left alone with its question.
class GUI_BASE_EXPORT BoundedProxies : public ProxySettings
{
public:
    static constexpr std::chrono::milliseconds kPatience{4'000};

    explicit BoundedProxies(std::shared_ptr<ProxySettings> source,
                            std::chrono::milliseconds patience = kPatience)
        : m_source(std::move(source)), m_patience(patience)
    {}

    /// Ends at once on a wxThread that is asked to end.
    wxString GetProxyList(const wxString& url) override;

private:
    std::shared_ptr<ProxySettings> m_source;
    std::chrono::milliseconds m_patience;
    bool m_isLost = false;
};
