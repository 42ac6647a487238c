// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>

class Project;

namespace app {

/// The project of a file, or of the text that "calc --json" printed. Throws ProjectFileError, or
/// std::runtime_error for a text that is no such project.
std::unique_ptr<Project> LoadProject(const std::filesystem::path& path);

}  // namespace app
