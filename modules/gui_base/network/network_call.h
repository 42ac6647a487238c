// SPDX-License-Identifier: MIT
#pragma once

/// How the calls of Network tell what went wrong: nothing is thrown, and who asks for a text gets one.
/// Internal to the network services.

#include "gui_base/messages/user_message.h"

#include <wx/string.h>

#include <exception>

namespace network_call {

inline void SetError(wxString* error, const wxString& text)
{
    if (error != nullptr)
        *error = text;
}

/// What `call` returns, or nothing of its kind after an exception.
template <typename Call>
auto Guarded(wxString* error, const Call& call) -> decltype(call())
{
    try {
        return call();
    } catch (const std::exception& problem) {
        SetError(error, MessageOf(problem).text);
        return {};
    }
}

}  // namespace network_call
