// SPDX-License-Identifier: MIT
#include "tests/support/postgres_server.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <unistd.h>

namespace support {

namespace {

const std::string kScript = std::string(TARNVIK_SUPPORT_DIR) + "/postgres_server.sh";

class Server
{
public:
    Server()
    {
        FILE* pipe = popen((kScript + " start " + std::to_string(getpid())).c_str(), "r");
        std::array<char, 256> line{};
        const bool read =
            pipe != nullptr && std::fgets(line.data(), static_cast<int>(line.size()), pipe) != nullptr;
        if (pipe == nullptr || pclose(pipe) != 0 || !read)
            throw std::runtime_error("PostgresConnectionText: no PostgreSQL server could be started");
        m_folder = line.data();
        m_folder.erase(m_folder.find_last_not_of('\n') + 1);
        m_connectionText = "postgresql://host=" + m_folder + " user=tarnvik dbname=tarnvik";
    }
    ~Server()
    {
        if (std::system((kScript + " stop " + m_folder).c_str()) != 0)
            std::fputs("the PostgreSQL server of this test could not be stopped\n", stderr);
    }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    const std::string& ConnectionText() const { return m_connectionText; }
    void Restart() const
    {
        if (std::system((kScript + " restart " + m_folder).c_str()) != 0)
            throw std::runtime_error("RestartPostgres: the server did not start again");
    }

private:
    std::string m_folder;
    std::string m_connectionText;
};

const Server& TheServer()
{
    static const Server server;
    return server;
}

}  // namespace

const std::string& PostgresConnectionText()
{
    return TheServer().ConnectionText();
}

void RestartPostgres()
{
    TheServer().Restart();
}

}  // namespace support
