// SPDX-License-Identifier: MIT
#pragma once

/// Real servers for one test program, on loopback: a web server with TLS (nginx) and proxies (tinyproxy),
/// started on first use and stopped when the program ends, however it ends.

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace support {

/// What a server has been asked since this object was made.
class RequestLog
{
public:
    explicit RequestLog(std::filesystem::path file);

    /// The requests in their order, as soon as there are `atLeast` (a server writes one down when it is
    /// answered); fewer where they do not come within seconds. Of the web server "GET
    /// http://127.0.0.1:PORT/path 200", of a proxy "GET http://host/path" or "CONNECT host:port".
    std::vector<std::string> Requests(std::size_t atLeast = 0) const;

private:
    std::filesystem::path m_file;
    std::uintmax_t m_begin;
};

/// It serves "/connectiontest.html", "/small.bin" (300,000 bytes), "/big.bin" (1 GiB), "/redirect",
/// "/to-https",
/// "/loop", "/to-file", "/forbidden" (403) and "/broken" (500), by http and by https alike.
class WebServers
{
public:
    static constexpr const char* kProxyUser = "user";
    static constexpr const char* kProxyPassword = "sesame";
    static constexpr const char* kTestPage = "/connectiontest.html";

    /// Throws std::runtime_error when they cannot be started.
    static const WebServers& Get();

    /// Addresses on 127.0.0.1.
    std::string Http(const std::string& path = kTestPage) const;
    std::string Https(const std::string& path = kTestPage) const;
    /// The same pages behind certificates that no client should take.
    std::string Expired(const std::string& path = kTestPage) const;
    std::string WrongHost(const std::string& path = kTestPage) const;
    std::string UnknownRoot(const std::string& path = kTestPage) const;
    /// The root of all certificates but the last.
    std::string CaBundle() const { return m_folder + "/ca.pem"; }
    /// What is served lies here; tests may add files.
    std::filesystem::path Pages() const { return m_folder + "/www"; }

    int ProxyPort() const { return m_proxy; }
    /// Of a proxy that wants kProxyUser and kProxyPassword.
    int AuthProxyPort() const { return m_authProxy; }

    RequestLog WebLog() const { return RequestLog(m_folder + "/access.log"); }
    RequestLog ProxyLog() const { return RequestLog(m_folder + "/proxy.log"); }
    RequestLog AuthProxyLog() const { return RequestLog(m_folder + "/auth_proxy.log"); }

    WebServers(const WebServers&) = delete;
    WebServers& operator=(const WebServers&) = delete;

private:
    WebServers();
    ~WebServers();

    std::string m_folder;
    int m_http = 0;
    int m_https = 0;
    int m_expired = 0;
    int m_wrongHost = 0;
    int m_unknownRoot = 0;
    int m_proxy = 0;
    int m_authProxy = 0;
};

}  // namespace support
