// SPDX-License-Identifier: MIT
#include "dbinterfaces/bounded_postgres.h"

#include "dbinterfaces/database_error.h"

#include <fmt/format.h>
#include <soci/postgresql/soci-postgresql.h>

#include <condition_variable>
#include <mutex>
#include <optional>
#include <set>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace bounded_postgres {

namespace {

using Clock = std::chrono::steady_clock;
using Kind = DatabaseError::Kind;

/// Whose calls may have to be given up, and whether they are.
struct Calls
{
    std::mutex mutex;
    std::set<class Watch*> watches;
    bool cancelled = false;
};

Calls& GetCalls()
{
    static Calls& calls = *new Calls;  // outlives every connection
    return calls;
}

/// Shuts a socket when what it waits for takes too long.
class Watch
{
public:
    /// Keeps a descriptor of its own, so that it never shuts one that was given to somebody else since.
    Watch(int socket, std::chrono::milliseconds answer) : m_socket(dup(socket)), m_answer(answer)
    {
        const std::lock_guard lock(GetCalls().mutex);
        GetCalls().watches.insert(this);
    }
    ~Watch()
    {
        {
            const std::lock_guard lock(GetCalls().mutex);
            GetCalls().watches.erase(this);
        }
        {
            const std::lock_guard lock(m_mutex);
            m_ends = true;
        }
        m_wake.notify_one();
        if (m_thread.joinable())
            m_thread.join();
        if (m_socket >= 0)
            close(m_socket);
    }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    /// Runs a call of the connection under the watch.
    template <typename Call>
    auto Run(Call call)
    {
        Begin();
        try {
            if constexpr (std::is_void_v<decltype(call())>) {
                call();
                End();
            } else {
                auto result = call();
                End();
                return result;
            }
        } catch (const std::exception&) {
            End();
            ThrowIfShut();
            throw;
        }
    }

    void Shut(Kind reason)
    {
        const std::lock_guard lock(m_mutex);
        if (m_deadline)
            ShutLocked(reason);
    }

private:
    void Begin()
    {
        {
            const std::lock_guard lock(GetCalls().mutex);
            if (GetCalls().cancelled)
                m_shut = Kind::Cancelled;
        }
        ThrowIfShut();
        const std::lock_guard lock(m_mutex);
        m_deadline = Clock::now() + m_answer;
        if (!m_thread.joinable())
            m_thread = std::thread([this] { Watching(); });
        else if (m_idle)
            m_wake.notify_one();
    }
    void End()
    {
        const std::lock_guard lock(m_mutex);
        m_deadline.reset();
    }
    void ThrowIfShut() const
    {
        if (m_shut == Kind::Cancelled)
            throw DatabaseError(Kind::Cancelled, "the call was given up");
        if (m_shut)
            throw DatabaseError(Kind::TimedOut, fmt::format("the server did not answer within {} s",
                                                            static_cast<double>(m_answer.count()) / 1000));
    }
    void ShutLocked(Kind reason)
    {
        m_shut = reason;
        m_deadline.reset();
        shutdown(m_socket, SHUT_RDWR);
    }
    /// Wakes when a deadline comes, not at every call: most of them end long before.
    void Watching()
    {
        std::unique_lock lock(m_mutex);
        while (!m_ends) {
            m_idle = !m_deadline;
            if (m_idle)
                m_wake.wait(lock);
            else if (Clock::now() >= *m_deadline)
                ShutLocked(Kind::TimedOut);
            else
                m_wake.wait_until(lock, Clock::time_point(*m_deadline));
        }
    }

    const int m_socket;
    const std::chrono::milliseconds m_answer;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::optional<Clock::time_point> m_deadline;  ///< of the call that is running
    std::optional<Kind> m_shut;  ///< why the connection is lost; read by the thread of the calls
    bool m_idle = false;
    bool m_ends = false;
    std::thread m_thread;
};

/// The statement of the database layer, which is not made to be derived from, with every call that waits for
/// the server under the watch.
class Statement : public soci::details::statement_backend
{
public:
    Statement(soci::details::statement_backend* inner, Watch& watch) : m_inner(inner), m_watch(watch) {}
    ~Statement() override
    {
        try {
            m_watch.Run([this] { m_inner.reset(); });  // asks the server to forget it
        } catch (const std::exception&) {
            // The connection is lost, and what was prepared on it with it.
        }
    }

