// SPDX-License-Identifier: MIT
#pragma once

/// What a protocol of transfers must not keep.

#include "wxcurl/wxcurl_export.h"

#include <string>
#include <string_view>

namespace secrets {

/// The text without the values of headers that carry credentials (Authorization, Proxy-Authorization, Cookie
/// and Set-Cookie) and without the user part of addresses; both become "***".
WXCURL_EXPORT std::string StrikeOut(std::string_view text);

}  // namespace secrets
