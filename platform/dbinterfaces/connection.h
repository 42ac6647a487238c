// SPDX-License-Identifier: MIT
#pragma once

/// A connection to the user database, whatever holds it. Internal to this library.

#include "dbinterfaces/database_error.h"

#include <soci/soci.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

enum class Backend
{
    Sqlite,
    PostgreSql
};

/// What a connection text means:
///   ""                                 the SQLite file "user.db" in the user's data folder
///   "sqlite3://PATH" or an absolute path
///   "postgresql://KEY=VALUE ..." or a PostgreSQL URI
struct ConnectionTarget
{
    Backend backend = Backend::Sqlite;
    std::string path;                       ///< SQLite only
    std::string parameters;                 ///< PostgreSQL only: what its client library is given
    std::string shown;                      ///< for messages; holds no password
    std::vector<std::string> secrets = {};  ///< struck out of every message
    std::chrono::milliseconds answer{0};    ///< PostgreSQL only: how long an answer is waited for
};

/// Throws DatabaseError (BadConnection) for a text of any other form.
ConnectionTarget ParseConnectionText(const std::string& text);

/// Opens the database and sets it up for several writers; a missing SQLite file is created with its folder.
/// `wait` bounds how long a locked database is waited for. Throws DatabaseError.
std::unique_ptr<soci::session> Connect(const ConnectionTarget& target, std::chrono::milliseconds wait);

/// The error as this library reports it: "`where`: cause", with its kind. Values that a statement was called
/// with are left out.
DatabaseError Classify(const std::exception& error, const std::string& where);
/// The same for an error of that database: its name comes first, its secrets are struck out.
DatabaseError Classify(const std::exception& error, const ConnectionTarget& target);
