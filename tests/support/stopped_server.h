// SPDX-License-Identifier: MIT
#pragma once

/// The tests' own PostgreSQL server, stopped as a machine is that is suspended.

#include "tests/support/postgres_server.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace support {

/// All processes of the test's own server, by the folder that it lives in.
inline std::vector<pid_t> ServerProcesses()
{
    const std::string& text = PostgresConnectionText();  // "postgresql://host=FOLDER user=..."
    const std::string folder = text.substr(18, text.find(' ') - 18);
    std::ifstream file(folder + "/data/postmaster.pid");
    pid_t master = 0;
    file >> master;
    std::vector<pid_t> processes{master};
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        std::ifstream status(entry.path() / "stat");
        pid_t process = 0;
        pid_t parent = 0;
        std::string name;
        std::string state;
        for (status >> process >> name; status && !name.ends_with(')'); name += state)
            status >> state;
        if (status >> state >> parent && parent == master)
            processes.push_back(process);
    }
    return processes;
}

/// The server is stopped as long as this lives, or until it is told to go on.
class Stopped
{
public:
    Stopped() : m_processes(ServerProcesses())
    {
        for (const pid_t process : m_processes)
            kill(process, SIGSTOP);
    }
    ~Stopped() { GoOn(); }
    void GoOn()
    {
        for (const pid_t process : m_processes)
            kill(process, SIGCONT);
        m_processes.clear();
    }

private:
    std::vector<pid_t> m_processes;
};

}  // namespace support
