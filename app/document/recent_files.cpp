// SPDX-License-Identifier: MIT
#include "app/document/recent_files.h"

#include "dbinterfaces/project_database.h"

#include <algorithm>
#include <sstream>
#include <string>

namespace app {
namespace {

constexpr std::size_t kMost = 9;
constexpr const char* kParameter = "/RecentFiles";

}  // namespace

std::vector<std::filesystem::path> RecentFiles()
{
    std::vector<std::filesystem::path> files;
    std::istringstream lines(ProjectDatabase::GetLocalParameter(kParameter));
    for (std::string line; std::getline(lines, line);)
        files.emplace_back(line);
    return files;
}

void AddRecentFile(const std::filesystem::path& path)
{
    const auto absolute = std::filesystem::absolute(path);
    // They are kept one a line; half of such a name would lead nowhere.
    if (absolute.native().find('\n') != std::string::npos)
        return;
    auto files = RecentFiles();
    std::erase(files, absolute);
    files.insert(files.begin(), absolute);
    if (files.size() > kMost)
        files.resize(kMost);
    std::string text;
    for (const auto& file : files)
        text += file.string() + "\n";
    ProjectDatabase::SetLocalParameter(kParameter, text);
}

}  // namespace app
