// SPDX-License-Identifier: MIT
#pragma once

/// A real PostgreSQL server for one test program, started on first use and stopped when the program ends.

#include <string>

namespace support {

/// Connection text of its database "tarnvik"; throws std::runtime_error when no server can be started.
const std::string& PostgresConnectionText();

/// Ends the server as a crash does and starts it again; returns when it answers. Throws std::runtime_error.
void RestartPostgres();

}  // namespace support
