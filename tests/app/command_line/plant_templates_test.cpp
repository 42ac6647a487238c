// SPDX-License-Identifier: MIT
#include "app/document/plant_templates.h"

#include "projectbase/advice/evaluation.h"
#include "projectbase/project/project_file.h"
#include "projectbase/project/range_faults.h"
#include "tests/support/project_fixture.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <set>

namespace {

TEST(PlantTemplates, AreDesignedWithoutAMessageAndComeBackFromTheirFiles)
{
    const support::TempFolder folder;
    std::set<std::string> types;
    for (const app::PlantTemplate& plant : app::PlantTemplates()) {
        types.insert(plant.type);
        const auto project = app::NewProjectFrom(plant);
        EXPECT_EQ(project->GetStatus(), StatusDesigned) << plant.id;
        for (const RangeFault& fault : RangeFaults(*project))
            ADD_FAILURE() << plant.id << ": " << project->PathOf(fault.address.owner) << ":"
                          << fault.address.key << " " << fault.value << " / " << fault.limit;
        EXPECT_GT(project->GetDetails().At("project/wnetto").GetDoubleValue(), 0.0) << plant.id;
        ProjectFile::Save(*project, folder.Path() / "plant.tarnvik");
        const auto back = ProjectFile::Load(folder.Path() / "plant.tarnvik");
        EXPECT_EQ(support::Difference(*project, *back, false), "") << plant.id;
    }
    EXPECT_EQ(types, (std::set<std::string>{"SOFT", "DEALK", "DEMI", "MB", "CP", "FOODC"}));
}

TEST(PlantTemplates, CountWhatTheirResinsTakeUp)
{
    const std::map<std::string, double advice::DailyLoads::*> loads{{"SOFT", &advice::DailyLoads::hardness},
                                                                    {"DEALK", &advice::DailyLoads::carbonate},
                                                                    {"DEMI", &advice::DailyLoads::anions},
                                                                    {"MB", &advice::DailyLoads::anions}};
    std::set<std::string> types;
    for (const app::PlantTemplate& plant : app::PlantTemplates()) {
        const auto load = loads.find(plant.type);
        if (load == loads.end())
            continue;
        types.insert(plant.type);
        const auto project = app::NewProjectFrom(plant);
        const advice::Evaluation evaluation = advice::Evaluate(*project, project->GetLiquid(0));
        EXPECT_GT(evaluation.designLoad, 0.0) << plant.id;
        EXPECT_EQ(evaluation.designLoad, evaluation.loads.*load->second) << plant.id;
        // No other load may be taken for it.
        const auto& [cations, hardness, carbonate, acidity, anions] = evaluation.loads;
        const std::array all{cations, hardness, carbonate, acidity, anions};
        EXPECT_EQ(std::ranges::count(all, evaluation.designLoad), 1) << plant.id;
    }
    EXPECT_EQ(types.size(), loads.size());
}

}  // namespace
