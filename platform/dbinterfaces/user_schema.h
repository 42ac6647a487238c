// SPDX-License-Identifier: MIT
#pragma once

/// Tables of the user database and how they came to be. Internal to this library.
///
/// Version 1 held the parameters of one user. Since version 2 each parameter has an owner, so that a team can
/// share a database without sharing its settings; what version 1 held has the empty owner and serves
/// everybody as default. Version 3 added the library of waters, which belongs to everybody who uses the
/// database, and counters that hand out its identifiers.
/// Version 4 added the compounds, filled with those that the program supplies.

#include "dbinterfaces/connection.h"

constexpr int kUserSchemaVersion = 4;

/// Creates the tables in an empty database, or migrates those of an older version, in one transaction that
/// other programs doing the same wait for. Throws DatabaseError for a newer or foreign database, which is
/// left as it is.
void EnsureUserSchema(soci::session& session, Backend backend);
