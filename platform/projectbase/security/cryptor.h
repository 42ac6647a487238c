// SPDX-License-Identifier: MIT
#pragma once

#include "projectbase/projectbase_export.h"

#include <wx/string.h>

/// Keeps short secrets, such as the password of a proxy, where others may read what is stored.
///
/// The key lies in a file of the user's data folder that only its owner can read (mode 0600) and is made when
/// it is first needed. Whoever has the user's files has the secrets; a database that others share has not.
/// XSalsa20 with Poly1305 of libsodium: what was changed is not read. Any thread.
class PROJECTBASE_EXPORT Cryptor
{
public:
    /// A text of printable ASCII, another one each time; empty for an empty text. Throws std::runtime_error
    /// when the key can be neither read nor made.
    static wxString EncryptString(const wxString& plain);
    /// What was encrypted; empty for what was not made here: under another key, damaged, or no such text at
    /// all. Never throws.
    static wxString DecryptString(const wxString& encrypted) noexcept;
};
