// SPDX-License-Identifier: MIT
#pragma once

/// How long the texts in the user database may be. Internal to this library.
///
/// The facade refuses what is longer with an error that says which text it is; the database itself refuses it
/// from every other program, too.

#include "core/text_limits.h"
#include "dbinterfaces/connection.h"

#include <string_view>

namespace user_limits {

/// Throws DatabaseError (TooLong) when the text has more letters than that; `what` it is goes into the
/// message.
void Require(std::string_view what, std::string_view text, std::size_t most = text_limits::kName);

/// Part of a migration: cuts what is longer already and makes the database hold to the limits.
void Install(soci::session& session, Backend backend);

}  // namespace user_limits