    void prepare(const std::string& query, soci::details::statement_type type) override
    {
        m_watch.Run([&] { m_inner->prepare(query, type); });
    }
    exec_fetch_result execute(int number) override
    {
        return m_watch.Run([&] { return m_inner->execute(number); });
    }
    exec_fetch_result fetch(int number) override
    {
        return m_watch.Run([&] { return m_inner->fetch(number); });
    }
    int prepare_for_describe() override
    {
        return m_watch.Run([&] { return m_inner->prepare_for_describe(); });
    }

    void alloc() override { m_inner->alloc(); }
    void clean_up() override { m_inner->clean_up(); }
    long long get_affected_rows() override { return m_inner->get_affected_rows(); }
    int get_number_of_rows() override { return m_inner->get_number_of_rows(); }
    std::string get_parameter_name(int index) const override { return m_inner->get_parameter_name(index); }
    std::string rewrite_for_procedure_call(const std::string& query) override
    {
        return m_inner->rewrite_for_procedure_call(query);
    }
    void describe_column(int column, soci::data_type& type, std::string& name) override
    {
        m_inner->describe_column(column, type, name);
    }
    soci::details::standard_into_type_backend* make_into_type_backend() override
    {
        return m_inner->make_into_type_backend();
    }
    soci::details::standard_use_type_backend* make_use_type_backend() override
    {
        return m_inner->make_use_type_backend();
    }
    soci::details::vector_into_type_backend* make_vector_into_type_backend() override
    {
        return m_inner->make_vector_into_type_backend();
    }
    soci::details::vector_use_type_backend* make_vector_use_type_backend() override
    {
        return m_inner->make_vector_use_type_backend();
    }

private:
    std::unique_ptr<soci::details::statement_backend> m_inner;
    Watch& m_watch;
};

class Session : public soci::details::session_backend
{
public:
    Session(soci::postgresql_session_backend* inner, std::chrono::milliseconds answer)
        : m_inner(inner), m_watch(std::make_unique<Watch>(PQsocket(inner->conn_), answer))
    {}
    ~Session() override
    {
        // A process that was forked off has the watch without its thread, whose end would be waited for.
        if (getpid() != m_process) [[maybe_unused]]
            auto* left = m_watch.release();
    }

    bool is_connected() override
    {
        try {
            return m_watch->Run([this] { return m_inner->is_connected(); });
        } catch (const std::exception&) {
            return false;
        }
    }
    void begin() override
    {
        m_watch->Run([this] { m_inner->begin(); });
    }
    void commit() override
    {
        m_watch->Run([this] { m_inner->commit(); });
    }
    void rollback() override
    {
        m_watch->Run([this] { m_inner->rollback(); });
    }
    Statement* make_statement_backend() override
    {
        return new Statement(m_inner->make_statement_backend(), *m_watch);
    }

    std::string get_dummy_from_table() const override { return m_inner->get_dummy_from_table(); }
    std::string get_backend_name() const override { return m_inner->get_backend_name(); }
    soci::details::rowid_backend* make_rowid_backend() override { return m_inner->make_rowid_backend(); }
    soci::details::blob_backend* make_blob_backend() override { return m_inner->make_blob_backend(); }

private:
    std::unique_ptr<soci::postgresql_session_backend> m_inner;
    std::unique_ptr<Watch> m_watch;
    const pid_t m_process = getpid();
};

class Factory : public soci::backend_factory
{
public:
    explicit Factory(std::chrono::milliseconds answer) : m_answer(answer) {}
    Session* make_session(const soci::connection_parameters& parameters) const override
    {
        // That is what the layer's own factory makes.
        auto* inner = static_cast<soci::postgresql_session_backend*>(
            soci::factory_postgresql()->make_session(parameters));
        return new Session(inner, m_answer);
    }

private:
    std::chrono::milliseconds m_answer;
};

}  // namespace

std::unique_ptr<soci::session> Open(const std::string& parameters, std::chrono::milliseconds answer)
{
    // The session asks it once more only when it is told to reconnect, which nobody does.
    const Factory factory(answer);
    return std::make_unique<soci::session>(factory, parameters);
}

void Cancel()
{
    Calls& calls = GetCalls();
    const std::lock_guard lock(calls.mutex);
    calls.cancelled = true;
    for (Watch* watch : calls.watches)
        watch->Shut(Kind::Cancelled);
}

void EndCancel()
{
    const std::lock_guard lock(GetCalls().mutex);
    GetCalls().cancelled = false;
}

}  // namespace bounded_postgres
