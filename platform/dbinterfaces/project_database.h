// SPDX-License-Identifier: MIT
#pragma once

/// The user's own data: an SQLite file in the user's data folder, or a PostgreSQL database that a team
/// shares.
///
/// The database that was opened last is used by the whole process; without an Open, the first call opens the
/// default one. All calls may come from any thread and throw DatabaseError, whose text names the method and
/// the cause. Several programs may use the same database: a call waits for others up to the busy timeout.

#include "dbinterfaces/dbinterfaces_export.h"

#include <chrono>
#include <string>

class DBINTERFACES_EXPORT ProjectDatabase
{
public:
    ProjectDatabase() = delete;

    /// Opens "sqlite3://PATH", an absolute path, "postgresql://dbname=... host=..." or a PostgreSQL URI; an
    /// empty text means the default file. Missing tables are created, older ones migrated. When this fails,
    /// the database that was open stays open.
    static void Open(const std::string& connectionText);
    /// Opens the database that the local parameter "/Settings/database.connection" names.
    static void OpenConfigured();
    static void Close();
    static bool IsOpen();

    /// How long a database that somebody else has locked is waited for; holds for the next Open. 5 s by
    /// default.
    static void SetBusyTimeout(std::chrono::milliseconds timeout);

    /// Value of a user parameter, or `defaultValue` where there is none. In a shared database a user's own
    /// value comes before the one that serves everybody.
    static std::string GetUserParameter(const std::string& key, const std::string& defaultValue = {});
    static std::string GetUserParameter(const std::string& key, const char* defaultValue);
    /// The same for "true" and "false"; any other text counts as missing.
    static bool GetUserParameter(const std::string& key, bool defaultValue);

    /// Stores a parameter of this user.
    static void SetUserParameter(const std::string& key, const std::string& value);
    static void SetUserParameter(const std::string& key, const char* value);
    static void SetUserParameter(const std::string& key, bool value);
    /// Parameters that stay on this machine, whichever database is open: they are kept in the default file.
    static std::string GetLocalParameter(const std::string& key, const std::string& defaultValue = {});
    static void SetLocalParameter(const std::string& key, const std::string& value);

    /// Removes a parameter of this user; nothing happens when there is none.
    static void RemoveUserParameter(const std::string& key);
};
