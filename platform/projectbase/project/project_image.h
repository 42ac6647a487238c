// SPDX-License-Identifier: MIT
#pragma once

/// A project as the bytes of its file. Internal to the project file.
///
/// The schema version is 100 * major + minor. A newer minor version may hold details, tables and entries that
/// this program does not know: details are kept and written again, the rest is left out. A checksum over
/// everything that is read tells a damaged file from one with other values.

#include "projectbase/project/project_file_error.h"

#include <map>
#include <memory>
#include <string>

class Project;

/// What is wrong with the bytes; the caller adds the path.
struct ImageError : std::runtime_error
{
    ImageError(ProjectFileProblem p, const std::string& detail) : std::runtime_error(detail), problem(p) {}
    ProjectFileProblem problem;
};

using ImageNotes = std::map<std::string, std::string>;

/// `notes` are further texts that travel with the project.
std::string ToImage(const Project& project, const ImageNotes& notes);

struct LoadedImage
{
    std::unique_ptr<Project> project;
    ImageNotes notes;
};

/// Throws ImageError; never anything else for whatever bytes.
LoadedImage FromImage(const std::string& bytes);
