// SPDX-License-Identifier: MIT
#include "tests/support/web_servers.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <stdexcept>
#include <thread>
#include <unistd.h>

namespace support {

namespace {

const std::string kScript = std::string(TARNVIK_SUPPORT_DIR) + "/web_servers.sh";

/// What the script prints, by name; empty when it failed.
std::map<std::string, std::string> Start()
{
    FILE* pipe = popen((kScript + " start " + std::to_string(getpid())).c_str(), "r");
    if (pipe == nullptr)
        return {};
    std::map<std::string, std::string> values;
    std::array<char, 256> bytes{};
    while (std::fgets(bytes.data(), static_cast<int>(bytes.size()), pipe) != nullptr) {
        const std::string line = bytes.data();
        const auto equals = line.find('=');
        if (equals != std::string::npos)
            values[line.substr(0, equals)] = line.substr(equals + 1, line.find('\n') - equals - 1);
    }
    return pclose(pipe) == 0 ? values : std::map<std::string, std::string>();
}

/// What a line of a log says of a request: of the web server all of it, of a proxy what follows "Request (…):
/// ".
std::string RequestOf(const std::string& line)
{
    const auto request = line.find("): ");
    if (request == std::string::npos)
        return line.find(" http") != std::string::npos ? line : std::string();
    if (line.find(" Request (") == std::string::npos)
        return {};
    const std::string text = line.substr(request + 3);
    return text.substr(0, text.rfind(" HTTP/"));
}

std::string Address(const char* scheme, int port, const std::string& path)
{
    return std::string(scheme) + "://127.0.0.1:" + std::to_string(port) + path;
}

}  // namespace

RequestLog::RequestLog(std::filesystem::path file)
    : m_file(std::move(file)), m_begin(std::filesystem::file_size(m_file))
{}

std::vector<std::string> RequestLog::Requests(std::size_t atLeast) const
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    for (;;) {
        std::ifstream log(m_file);
        log.seekg(static_cast<std::streamoff>(m_begin));
        std::vector<std::string> requests;
        for (std::string line; std::getline(log, line);) {
            if (const std::string request = RequestOf(line); !request.empty())
                requests.push_back(request);
        }
        if (requests.size() >= atLeast || std::chrono::steady_clock::now() > end)
            return requests;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

WebServers::WebServers()
{
    auto values = Start();
    if (values.empty())
        throw std::runtime_error("WebServers: nginx and tinyproxy could not be started");
    m_folder = values["folder"];
    for (const auto& [name, port] : {std::pair<const char*, int*>{"http", &m_http},
                                     {"https", &m_https},
                                     {"expired", &m_expired},
                                     {"wrong_host", &m_wrongHost},
                                     {"unknown_root", &m_unknownRoot},
                                     {"proxy", &m_proxy},
                                     {"auth_proxy", &m_authProxy}})
        *port = std::stoi(values[name]);
}

WebServers::~WebServers()
{
    if (std::system((kScript + " stop " + m_folder).c_str()) != 0)
        std::fputs("the web servers of this test could not be stopped\n", stderr);
}

const WebServers& WebServers::Get()
{
    static const WebServers servers;
    return servers;
}

std::string WebServers::Http(const std::string& path) const
{
    return Address("http", m_http, path);
}

std::string WebServers::Https(const std::string& path) const
{
    return Address("https", m_https, path);
}

std::string WebServers::Expired(const std::string& path) const
{
    return Address("https", m_expired, path);
}

std::string WebServers::WrongHost(const std::string& path) const
{
    return Address("https", m_wrongHost, path);
}

std::string WebServers::UnknownRoot(const std::string& path) const
{
    return Address("https", m_unknownRoot, path);
}

}  // namespace support
