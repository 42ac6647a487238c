// SPDX-License-Identifier: MIT
#pragma once

/// How the calls of Network tell what went wrong: nothing is thrown, and who asks for a text gets one.
/// Internal to the network services.

#include "gui_base/messages/user_message.h"
#include "gui_base/support/translation.h"

#include <wx/string.h>

#include <exception>

namespace network_call {

inline void SetError(wxString* error, const wxString& text)
{
    if (error != nullptr)
        *error = text;
}

/// That what came could not be stored.
inline wxString WriteError(const wxString& target)
{
    return wxString::Format(i18n::Translated("The file %s cannot be written."), target);
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
