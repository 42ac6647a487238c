// SPDX-License-Identifier: MIT
#pragma once

/// The project files opened or saved last, newest first. Kept on this machine; calls throw DatabaseError.

#include <filesystem>
#include <vector>

namespace app {

std::vector<std::filesystem::path> RecentFiles();
void AddRecentFile(const std::filesystem::path& path);

}  // namespace app
