// SPDX-License-Identifier: MIT
#pragma once

/// The one connection to the user database that a process has, and how the facade's calls run on it. Internal
/// to this library.

#include "dbinterfaces/compound_cache.h"
#include "dbinterfaces/connection.h"
#include "dbinterfaces/waiting_call.h"

#include <fmt/format.h>

#include <cstdint>
#include <mutex>
#include <string>
#include <utility>

namespace user_session {

/// The statement that stores one value of a water: a water has more than a hundred of them, so that it is
/// prepared once. Set the members, then execute.
struct ValueStatement
{
    explicit ValueStatement(soci::session& session);

    int water = -1;
    std::string key;
    std::string value;
    std::string unit;
    std::string label;
    std::string group;
    soci::statement statement;
};

struct Session
{
    std::recursive_mutex mutex;
    std::chrono::milliseconds busyTimeout{5000};
    std::string connectionText;  ///< of the database that was opened last
    ConnectionTarget target;
    std::string owner;
    std::unique_ptr<soci::session> session;
    std::pair<std::uintmax_t, std::uintmax_t> file;  ///< device and inode, SQLite only
    bool inTransaction = false;
    std::unique_ptr<ValueStatement> saveValue;       ///< of `session`, made on first use
    std::unique_ptr<const CompoundCache> compounds;  ///< of this database; null until they are needed
    WaitingCalls calls;                              ///< those that show that they wait

    /// Takes another session, or none.
    void Replace(std::unique_ptr<soci::session> other)
    {
        saveValue.reset();
        compounds.reset();
        session = std::move(other);
    }
};

Session& Get();

/// Opens the database; when this fails, the one that was open stays open. The lock is held. Throws
/// DatabaseError.
void OpenLocked(Session& state, const std::string& connectionText);

/// Opens the database if none is open. SQLite goes on writing into a file that was removed, where nobody will
/// ever find it: such a session is given up with a DatabaseError.
void RequireOpen(Session& state);

/// Whether the connection is lost because its server did not answer.
bool IsGivenUp(const std::exception& error);

/// What went wrong in a call; a connection that is lost for good is let go.
DatabaseError Failed(Session& state, const std::exception& error);

template <typename Query>
auto Attempt(Session& state, Query& query)
{
    RequireOpen(state);
    try {
        return query(*state.session, state.owner);
    } catch (const std::exception& error) {
        if (state.inTransaction || state.target.backend != Backend::PostgreSql || IsGivenUp(error) ||
            state.session->is_connected())
            throw Failed(state, error);
    }
    try {
        state.Replace(Connect(state.target, state.busyTimeout));
        return query(*state.session, state.owner);
    } catch (const std::exception& error) {
        throw Failed(state, error);
    }
}

/// Runs `query(session, owner)` under the lock. A server that dropped the connection is asked once more,
/// outside of a transaction: every query gives the same result when it runs twice. One that does not answer
/// is not; the next call connects again. Whatever goes wrong is reported under the method's name.
template <typename Query>
auto Run(const char* method, Query query)
{
    Session& state = Get();
    const std::lock_guard lock(state.mutex);
    try {
        state.calls.RequireNone();
        if (state.target.backend == Backend::PostgreSql && state.calls.AreMadeHere())
            return state.calls.Run([&] { return Attempt(state, query); });
        return Attempt(state, query);
    } catch (const std::exception& error) {
        throw Classify(error, fmt::format("ProjectDatabase::{}", method));
    }
}

}  // namespace user_session
