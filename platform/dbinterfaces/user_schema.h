// SPDX-License-Identifier: MIT
#pragma once

/// Tables of the user database and how they came to be. Internal to this library.
///
/// Version 1 held the parameters of one user. Since version 2 each parameter has an owner, so that a team can
/// share a database without sharing its settings; what version 1 held has the empty owner and serves
/// everybody as default. Version 3 added the library of waters, which belongs to everybody who uses the
/// database, and counters that hand out its identifiers.
/// Version 4 added the compounds, filled with those that the program supplies.
/// Version 5 bounds the length of texts; longer ones were cut.
/// Version 6 added the conversion rates of currencies, which begin with that of the euro.

#include "dbinterfaces/connection.h"

constexpr int kUserSchemaVersion = 6;

/// Opens a user database and brings its tables up to date: creates them in an empty database, or migrates
/// those of an older version, in one transaction that other programs doing the same wait for. `wait` bounds
/// how long a locked database is waited for. Throws DatabaseError for a newer or foreign database, of which
/// no byte was changed then, nor is anything left beside it.
std::unique_ptr<soci::session> OpenUserDatabase(const ConnectionTarget& target,
                                                std::chrono::milliseconds wait);
