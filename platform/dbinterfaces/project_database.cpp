// SPDX-License-Identifier: MIT
#include "dbinterfaces/project_database.h"

#include "dbinterfaces/user_schema.h"
#include "dbinterfaces/user_session.h"

#include <fmt/format.h>

#include <optional>

namespace {

using user_session::Run;
using State = user_session::Session;

State& GetState()
{
    return user_session::Get();
}

std::optional<std::string> SelectParameter(soci::session& session, const std::string& owner,
                                           const std::string& key)
{
    std::string value;
    session << "SELECT value FROM tarnvik_user_parameter WHERE name = :name AND owner IN (:owner, '') "
               "ORDER BY owner DESC LIMIT 1",
        soci::use(key), soci::use(owner), soci::into(value);
    return session.got_data() ? std::optional(value) : std::nullopt;
}

void UpsertParameter(soci::session& session, const std::string& owner, const std::string& key,
                     const std::string& value)
{
    session << "INSERT INTO tarnvik_user_parameter (owner, name, value) VALUES (:owner, :name, :value) "
               "ON CONFLICT (owner, name) DO UPDATE SET value = excluded.value",
        soci::use(owner), soci::use(key), soci::use(value);
}

/// Runs `query(session)` on the default file, which is open only meanwhile.
template <typename Query>
auto RunLocally(const char* method, Query query)
{
    State& state = GetState();
    const std::lock_guard lock(state.mutex);
    try {
        const ConnectionTarget target = ParseConnectionText({});
        try {
            return query(*OpenUserDatabase(target, state.busyTimeout));
        } catch (const std::exception& error) {
            throw Classify(error, target);
        }
    } catch (const std::exception& error) {
        throw Classify(error, fmt::format("ProjectDatabase::{}", method));
    }
}

std::optional<std::string> Find(const char* method, const std::string& key)
{
    return Run(method, [&key](soci::session& session, const std::string& owner) {
        return SelectParameter(session, owner, key);
    });
}

}  // namespace

void ProjectDatabase::Open(const std::string& connectionText)
{
    State& state = GetState();
    const std::lock_guard lock(state.mutex);
    try {
        state.calls.RequireNone();
        const bool isServer = ParseConnectionText(connectionText).backend == Backend::PostgreSql;
        const auto open = [&] { user_session::OpenLocked(state, connectionText); };
        if (isServer && state.calls.AreMadeHere())
            state.calls.Run(open);
        else
            open();
    } catch (const std::exception& error) {
        throw Classify(error, "ProjectDatabase::Open");
    }
}

void ProjectDatabase::OpenConfigured()
{
    Open(GetLocalParameter("/Settings/database.connection"));
}

void ProjectDatabase::Close()
{
    State& state = GetState();
    const std::lock_guard lock(state.mutex);
    state.Replace(nullptr);
    state.connectionText.clear();
}

bool ProjectDatabase::IsOpen()
{
    State& state = GetState();
    const std::lock_guard lock(state.mutex);
    return state.session != nullptr;
}

void ProjectDatabase::SetWaitIndicator(MakeWaitIndicator make)
{
    State& state = GetState();
    const std::lock_guard lock(state.mutex);
    state.calls.SetIndicator(std::move(make));
}

void ProjectDatabase::SetBusyTimeout(std::chrono::milliseconds timeout)
{
    State& state = GetState();
    const std::lock_guard lock(state.mutex);
    state.busyTimeout = timeout;
}

std::string ProjectDatabase::GetUserParameter(const std::string& key, const std::string& defaultValue)
{
    return Find("GetUserParameter", key).value_or(defaultValue);
}

std::string ProjectDatabase::GetUserParameter(const std::string& key, const char* defaultValue)
{
    return GetUserParameter(key, std::string(defaultValue));
}

bool ProjectDatabase::GetUserParameter(const std::string& key, bool defaultValue)
{
    const auto text = Find("GetUserParameter", key);
    if (text == "true")
        return true;
    return text == "false" ? false : defaultValue;
}

void ProjectDatabase::SetUserParameter(const std::string& key, const std::string& value)
{
    Run("SetUserParameter", [&](soci::session& session, const std::string& owner) {
        UpsertParameter(session, owner, key, value);
    });
}

void ProjectDatabase::SetUserParameter(const std::string& key, const char* value)
{
    SetUserParameter(key, std::string(value));
}

void ProjectDatabase::SetUserParameter(const std::string& key, bool value)
{
    SetUserParameter(key, std::string(value ? "true" : "false"));
}

std::string ProjectDatabase::GetLocalParameter(const std::string& key, const std::string& defaultValue)
{
    return RunLocally("GetLocalParameter", [&](soci::session& session) {
        return SelectParameter(session, {}, key).value_or(defaultValue);
    });
}

void ProjectDatabase::SetLocalParameter(const std::string& key, const std::string& value)
{
    RunLocally("SetLocalParameter",
               [&](soci::session& session) { UpsertParameter(session, {}, key, value); });
}
