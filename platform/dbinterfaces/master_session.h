// SPDX-License-Identifier: MIT
#pragma once

/// The one session of the master database, opened when it is first asked. Internal to this library.

#include <soci/soci.h>

#include <functional>
#include <optional>

namespace master {

/// Calls `query` under the lock; whatever goes wrong is reported as a DatabaseError under the method's name.
void WithSession(const char* method, const std::function<void(soci::session&)>& query);

/// The same for a query that gives something.
template <typename Query>
auto Run(const char* method, Query query)
{
    std::optional<decltype(query(std::declval<soci::session&>()))> result;
    WithSession(method, [&](soci::session& session) { result = query(session); });
    return *std::move(result);
}

}  // namespace master
