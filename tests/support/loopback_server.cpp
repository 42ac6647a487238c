// SPDX-License-Identifier: MIT
#include "tests/support/loopback_server.h"

#include <algorithm>
#include <arpa/inet.h>
#include <chrono>
#include <cstdlib>
#include <netinet/in.h>
#include <optional>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

namespace support {

namespace {

constexpr int kTick = 20;  // ms

/// Whether something can be read; gives up when the server ends.
bool WaitForInput(int socket, const std::atomic<bool>& isEnding)
{
    while (!isEnding) {
        pollfd wanted{.fd = socket, .events = POLLIN, .revents = 0};
        if (poll(&wanted, 1, kTick) > 0)
            return true;
    }
    return false;
}

/// Reads until the buffer holds `wanted` bytes.
bool Fill(int socket, std::string& buffer, std::size_t wanted, const std::atomic<bool>& isEnding)
{
    char bytes[4096];
    while (buffer.size() < wanted) {
        if (!WaitForInput(socket, isEnding))
            return false;
        const ssize_t count = recv(socket, bytes, sizeof bytes, 0);
        if (count <= 0)
            return false;
        buffer.append(bytes, static_cast<std::size_t>(count));
    }
    return true;
}

std::string Lower(std::string text)
{
    std::ranges::transform(text, text.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::optional<HttpRequest> Read(int socket, std::string& buffer, const std::atomic<bool>& isEnding)
{
    std::size_t end = 0;
    while ((end = buffer.find("\r\n\r\n")) == std::string::npos) {
        if (!Fill(socket, buffer, buffer.size() + 1, isEnding))
            return std::nullopt;
    }
    HttpRequest request;
    const std::string head = buffer.substr(0, end + 2);
    buffer.erase(0, end + 4);
    std::size_t from = head.find("\r\n");
    const std::string first = head.substr(0, from);
    request.method = first.substr(0, first.find(' '));
    const std::size_t target = request.method.size() + 1;
    request.target = first.substr(target, first.find(' ', target) - target);
    for (from += 2; from < head.size();) {
        const std::size_t next = head.find("\r\n", from);
        const std::string line = head.substr(from, next - from);
        const std::size_t colon = line.find(':');
        request.headers[Lower(line.substr(0, colon))] =
            colon == std::string::npos ? "" : line.substr(std::min(colon + 2, line.size()));
        from = next + 2;
    }
    const auto length = request.headers.find("content-length");
    const std::size_t size =
        length == request.headers.end() ? 0 : std::strtoul(length->second.c_str(), nullptr, 10);
    if (!Fill(socket, buffer, size, isEnding))
        return std::nullopt;
    request.body = buffer.substr(0, size);
    buffer.erase(0, size);
    return request;
}

}  // namespace

bool ServerConnection::Send(const std::string& bytes)
{
    std::size_t sent = 0;
    while (sent < bytes.size() && !m_isEnding) {
        pollfd wanted{.fd = m_socket, .events = POLLOUT, .revents = 0};
        if (poll(&wanted, 1, kTick) <= 0)
            continue;
        const ssize_t count =
            send(m_socket, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (count < 0) {
            m_isClosed = true;
            return false;
        }
        sent += static_cast<std::size_t>(count);
    }
    return sent == bytes.size();
}

void ServerConnection::Answer(int code, const std::string& body, const std::string& headers)
{
    Send("HTTP/1.1 " + std::to_string(code) + " Answer\r\nContent-Length: " + std::to_string(body.size()) +
         "\r\n" + headers + "\r\n" + body);
}

void ServerConnection::Reset()
{
    const linger now{.l_onoff = 1, .l_linger = 0};
    setsockopt(m_socket, SOL_SOCKET, SO_LINGER, &now, sizeof now);
    m_isClosed = true;
}

bool ServerConnection::Wait(int milliseconds) const
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    while (!m_isEnding && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    return !m_isEnding;
}

LoopbackServer::LoopbackServer(Handler handler) : m_handler(std::move(handler))
{
    m_listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    if (m_listener < 0 || bind(m_listener, reinterpret_cast<sockaddr*>(&address), size) != 0 ||
        listen(m_listener, 64) != 0 ||
        getsockname(m_listener, reinterpret_cast<sockaddr*>(&address), &size) != 0)
        throw std::runtime_error("there is no port on loopback");
    m_port = ntohs(address.sin_port);
    m_acceptor = std::thread([this] { Accept(); });
}

LoopbackServer::~LoopbackServer()
{
    m_isEnding = true;
    m_acceptor.join();
    for (std::thread& thread : m_threads)
        thread.join();
    close(m_listener);
}

std::string LoopbackServer::Url(const std::string& path) const
{
    return "http://127.0.0.1:" + std::to_string(m_port) + path;
}

std::vector<HttpRequest> LoopbackServer::Requests() const
{
    const std::lock_guard lock(m_mutex);
    return m_requests;
}

void LoopbackServer::Accept()
{
    while (WaitForInput(m_listener, m_isEnding)) {
        const int accepted = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (accepted < 0)
            continue;
        ++m_connections;
        m_threads.emplace_back([this, accepted] { Serve(accepted); });
    }
}

void LoopbackServer::Serve(int socket)
{
    ServerConnection connection(socket, m_isEnding);
    std::string buffer;
    while (!connection.IsClosed()) {
        const auto request = Read(socket, buffer, m_isEnding);
        if (!request)
            break;
        {
            const std::lock_guard lock(m_mutex);
            m_requests.push_back(*request);
        }
        m_handler(connection, *request);
    }
    close(socket);
}

}  // namespace support
