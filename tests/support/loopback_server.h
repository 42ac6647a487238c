// SPDX-License-Identifier: MIT
#pragma once

/// A server on loopback that answers as a test says, also as no decent server would. It records what it was
/// asked and counts connections; it ends with the object.

#include <atomic>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace support {

struct HttpRequest
{
    std::string method;
    std::string target;
    std::map<std::string, std::string> headers;  ///< names in lower case
    std::string body;
};

/// One connection while a request is answered.
class ServerConnection
{
public:
    ServerConnection(int socket, const std::atomic<bool>& isEnding) : m_socket(socket), m_isEnding(isEnding)
    {}

    /// False when the other side has gone or the server ends.
    bool Send(const std::string& bytes);
    /// An answer with its length.
    void Answer(int code, const std::string& body = {}, const std::string& headers = {});
    /// No more requests are read.
    void Close() { m_isClosed = true; }
    /// Drops the connection with a reset.
    void Reset();
    /// Waits; false when the server ends meanwhile.
    bool Wait(int milliseconds) const;

    bool IsClosed() const { return m_isClosed; }

private:
    int m_socket;
    const std::atomic<bool>& m_isEnding;
    bool m_isClosed = false;
};

class LoopbackServer
{
public:
    using Handler = std::function<void(ServerConnection&, const HttpRequest&)>;

    explicit LoopbackServer(Handler handler);
    ~LoopbackServer();
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    int Port() const { return m_port; }
    /// "http://127.0.0.1:PORT/path"
    std::string Url(const std::string& path = "/") const;
    std::vector<HttpRequest> Requests() const;
    int Connections() const { return m_connections; }

private:
    void Accept();
    void Serve(int socket);

    Handler m_handler;
    int m_listener = -1;
    int m_port = 0;
    std::atomic<bool> m_isEnding = false;
    std::atomic<int> m_connections = 0;
    mutable std::mutex m_mutex;
    std::vector<HttpRequest> m_requests;
    std::vector<std::thread> m_threads;
    std::thread m_acceptor;
};

}  // namespace support
