// SPDX-License-Identifier: MIT
#pragma once

/// What Windows says of proxies, without any toolkit. Windows only; any thread.

#include <string>

namespace win_http {

/// The list of proxies that the current user's Internet settings have for an address, as Windows writes it
/// ("host:port", "http=host:port;https=host:port"); empty for a direct connection and where nothing can be
/// found out. Automatic detection and a script may take up to the time-outs of the network.
std::wstring ProxyListFor(const std::wstring& url) noexcept;

}  // namespace win_http
