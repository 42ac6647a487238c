// SPDX-License-Identifier: MIT
#pragma once

/// The published water analyses that new projects can start from.

#include "projectbase/project/project.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace app {

struct WaterTemplate
{
    std::string id;
    std::string name;
    std::string kind;
    std::string source;
    /// Detail key and value of what the analysis states, in mg/l, °C or as the key says.
    std::vector<std::pair<std::string, double>> values;
    /// Detail key and text of where the water comes from.
    std::vector<std::pair<std::string, std::string>> texts;
};

/// The templates of the data folder; empty when it lacks them. Read once.
const std::vector<WaterTemplate>& WaterTemplates();

/// The template with that identifier, or null.
const WaterTemplate* FindWaterTemplate(const std::string& id);

/// Gives a water the name and all that the analysis of the template states.
void FillWater(LiquidData& liquid, const WaterTemplate& water);
/// A calculated project whose water has the template's analysis; what the template does not state is unknown
/// or 0.
std::unique_ptr<Project> NewProjectFrom(const WaterTemplate& water);
/// A calculated project with an empty water.
std::unique_ptr<Project> NewEmptyProject();

}  // namespace app
