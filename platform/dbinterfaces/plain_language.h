// SPDX-License-Identifier: MIT
#pragma once

/// Names by language. Internal to this library.

#include <string>

/// "de_DE@euro" -> "de", so that a regional variant falls back to its language.
inline std::string PlainLanguage(const std::string& language)
{
    return language.substr(0, language.find_first_of("_@."));
}
