// SPDX-License-Identifier: MIT
#pragma once

/// Whole plants that new projects can start from: one of every type, each with a water or a feed, flow and
/// time, so that its design is complete.

#include "projectbase/project/iex_project.h"

#include <memory>
#include <span>
#include <string_view>

namespace app {

struct PlantTemplate
{
    const char* id;     ///< name of its file
    const char* title;  ///< source text
    const char* type;   ///< of the plant
    const char* water;  ///< identifier of the example water; null for one of its own
    double flow;        ///< m³/h
    double hours;
    const char* drawing;  ///< of its exchangers, in the archive of the plant graphics
};

/// All of them in the order of the types of plants.
std::span<const PlantTemplate> PlantTemplates();

/// A calculated project. Throws std::runtime_error when the data folder lacks the template's water.
std::unique_ptr<iex::IEXProject> NewProjectFrom(const PlantTemplate& plant);

}  // namespace app
