// SPDX-License-Identifier: MIT
#pragma once

/// A folder of one test, removed with it. Its name holds a blank and a letter outside ASCII on purpose.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace support {

class TempFolder
{
public:
    TempFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "tarnvik t\u00e4st XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr)
            throw std::runtime_error("TempFolder: cannot create " + name);
        m_path = name;
    }
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::permissions(m_path, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(m_path, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& Path() const { return m_path; }
    std::filesystem::path operator/(const std::string& name) const { return m_path / name; }

private:
    std::filesystem::path m_path;
};

inline std::string ReadBytes(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline void WriteBytes(const std::filesystem::path& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

}  // namespace support
