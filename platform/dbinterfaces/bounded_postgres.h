// SPDX-License-Identifier: MIT
#pragma once

/// A connection to PostgreSQL whose every call ends. Internal to this library.
///
/// The client library waits for an answer without end: a server that was stopped still acknowledges what it
/// gets, so that no time-out of the network helps. Here a thread of the connection watches each call and
/// shuts the socket when the answer does not come in time, or when somebody gives the call up; the call then
/// throws DatabaseError (TimedOut or Cancelled) and the connection is lost.

#include <soci/soci.h>

#include <chrono>
#include <memory>
#include <string>

namespace bounded_postgres {

/// Throws soci_error when there is no such server. `answer` bounds each call of the session.
std::unique_ptr<soci::session> Open(const std::string& parameters, std::chrono::milliseconds answer);

/// From now on calls are given up: the one that waits, and those that follow it.
void Cancel();
/// Calls are made again.
void EndCancel();

}  // namespace bounded_postgres
