// SPDX-License-Identifier: MIT
#include "dbinterfaces/user_session.h"

#include "dbinterfaces/project_database.h"
#include "dbinterfaces/user_schema.h"

#include <pwd.h>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace user_session {

namespace {

/// Held by a server's transactions while they look and write; any number does that all versions share.
constexpr long kWriteLock = 0x54565545;

std::string LoginName()
{
    const passwd* entry = getpwuid(getuid());
    return entry != nullptr ? entry->pw_name : std::to_string(getuid());
}

/// Device and inode of the file; zeros when there is none.
std::pair<std::uintmax_t, std::uintmax_t> Identity(const std::string& path)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0)
        return {};
    return {status.st_dev, status.st_ino};
}

}  // namespace

Session& Get()
{
    static Session session;
    return session;
}

void OpenLocked(Session& state, const std::string& connectionText)
{
    if (state.inTransaction)
        throw std::logic_error("a transaction of the open database has not ended");
    ConnectionTarget target = ParseConnectionText(connectionText);
    try {
        state.Replace(OpenUserDatabase(target, state.busyTimeout));
    } catch (const std::exception& error) {
        throw Classify(error, target);
    }
    // A file belongs to one user, who may be renamed; only a server's database is shared by several.
    state.owner = target.backend == Backend::PostgreSql ? LoginName() : std::string();
    state.file = target.backend == Backend::Sqlite ? Identity(target.path) : state.file;
    state.target = std::move(target);
    state.connectionText = connectionText;
}

void RequireOpen(Session& state)
{
    if (!state.session) {
        if (state.inTransaction)
            throw DatabaseError(DatabaseError::Kind::Failed, "the connection was lost in a transaction",
                                state.target.shown);
        OpenLocked(state, state.connectionText);
    } else if (state.target.backend == Backend::Sqlite && Identity(state.target.path) != state.file) {
        state.Replace(nullptr);
        throw DatabaseError(DatabaseError::Kind::Failed,
                            fmt::format("{}: the file was removed while it was in use", state.target.shown),
                            state.target.shown);
    }
}

bool IsGivenUp(const std::exception& error)
{
    const auto* ours = dynamic_cast<const DatabaseError*>(&error);
    return ours != nullptr && (ours->GetKind() == DatabaseError::Kind::TimedOut ||
                               ours->GetKind() == DatabaseError::Kind::Cancelled);
}

DatabaseError Failed(Session& state, const std::exception& error)
{
    if (IsGivenUp(error))
        state.Replace(nullptr);
    return Classify(error, state.target);
}

namespace {

void Begin(soci::session& session, Backend backend)
{
    if (backend == Backend::Sqlite) {
        session << "BEGIN IMMEDIATE";
        return;
    }
    session << "BEGIN";
    session << fmt::format("SELECT pg_advisory_xact_lock({})", kWriteLock);
}

}  // namespace

}  // namespace user_session

ProjectDatabase::Transaction::Transaction() : m_lock(user_session::Get().mutex)
{
    user_session::Session& state = user_session::Get();
    if (state.inTransaction)
        return;
    user_session::Run("Transaction", [&state](soci::session& session, const std::string&) {
        user_session::Begin(session, state.target.backend);
    });
    state.inTransaction = true;
    m_outermost = true;
}

void ProjectDatabase::Transaction::Commit()
{
    m_open = false;
    if (!m_outermost)
        return;
    user_session::Session& state = user_session::Get();
    try {
        user_session::Run("Transaction",
                          [](soci::session& session, const std::string&) { session << "COMMIT"; });
    } catch (...) {
        m_open = true;
        throw;
    }
    state.inTransaction = false;
}

ProjectDatabase::Transaction::~Transaction()
{
    if (!m_open || !m_outermost)
        return;
    user_session::Session& state = user_session::Get();
    state.inTransaction = false;
    if (!state.session)
        return;
    try {
        *state.session << "ROLLBACK";
    } catch (const std::exception&) {
        // A lost connection has rolled back already.
    }
}
