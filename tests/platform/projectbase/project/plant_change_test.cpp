// SPDX-License-Identifier: MIT
// A project becomes another plant: what stays, what goes, what comes, and back again.
#include "projectbase/project/iex_project.h"
#include "projectbase/project/project_json.h"
#include "tests/support/plant_fixture.h"
#include "tests/support/project_history.h"

#include <gtest/gtest.h>

namespace {

using Kinds = std::vector<std::string>;

std::string KindOf(const OwnerNode& exchanger)
{
    return exchanger.GetDetails()->At("step/kind").GetStdStringValue();
}

Kinds KindsOf(const iex::IEXProject& project)
{
    Kinds kinds;
    for (const auto& step : project.GetRoot().GetChildren(OwnerKind::Exchanger))
        kinds.push_back(KindOf(*step));
    return kinds;
}

struct Change
{
    std::string from;
    Kinds had;
    std::string to;
    Kinds kinds;
    Kinds lost;
};

TEST(PlantChange, KeepsWhatBothPlantsHaveAndIsOneStepThereAndBack)
{
    const std::vector<Change> changes{
        {"SOFT", {"SAC_NA"}, "DEMI", {"SAC_H", "SBA"}, {"SAC_NA"}},
        {"DEMI", {"SAC_H", "SBA"}, "DEMI", {"WAC_H", "SAC_H", "DEGAS", "WBA", "SBA"}, {}},
        {"DEMI",
         {"WAC_H", "SAC_H", "DEGAS", "WBA", "SBA"},
         "DEALK",
         {"WAC_H", "DEGAS"},
         {"SAC_H", "WBA", "SBA"}},
        {"DEMI", {"SAC_H", "DEGAS", "SBA"}, "FOODC", {"SAC_H", "SBA"}, {"DEGAS"}},
        {"MB", {"MB"}, "CP", {"MB"}, {}},
        {"FOODC", {"SAC_H", "SBA"}, "iex", {}, {"SAC_H", "SBA"}},
        {"iex", {}, "MB", {"MB"}, {}},
    };
    for (const Change& change : changes) {
        SCOPED_TRACE(change.from + " to " + change.to);
        iex::IEXProject project(change.from);
        project.SetPlant(change.from, change.had);
        ASSERT_EQ(KindsOf(project), change.had);
        for (std::size_t i = 0; i < project.NumberSteps(); ++i) {
            if (KindOf(project.GetStep(i)) != "DEGAS")
                project.GetStep(i).GetDetails()->At("step/margin").SetValue(0.8);
        }
        support::History history(project);
        const std::string before = ProjectToJson(project, {}, {});

        Kinds lost;
        for (const OwnerNode* exchanger : project.LostBy(change.kinds))
            lost.push_back(KindOf(*exchanger));
        EXPECT_EQ(lost, change.lost);
        project.SetPlant(change.to, change.kinds);
        EXPECT_EQ(project.GetModuleType(), change.to);
        EXPECT_EQ(KindsOf(project), change.kinds);
        for (const auto& step : project.GetRoot().GetChildren(OwnerKind::Exchanger)) {
            const bool isNew = std::ranges::find(change.had, KindOf(*step)) == change.had.end();
            if (KindOf(*step) == "DEGAS")
                continue;
            EXPECT_EQ(step->GetDetails()->At("step/margin").GetDoubleValue(), isNew ? 0.9 : 0.8)
                << KindOf(*step);
            EXPECT_FALSE(step->GetChildren(OwnerKind::SequenceRow).empty()) << KindOf(*step);
        }
        const std::string after = ProjectToJson(project, {}, {});
        ASSERT_TRUE(history.stack.Undo());
        EXPECT_FALSE(history.stack.CanUndo()) << "one step";
        EXPECT_EQ(ProjectToJson(project, {}, {}), before);
        ASSERT_TRUE(history.stack.Redo());
        EXPECT_EQ(ProjectToJson(project, {}, {}), after);
    }
}

TEST(PlantChange, RefusesWhatATypeCannotBeAndChangesNothing)
{
    iex::IEXProject project("DEMI");
    const std::string before = ProjectToJson(project, {}, {});
    const std::vector<std::pair<std::string, Kinds>> refused{
        {"ABC", {}}, {"DEMI", {"SAC_H"}}, {"DEMI", {"SBA", "SAC_H"}}, {"DEMI", {"SAC_H", "SBA", "SBA"}},
        {"MB", {}},  {"iex", {"MB"}}};
    for (const auto& [type, kinds] : refused)
        EXPECT_THROW(project.SetPlant(type, kinds), std::invalid_argument) << type << kinds.size();
    EXPECT_EQ(ProjectToJson(project, {}, {}), before);
}

TEST(PlantChange, TheDesignFollowsAtOnce)
{
    iex::IEXProject project("SOFT");
    support::Put(project, "water.1", "liquid/ca.orig", 4.0);
    support::Put(project, "water.1", "liquid/cl.orig", 4.0);
    support::Put(project, "", "project/qbrutto", 10.0);
    support::Put(project, "", "project/lz", 10.0);
    ASSERT_GE(project.GetStatus(), StatusDesigned);
    project.SetPlant("iex", {});
    EXPECT_EQ(project.GetStatus(), StatusWaters);
    EXPECT_TRUE(std::isnan(support::Get(project, "", "project/wnetto")));
    project.SetPlant("DEMI", {"SAC_H", "SBA"});
    EXPECT_EQ(project.GetStatus(), StatusDesigned);
    EXPECT_GT(support::Get(project, "ex.2", "step/load"), 0.0);
}

TEST(PlantChange, AnExchangerOfAnotherKindBeginsAnew)
{
    iex::IEXProject project("DEMI");
    support::Put(project, "ex.1.comp.1", "stepcomp/level", 75.0);
    support::History history(project);
    const std::string before = ProjectToJson(project, {}, {});
    const auto parts = [&project](OwnerKind kind) { return project.GetStep(0).GetChildren(kind).size(); };
    support::Put(project, "ex.1", "step/kind", "MB");
    EXPECT_EQ(parts(OwnerKind::Compartment), 2U);
    EXPECT_EQ(support::Detail(project, "ex.1.comp.2", "stepcomp/rm.chemical").GetStdStringValue(), "NAOH");
    EXPECT_EQ(parts(OwnerKind::SequenceRow), 11U);
    support::Put(project, "ex.1", "step/kind", "DEGAS");
    EXPECT_EQ(parts(OwnerKind::Compartment) + parts(OwnerKind::SequenceRow), 0U);
    support::Put(project, "ex.1", "step/kind", "SAC_H");
    EXPECT_EQ(support::Get(project, "ex.1.comp.1", "stepcomp/level"), 60.0);
    for (int step = 0; step < 3; ++step)
        ASSERT_TRUE(history.stack.Undo());
    EXPECT_EQ(ProjectToJson(project, {}, {}), before);
}

TEST(PlantChange, TheWaterOfThePlantStaysItWhereverItStands)
{
    iex::IEXProject project("SOFT");
    const LiquidData* const feed = &project.GetLiquid(0);
    support::History history(project);
    LiquidData& well = project.AddLiquid("Well");
    ASSERT_EQ(project.FeedingWater(), feed);
    project.MoveOwner(well, 0);
    EXPECT_EQ(project.FeedingWater(), feed) << "moved aside";
    project.AddOwner(project.GetRoot(), std::make_shared<LiquidData>("Copy"), 1);
    EXPECT_EQ(project.FeedingWater(), feed) << "one came before it";
    project.RemoveOwner(well);
    EXPECT_EQ(project.FeedingWater(), feed) << "one before it went";
    for (int back = 0; back < 4; ++back) {
        ASSERT_TRUE(history.stack.Undo());
        EXPECT_EQ(project.FeedingWater(), feed) << back;
    }
    history.stack.RedoAll();
    EXPECT_EQ(project.FeedingWater(), feed);
    EXPECT_EQ(project.GetDetails().At("project/water").GetLongValue(), 2);
}

}  // namespace
