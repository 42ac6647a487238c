// SPDX-License-Identifier: MIT
// make_examples FOLDER: writes every water of the templates, and a plant of every type, as a project file of
// its own. Part of the build.
#include "app/document/plant_templates.h"
#include "app/document/templates.h"
#include "projectbase/project/project_file.h"

#include <exception>
#include <filesystem>
#include <iostream>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: make_examples FOLDER\n";
        return 2;
    }
    try {
        const std::filesystem::path folder = argv[1];
        if (app::WaterTemplates().empty()) {
            std::cerr << "make_examples: the data folder has no waters\n";
            return 1;
        }
        for (const app::WaterTemplate& water : app::WaterTemplates())
            ProjectFile::Save(*app::NewProjectFrom(water), folder / (water.id + ".tarnvik"));
        for (const app::PlantTemplate& plant : app::PlantTemplates())
            ProjectFile::Save(*app::NewProjectFrom(plant), folder / (std::string(plant.id) + ".tarnvik"));
    } catch (const std::exception& error) {
        std::cerr << "make_examples: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
