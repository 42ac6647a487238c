// SPDX-License-Identifier: MIT
#pragma once

/// A project as JSON text: everything that it knows, in ISO units, readable by other programs, and by this
/// one as a project.

#include "projectbase/projectbase_export.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class Project;

/// Longest text that is read, in bytes.
inline constexpr std::size_t kMostJsonBytes = std::size_t{64} << 20;

/// A value that lies outside its limits.
struct JsonMessage
{
    std::string address;  ///< "water.1:liquid/ph"
    std::string text;
    double value = 0.0;
    double limit = 0.0;
};

/// A piece of advice on a water.
struct JsonAdvice
{
    int water = 0;   ///< from 1
    std::string id;  ///< "limit.fe.demi"
    bool isWarning = false;
    std::string reason;  ///< with its source
    JsonMessage message;
};

/// Details in the order of their names, doubles in the shortest form that reads back as the same value; what
/// is not known is null. `file` says where the project comes from.
PROJECTBASE_EXPORT std::string ProjectToJson(const Project& project, const std::string& file,
                                             const std::vector<JsonMessage>& messages,
                                             const std::vector<JsonAdvice>& advice = {});

/// The project that ProjectToJson wrote. Values that are derived are calculated, not read; details that the
/// catalogue does not know are kept; values that are missing are those of a new project, while its waters and
/// its exchangers are those of the text alone. Throws std::runtime_error naming what cannot be read.
PROJECTBASE_EXPORT std::unique_ptr<Project> ProjectFromJson(std::string_view text);
