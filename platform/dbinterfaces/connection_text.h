// SPDX-License-Identifier: MIT
#pragma once

/// What is in the connection text of a PostgreSQL database. Internal to this library.
///
/// Its client library repeats parts of a text that it cannot read, and so a part of a password. Here such a
/// text is refused in other words; what reaches the client library is written anew.

#include <chrono>
#include <string>
#include <vector>

namespace connection_text {

struct Parameters
{
    std::string text;                  ///< "key='value' ...", with bounds on how long a server may be silent
    std::vector<std::string> secrets;  ///< never to be shown
    std::chrono::milliseconds
        answer;  ///< how long an answer of the server is waited for: its tcp_user_timeout
};

/// Reads "postgresql://key=value ..." or a PostgreSQL URI. Throws DatabaseError (BadConnection), which
/// repeats nothing of the text.
Parameters Read(const std::string& text);

/// The text with each of the secrets struck out.
std::string Mask(std::string text, const std::vector<std::string>& secrets);

}  // namespace connection_text
